#include <quorvel/xml/xml_file.h>

#include <quorvel/frame/exception_text.h>
#include <quorvel/framework/file.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/util/text/byte_swap.h>
#include <quorvel/util/text/encoding_names.h>

#include "framework/replacement_file.h"
#include "platform/win32.h"
#include "xml/xml_declaration.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iterator>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace {

using quorvel::DeclarationMarks;

constexpr int kShortestFile = 5;
constexpr ULONGLONG kLargestFile = INT_MAX;

void Pump(CLengthyOperationHandler* handler) {
    if (handler != nullptr)
        handler->PumpMessages();
}

CString WideOf(UINT codePage, std::string_view bytes) {
    CString text;
    const int length = static_cast<int>(bytes.size());
    const int needed = MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0);
    if (needed > 0)
        MultiByteToWideChar(codePage, 0, bytes.data(), length, text.GetBufferSetLength(needed),
                            needed);
    return text;
}

CString TextOf(std::basic_string_view<WCHAR> text) {
    return CString(text.data(), static_cast<int>(text.size()));
}

struct FreeBytes {
    void operator()(BYTE* bytes) const { std::free(bytes); }
};

// A file being loaded: its bytes, and what is known of their encoding.
class Loader {
public:
    Loader(CMarkup& markup, CLengthyOperationHandler* handler)
        : m_markup(markup), m_handler(handler) {}

    void Load(const WCHAR* fileName);
    DWORD SystemError() const { return m_systemError; }

private:
    void Read(CFile& file);
    void Detect();
    void LoadNarrow();
    void LoadWide();
    UINT CodePageOf(const CString& name) const;

    CMarkup& m_markup;
    CLengthyOperationHandler* m_handler;
    std::unique_ptr<BYTE, FreeBytes> m_bytes;
    int m_length = 0;
    CString m_detected;
    BOOL m_bigEndian = FALSE;
    int m_charSize = 0;
    int m_bomLength = 0;
    DWORD m_systemError = 0;
};

void Loader::Load(const WCHAR* fileName) {
    m_markup.ResetPos();
    if (fileName == nullptr)
        AfxThrowXMLFileException(CXMLFileException::invalidFileName);
    CFile file(fileName, CFile::modeRead | CFile::shareDenyWrite | CFile::typeBinary);
    Pump(m_handler);
    Read(file);
    Pump(m_handler);
    Detect();
    Pump(m_handler);
    switch (m_charSize) {
    case 1:
        LoadNarrow();
        break;
    case 2:
        LoadWide();
        break;
    default:
        AfxThrowXMLFileException(CXMLFileException::unsupportedEncoding, fileName);
    }
    Pump(m_handler);
    if (!m_markup.IsWellFormed())
        AfxThrowXMLFileException(CXMLFileException::notWellFormed, fileName);
}

void Loader::Read(CFile& file) {
    const ULONGLONG size = file.GetLength();
    if (size > kLargestFile)
        AfxThrowXMLFileException(CXMLFileException::fileTooLarge);
    if (size < kShortestFile)
        AfxThrowXMLFileException(CXMLFileException::invalidFile);
    // Four zero bytes behind the text end it in every width of characters.
    m_bytes.reset(static_cast<BYTE*>(std::malloc(static_cast<std::size_t>(size) + 4)));
    if (m_bytes == nullptr) {
        m_systemError = ERROR_NOT_ENOUGH_MEMORY;
        AfxThrowXMLFileException(CXMLFileException::systemError);
    }
    // The file may have shrunk since its size was asked for.
    m_length = static_cast<int>(file.Read(m_bytes.get(), static_cast<UINT>(size)));
    std::fill_n(m_bytes.get() + m_length, 4, BYTE());
    if (m_length < kShortestFile)
        AfxThrowXMLFileException(CXMLFileException::invalidFile);
}

void Loader::Detect() {
    if (!AfxDetermineXMLFileEncoding(m_bytes.get(), static_cast<DWORD>(m_length), m_detected,
                                     m_bigEndian, m_charSize, m_bomLength))
        AfxThrowXMLFileException(CXMLFileException::invalidFile);
    if (m_bigEndian && m_charSize == 2)
        AfxSwapWordData(reinterpret_cast<WORD*>(m_bytes.get()), static_cast<__int64>(m_length / 2));
}

// The code page of the name that the declaration gives or the default; the detected name stands in
// for an empty one.
UINT Loader::CodePageOf(const CString& name) const {
    UINT codePage;
    if (!AfxCharacterEncodingToCodePage(name.IsEmpty() ? m_detected : name, codePage))
        AfxThrowXMLFileException(CXMLFileException::unsupportedEncoding);
    return codePage;
}

void Loader::LoadNarrow() {
    constexpr UINT kEbcdic = 37;
    const bool isEbcdic = m_detected.CompareNoCase(_T("ebcdic")) == 0;
    const std::string_view text(reinterpret_cast<const char*>(m_bytes.get()) + m_bomLength,
                                static_cast<std::size_t>(m_length - m_bomLength));
    const DeclarationMarks<char>& marks =
        isEbcdic ? quorvel::kEbcdicDeclarationMarks : quorvel::kNarrowDeclarationMarks;
    const std::string_view declaration = quorvel::FindDeclaration(text, marks);
    CString name(isEbcdic ? _T("ebcdic-cp-us") : _T("utf-8"));
    if (const auto found = quorvel::FindEncodingName(declaration, marks))
        name = WideOf(isEbcdic ? kEbcdic : CP_ACP, *found);
    const UINT codePage = CodePageOf(name);
    if (!declaration.empty())
        m_markup.SetXMLDeclaration(WideOf(codePage, declaration));
    Pump(m_handler);
    const std::string_view document = text.substr(declaration.size());
    if (!m_markup.SetDoc(document.data(), static_cast<int>(document.size()), codePage))
        AfxThrowXMLFileException(CXMLFileException::untranslatableEncoding);
}

void Loader::LoadWide() {
    const std::basic_string_view<WCHAR> text(
        reinterpret_cast<const WCHAR*>(m_bytes.get() + m_bomLength),
        static_cast<std::size_t>(m_length - m_bomLength) / sizeof(WCHAR));
    const auto declaration = quorvel::FindDeclaration(text, quorvel::kWideDeclarationMarks);
    CString name(_T("utf-16"));
    if (const auto found = quorvel::FindEncodingName(declaration, quorvel::kWideDeclarationMarks))
        name = TextOf(*found);
    CodePageOf(name); // the bytes are UTF-16 whatever is declared, but the name must be known
    // Deliberate: offered with its size in bytes as its length in characters.
    if (!declaration.empty())
        m_markup.SetXMLDeclaration(TextOf(text.substr(0, declaration.size() * sizeof(WCHAR))));
    Pump(m_handler);
    const auto document = text.substr(declaration.size());
    m_markup.SetDoc(document.data(), static_cast<int>(document.size()));
}

// The text of the exception that is being handled.
void DescribeCurrentException(CString& errorText, DWORD systemError) {
    try {
        throw;
    } catch (CXMLFileException* exception) {
        SetLastError(systemError);
        AfxGetXMLFileExceptionErrorMessage(exception->m_cause, errorText);
        exception->Delete();
    } catch (CException* exception) {
        AfxGetExceptionText(exception, errorText);
        exception->Delete();
    } catch (const std::exception&) {
        errorText.LoadString(quorvel::kTextXmlFileCauseInternalError);
    } catch (...) {
        errorText.LoadString(quorvel::kTextXmlFileCauseUnspecified);
    }
}

// The declaration with the quoted name of its encoding replaced; `onlyNames` limits that to some
// names.
CString WithEncoding(const CString& declaration, const WCHAR* encoding,
                     std::initializer_list<const WCHAR*> onlyNames) {
    const std::basic_string_view<WCHAR> view(declaration.GetString());
    const auto name = quorvel::FindEncodingName(view, quorvel::kWideDeclarationMarks);
    if (!name)
        return declaration;
    const CString present = TextOf(*name);
    const auto isPresent = [&present](const WCHAR* each) { return present == each; };
    if (onlyNames.size() > 0 && std::none_of(onlyNames.begin(), onlyNames.end(), isPresent))
        return declaration;
    const auto begin = static_cast<int>(name->data() - view.data());
    CString result = declaration.Left(begin - 1);
    result += _T("\"");
    result += encoding;
    result += _T("\"");
    result += declaration.Mid(begin + static_cast<int>(name->size()) + 1);
    return result;
}

// Writes text in an encoding, in blocks that lie at multiples of their size: file systems take
// those with the least work.
class TextWriter {
public:
    // Encodes up to kPiece characters into at most kWidest bytes each and returns how many bytes
    // they are, none when they can't be encoded.
    typedef int (*Encoder)(std::basic_string_view<WCHAR> piece, char* bytes);

    TextWriter(quorvel::ReplacementFile& file, Encoder encode)
        : m_file(file), m_encode(encode), m_bytes(m_block.GetBuffer(kBlock + kPiece * kWidest)) {}

    void Write(const CString& text);
    void WriteMark();
    void Flush();

private:
    static constexpr int kBlock = 262144;
    static constexpr int kPiece = 16384;
    static constexpr int kWidest = 3;

    void Put(std::basic_string_view<WCHAR> piece);

    quorvel::ReplacementFile& m_file;
    const Encoder m_encode;
    CStringA m_block;
    char* const m_bytes;
    int m_used = 0;
};

void TextWriter::Put(std::basic_string_view<WCHAR> piece) {
    const int count = m_encode(piece, m_bytes + m_used);
    if (count <= 0)
        AfxThrowXMLFileException(CXMLFileException::untranslatableEncoding);
    m_used += count;
    if (m_used < kBlock)
        return;
    m_file.Write(m_bytes, kBlock);
    m_used -= kBlock;
    std::copy_n(m_bytes + kBlock, m_used, m_bytes);
}

void TextWriter::Write(const CString& text) {
    for (int at = 0; at < text.GetLength();) {
        int count = std::min(kPiece, text.GetLength() - at);
        const WCHAR last = text[at + count - 1];
        if (last >= 0xd800 && last <= 0xdbff && count > 1)
            --count; // keep a surrogate pair together
        Put({text.GetString() + at, static_cast<std::size_t>(count)});
        at += count;
    }
}

void TextWriter::WriteMark() {
    constexpr WCHAR kMark = 0xfeff;
    Put({&kMark, 1});
}

void TextWriter::Flush() {
    m_file.Write(m_bytes, static_cast<UINT>(std::exchange(m_used, 0)));
}

int EncodeUtf8(std::basic_string_view<WCHAR> piece, char* bytes) {
    const int size = static_cast<int>(piece.size());
    return WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, piece.data(), size, bytes, 3 * size,
                               nullptr, nullptr);
}

int EncodeUtf16(std::basic_string_view<WCHAR> piece, char* bytes) {
    const std::size_t size = piece.size() * sizeof(WCHAR);
    std::memcpy(bytes, piece.data(), size);
    return static_cast<int>(size);
}

int EncodeUtf16BigEndian(std::basic_string_view<WCHAR> piece, char* bytes) {
    for (std::size_t i = 0; i < piece.size(); ++i) {
        bytes[2 * i] = static_cast<char>(piece[i] >> 8);
        bytes[2 * i + 1] = static_cast<char>(piece[i]);
    }
    return static_cast<int>(piece.size() * sizeof(WCHAR));
}

struct SavedEncoding {
    UINT codePage;
    TextWriter::Encoder encode;
    CString (*rename)(const CString& declaration);
};
constexpr SavedEncoding kSavedEncodings[] = {
    {1200, EncodeUtf16, [](const CString& declaration) { return declaration; }},
    {1201, EncodeUtf16BigEndian,
     [](const CString& declaration) {
         return WithEncoding(declaration, _T("utf-16"), {_T("unicodefffe"), _T("utf-16be")});
     }},
    {CP_UTF8, EncodeUtf8,
     [](const CString& declaration) { return WithEncoding(declaration, _T("utf-8"), {}); }},
};

void Save(CMarkup& markup, const WCHAR* fileName, CLengthyOperationHandler* handler) {
    if (fileName == nullptr)
        AfxThrowXMLFileException(CXMLFileException::invalidFileName);
    if (!markup.IsWellFormed())
        AfxThrowXMLFileException(CXMLFileException::notWellFormed, fileName);
    quorvel::ReplacementFile file(fileName);
    Pump(handler);
    const UINT codePage = markup.GetCodePage();
    const SavedEncoding* const encoding =
        std::find_if(std::begin(kSavedEncodings), std::end(kSavedEncodings),
                     [codePage](const SavedEncoding& each) { return each.codePage == codePage; });
    if (encoding == std::end(kSavedEncodings))
        AfxThrowXMLFileException(CXMLFileException::unsupportedEncoding, fileName);
    TextWriter writer(file, encoding->encode);
    if (codePage != CP_UTF8)
        writer.WriteMark();
    writer.Write(encoding->rename(markup.GetXMLDeclaration()));
    Pump(handler);
    writer.Write(markup.GetDocConstRef());
    writer.Flush();
    Pump(handler);
    file.Commit();
}

} // namespace

int AfxLoadXMLFile(const WCHAR* fileName, CMarkup& markup, CString& errorText,
                   CLengthyOperationHandler* handler) {
    errorText.Empty();
    int result = TRUE;
    {
        Loader loader(markup, handler);
        try {
            loader.Load(fileName);
        } catch (...) {
            DescribeCurrentException(errorText, loader.SystemError());
            result = FALSE;
        }
    }
    try {
        Pump(handler);
    } catch (...) {
        DescribeCurrentException(errorText, 0);
        result = FALSE;
    }
    return result;
}

int AfxSaveXMLFile(CMarkup& markup, const WCHAR* fileName, CString& errorText,
                   CLengthyOperationHandler* handler) {
    errorText.Empty();
    try {
        Save(markup, fileName, handler);
        return TRUE;
    } catch (...) {
        DescribeCurrentException(errorText, 0);
        return FALSE;
    }
}
