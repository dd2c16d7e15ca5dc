// expat gets the text as UTF-16. A file is first converted to it, so every encoding of the platform
// can be read, and positions have one meaning. A lone surrogate, or bytes that the encoding does
// not define, end the text that expat gets. U+FFFF follows them: no document may contain it, so
// expat reports its position.
#include <quorvel/xml/check_xml.h>

#include <quorvel/frame/exception_text.h>
#include <quorvel/framework/file.h>
#include <quorvel/util/text/byte_swap.h>
#include <quorvel/util/text/encoding_names.h>
#include <quorvel/xml/xml_file.h>

#include "platform/surrogates.h"
#include "platform/win32.h"
#include "xml/xml_declaration.h"
#include "xml/xml_dialect.h"

#include <expat.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <memory>
#include <string_view>

using quorvel::IsHighSurrogate;
using quorvel::IsLowSurrogate;
using quorvel::kNoCharacter;

namespace {

constexpr UINT kUtf16 = 1200;
constexpr UINT kUtf16BigEndian = 1201;
constexpr UINT kEbcdic = 37;
constexpr WCHAR kByteOrderMark = 0xfeff;
constexpr WCHAR kReplacement = 0xfffd;

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
typedef std::unique_ptr<XML_ParserStruct, FreeParser> Parser;

bool Feed(const Parser& parser, const WCHAR* text, int length, bool isLast = false) {
    return XML_Parse(parser.get(), reinterpret_cast<const char*>(text),
                     length * static_cast<int>(sizeof(WCHAR)), isLast) == XML_STATUS_OK;
}

// Returns a parser that has read a byte order mark. Without it expat would take the first
// characters of some texts for the mark of another encoding.
Parser MakeParser() {
    Parser parser(XML_ParserCreateNS("UTF-16LE", 0));
    if (parser == nullptr || !Feed(parser, &kByteOrderMark, 1))
        AfxThrowMemoryException();
    return parser;
}

// The length up to the first lone surrogate. expat checks only the first unit of a pair.
int PairedLength(const WCHAR* text, int length) {
    for (int i = 0; i < length; ++i) {
        if (IsLowSurrogate(text[i]))
            return i;
        if (IsHighSurrogate(text[i])) {
            if (i + 1 == length || !IsLowSurrogate(text[i + 1]))
                return i;
            ++i;
        }
    }
    return length;
}

bool FeedText(const Parser& parser, const WCHAR* text, int length) {
    constexpr int kFirstPiece = 32768;
    constexpr int kLargestPiece = INT_MAX / 4;
    const int paired = PairedLength(text, length);
    // expat scans a token again from its start with each piece. The total stays linear when each
    // piece is as large as all pieces before it.
    for (int fed = 0; fed < paired;) {
        const int piece = std::min({std::max(fed, kFirstPiece), kLargestPiece, paired - fed});
        if (!Feed(parser, text + fed, piece))
            return false;
        fed += piece;
    }
    return paired < length ? Feed(parser, &kNoCharacter, 1, true) : Feed(parser, nullptr, 0, true);
}

bool IsLineEnd(WCHAR unit) {
    return unit == '\r' || unit == '\n';
}

bool IsShowable(WCHAR unit) {
    const bool isControl = unit < 0x20 || (unit >= 0x7f && unit < 0xa0);
    return !isControl && !IsHighSurrogate(unit) && !IsLowSurrogate(unit) && unit < 0xfffe;
}

CString Showable(const WCHAR* text, int length) {
    CString result(text, length);
    WCHAR* units = result.GetBuffer();
    for (int i = 0; i < length; ++i) {
        if (IsHighSurrogate(units[i]) && i + 1 < length && IsLowSurrogate(units[i + 1]))
            ++i;
        else if (units[i] == '\t')
            units[i] = ' ';
        else if (!IsShowable(units[i]))
            units[i] = kReplacement;
    }
    return result;
}

// A text, and the text of the same length that expat gets. The two differ when the options ask for
// a dialect that expat does not support.
struct Subject {
    const WCHAR* text;
    const WCHAR* fed;
    int length;
};

// Counts itself: the text for expat may have other characters instead of surrogate pairs.
void SetPosition(const Subject& subject, CXMLFault& fault) {
    int lineBegin = 0;
    fault.nLine = 1;
    for (int i = 0; i < fault.nOffset; ++i) {
        const bool isHalf =
            subject.fed[i] == '\r' && i + 1 < subject.length && subject.fed[i + 1] == '\n';
        if (IsLineEnd(subject.fed[i]) && !isHalf) {
            ++fault.nLine;
            lineBegin = i + 1;
        }
    }
    fault.nColumn =
        1 + static_cast<int>(std::count_if(subject.text + lineBegin, subject.text + fault.nOffset,
                                           [](WCHAR c) { return !IsLowSurrogate(c); }));
}

void SetSnippet(const Subject& subject, CXMLFault& fault) {
    const auto& [text, fed, length] = subject;
    constexpr int kReach = 40;
    int begin = fault.nOffset;
    int end = fault.nOffset;
    while (begin > 0 && fault.nOffset - begin < kReach && !IsLineEnd(fed[begin - 1]))
        --begin;
    while (end < length && end - fault.nOffset < kReach && !IsLineEnd(fed[end]))
        ++end;
    // Half a surrogate pair at either end is left out.
    if (begin > 0 && begin < fault.nOffset && IsLowSurrogate(text[begin]))
        ++begin;
    if (end < length && end > fault.nOffset && IsHighSurrogate(text[end - 1]))
        --end;
    fault.strSnippet = Showable(text + begin, end - begin);
    fault.nCaret = fault.nOffset - begin;
}

CXMLFault FaultAt(const Parser& parser, const Subject& subject) {
    const XML_Error error = XML_GetErrorCode(parser.get());
    if (error == XML_ERROR_NO_MEMORY)
        AfxThrowMemoryException();
    CXMLFault fault;
    fault.strMessage = CString(XML_ErrorString(error));
    const XML_Index unit = XML_GetCurrentByteIndex(parser.get()) / XML_Index(sizeof(WCHAR));
    // expat's position includes the byte order mark.
    fault.nOffset = std::clamp(static_cast<int>(unit) - 1, 0, subject.length);
    SetPosition(subject, fault);
    SetSnippet(subject, fault);
    return fault;
}

// Has room for every version and every known encoding name, so that nothing throws through expat's
// C frames.
struct Declaration {
    int length = 0;
    char version[8] = {};
    char encoding[64] = {};
};

void XMLCALL TakeDeclaration(void* target, const XML_Char* version, const XML_Char* encoding, int) {
    auto& declaration = *static_cast<Declaration*>(target);
    if (version != nullptr)
        std::strncpy(declaration.version, version, sizeof declaration.version - 1);
    if (encoding != nullptr)
        std::strncpy(declaration.encoding, encoding, sizeof declaration.encoding - 1);
}

// Reads a text's declaration. Fields that it does not have are empty.
Declaration ReadDeclaration(const WCHAR* text, int length) {
    constexpr std::size_t kLongest = INT_MAX / 4; // the most that expat takes at once
    const std::size_t found = quorvel::FindDeclaration({text, static_cast<std::size_t>(length)},
                                                       quorvel::kWideDeclarationMarks)
                                  .size();
    Declaration declaration;
    declaration.length = static_cast<int>(std::min(found, kLongest));
    const Parser parser = MakeParser();
    XML_SetUserData(parser.get(), &declaration);
    XML_SetXmlDeclHandler(parser.get(), TakeDeclaration);
    Feed(parser, text, declaration.length);
    return declaration;
}

void CheckText(const WCHAR* text, int length, DWORD options, CXMLFault& fault) {
    CString rewritten;
    Subject subject = {text, text, length};
    const Declaration declaration = options != 0 ? ReadDeclaration(text, length) : Declaration();
    const bool isVersion11 =
        (options & CHECK_XML_VERSION_1_1) != 0 && declaration.version == std::string_view("1.1");
    if (isVersion11 || (options & CHECK_XML_FIFTH_EDITION) != 0) {
        rewritten = quorvel::FromFifthEdition({text, static_cast<std::size_t>(length)});
        if (isVersion11)
            quorvel::FromVersion11(rewritten, declaration.length);
        subject.fed = rewritten;
    }
    const Parser parser = MakeParser();
    if (!FeedText(parser, subject.fed, length))
        fault = FaultAt(parser, subject);
}

// Runs `check`. An error that prevents the check becomes a fault without a position.
template <class Check>
BOOL RunCheck(CXMLFault& result, Check check) {
    CXMLFault fault; // the text may be in the caller's record
    BOOL wellFormed = FALSE;
    try {
        check(fault);
        wellFormed = fault.nLine == 0;
    } catch (CXMLFileException* exception) {
        AfxGetXMLFileExceptionErrorMessage(exception->m_cause, fault.strMessage);
        exception->Delete();
    } catch (CException* exception) {
        AfxGetExceptionText(exception, fault.strMessage);
        exception->Delete();
    }
    result = fault;
    return wellFormed;
}

// A file's bytes, and the facts about their encoding that are known before the declaration is read.
struct FileBytes {
    CStringA bytes;
    CString encoding;
    BOOL isBigEndian = FALSE;
    int charSize = 0;
    int markLength = 0;

    std::string_view Text() const {
        return {bytes.GetString() + markLength,
                static_cast<std::size_t>(bytes.GetLength() - markLength)};
    }
    bool IsEbcdic() const { return encoding == _T("ebcdic"); }
};

FileBytes ReadFileBytes(const WCHAR* fileName) {
    constexpr ULONGLONG kLargestFile = INT_MAX - 1;
    FileBytes file;
    CFile source(fileName, CFile::modeRead | CFile::shareDenyWrite | CFile::typeBinary);
    const ULONGLONG size = source.GetLength();
    if (size > kLargestFile)
        AfxThrowXMLFileException(CXMLFileException::fileTooLarge, fileName);
    char* room = file.bytes.GetBufferSetLength(static_cast<int>(size));
    const UINT length = source.Read(room, static_cast<UINT>(size));
    file.bytes.ReleaseBufferSetLength(static_cast<int>(length)); // the file may have shrunk
    if (!AfxDetermineXMLFileEncoding(reinterpret_cast<const BYTE*>(file.bytes.GetString()), length,
                                     file.encoding, file.isBigEndian, file.charSize,
                                     file.markLength))
        file.charSize = 1;
    return file;
}

CString DecodeUtf16(const FileBytes& file) {
    const std::string_view bytes = file.Text();
    const int length = static_cast<int>(bytes.size() / sizeof(WCHAR));
    CString text;
    WCHAR* units = text.GetBufferSetLength(length);
    std::memcpy(units, bytes.data(), static_cast<std::size_t>(length) * sizeof(WCHAR));
    if (file.isBigEndian)
        AfxSwapWordData(reinterpret_cast<WORD*>(units), static_cast<ULONGLONG>(length));
    if (bytes.size() % sizeof(WCHAR) != 0)
        text.AppendChar(kNoCharacter);
    return text;
}

// Returns FALSE when the code page does not define all of the bytes. ASCII needs its own test: the
// platform ignores the eighth bit.
bool AppendDecoded(CString& text, UINT codePage, DWORD flags, std::string_view bytes) {
    constexpr UINT kAscii = 20127;
    const auto isAscii = [](char byte) { return (byte & 0x80) == 0; };
    if (codePage == kAscii && !std::all_of(bytes.begin(), bytes.end(), isAscii))
        return false;
    const int count = static_cast<int>(bytes.size());
    const int needed = MultiByteToWideChar(codePage, flags, bytes.data(), count, nullptr, 0);
    if (needed <= 0)
        return false;
    const int length = text.GetLength();
    WCHAR* units = text.GetBufferSetLength(length + needed);
    return MultiByteToWideChar(codePage, flags, bytes.data(), count, units + length, needed) > 0;
}

// Code pages with shift sequences (UTF-7, ISO-2022) reject nothing and cannot be cut into pieces.
bool CanBeStrict(UINT codePage) {
    return MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, "a", 1, nullptr, 0) > 0;
}

// The platform rejects every private-use character. Only one of them has a meaning: the apple sign
// of the Macintosh code pages.
bool AppendAppleSign(CString& text, UINT codePage, std::string_view bytes) {
    constexpr WCHAR kAppleSign = 0xf8ff;
    WCHAR unit = 0;
    if (MultiByteToWideChar(codePage, 0, bytes.data(), 1, &unit, 1) != 1 || unit != kAppleSign)
        return false;
    text.AppendChar(unit);
    return true;
}

// For a code page whose characters depend on the preceding ones. Decodes everything at once. If
// that fails, finds the longest valid beginning by bisection.
CString DecodeShifted(UINT codePage, std::string_view bytes) {
    constexpr std::size_t kLongestCharacter = 4;
    CString text;
    const auto decode = [&](std::size_t length) {
        text.Empty();
        return length == 0 ||
               AppendDecoded(text, codePage, MB_ERR_INVALID_CHARS, bytes.substr(0, length));
    };
    // If a length fails because it cuts a character, the next one succeeds.
    const auto isGood = [&](std::size_t length) { return decode(length) || decode(length + 1); };
    if (decode(bytes.size()))
        return text;
    std::size_t good = 0;
    for (std::size_t bad = bytes.size(); bad - good > kLongestCharacter;) {
        const std::size_t middle = good + (bad - good) / 2;
        (isGood(middle) ? good : bad) = middle;
    }
    std::size_t length = std::min(good + 2 * kLongestCharacter, bytes.size());
    while (!decode(length))
        --length;
    text.AppendChar(kNoCharacter);
    return text;
}

// Decodes in pieces. Halves a piece that fails until the first unknown character is left, or the
// end of the piece no longer cuts a character.
CString DecodeNarrow(UINT codePage, std::string_view bytes) {
    constexpr UINT kHz = 52936;
    constexpr std::size_t kPiece = 65536;
    constexpr std::size_t kLongestCharacter = 4;
    CString text;
    if (!CanBeStrict(codePage)) {
        AppendDecoded(text, codePage, 0, bytes);
        return text;
    }
    if (codePage == kHz)
        return DecodeShifted(codePage, bytes);
    text.Preallocate(static_cast<int>(bytes.size()));
    for (std::size_t size = kPiece; !bytes.empty();) {
        size = std::min(size, bytes.size());
        if (AppendDecoded(text, codePage, MB_ERR_INVALID_CHARS, bytes.substr(0, size))) {
            bytes.remove_prefix(size);
            size = kPiece;
        } else if (size > 1) {
            size = size > kLongestCharacter ? std::max(size / 2, kLongestCharacter) : size - 1;
        } else if (AppendAppleSign(text, codePage, bytes)) {
            bytes.remove_prefix(size);
            size = kPiece;
        } else {
            text.AppendChar(kNoCharacter);
            break;
        }
    }
    return text;
}

// Decodes at least the declaration and the 64 characters that a fault shows.
CString DecodeBeginning(const FileBytes& file) {
    constexpr UINT kLatin1 = 28591;
    constexpr std::size_t kShown = 64;
    const std::string_view text = file.Text();
    const std::string_view declaration =
        quorvel::FindDeclaration(text, file.IsEbcdic() ? quorvel::kEbcdicDeclarationMarks
                                                       : quorvel::kNarrowDeclarationMarks);
    return DecodeNarrow(file.IsEbcdic() ? kEbcdic : kLatin1,
                        text.substr(0, std::max(declaration.size(), kShown)));
}

// Whether the code page is possible for the byte order mark and the character size of the file.
bool Agree(const FileBytes& file, UINT codePage) {
    const bool isWide = codePage == kUtf16 || codePage == kUtf16BigEndian;
    return isWide == (file.charSize == 2) && (file.markLength != 3 || codePage == CP_UTF8);
}

void CheckFile(const WCHAR* fileName, DWORD options, CXMLFault& fault) {
    if (fileName == nullptr)
        AfxThrowXMLFileException(CXMLFileException::invalidFileName);
    const FileBytes file = ReadFileBytes(fileName);
    if (file.charSize > 2)
        AfxThrowXMLFileException(CXMLFileException::unsupportedEncoding, fileName);
    CString text = file.charSize == 2 ? DecodeUtf16(file) : DecodeBeginning(file);
    UINT codePage = file.charSize == 2 ? kUtf16 : file.IsEbcdic() ? kEbcdic : CP_UTF8;
    const CString declared(ReadDeclaration(text, text.GetLength()).encoding);
    if (!declared.IsEmpty() && !AfxCharacterEncodingToCodePage(declared, codePage))
        AfxThrowXMLFileException(CXMLFileException::unsupportedEncoding, fileName);
    if (!Agree(file, codePage)) {
        fault.strMessage = CString(XML_ErrorString(XML_ERROR_INCORRECT_ENCODING));
        fault.nLine = fault.nColumn = 1;
        SetSnippet({text, text, text.GetLength()}, fault);
        return;
    }
    if (file.charSize == 1) {
        if (!IsValidCodePage(codePage))
            AfxThrowXMLFileException(CXMLFileException::unsupportedEncoding, fileName);
        text = DecodeNarrow(codePage, file.Text());
    }
    CheckText(text, text.GetLength(), options, fault);
}

} // namespace

BOOL AfxCheckXML(const WCHAR* text, int length, CXMLFault& fault, DWORD options) {
    const int usable = text != nullptr ? std::max(length, 0) : 0;
    return RunCheck(fault, [&](CXMLFault& found) {
        CheckText(usable > 0 ? text : _T(""), usable, options, found);
    });
}

BOOL AfxCheckXML(const CString& text, CXMLFault& fault, DWORD options) {
    return AfxCheckXML(text, text.GetLength(), fault, options);
}

BOOL AfxCheckXMLFile(const WCHAR* fileName, CXMLFault& fault, DWORD options) {
    return RunCheck(fault, [&](CXMLFault& found) { CheckFile(fileName, options, found); });
}
