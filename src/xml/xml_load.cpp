// Loads an XML file. The beginning of the file, its head, decides about the encoding, by its first
// bytes and the declaration. If the rest can be converted in pieces, it is never in memory as
// bytes. If not, or if the declaration does not end in the head, the whole file is read first. In
// both cases the document changes only after everything was read.
#include <quorvel/xml/xml_file.h>

#include <quorvel/framework/file.h>
#include <quorvel/util/text/byte_swap.h>
#include <quorvel/util/text/encoding_names.h>

#include "platform/win32.h"
#include "xml/piecewise_text.h"
#include "xml/xml_declaration.h"
#include "xml/xml_file_steps.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace {

using quorvel::DeclarationMarks;
using quorvel::Pump;
using quorvel::TextOf;

constexpr int kShortestFile = 5;
constexpr ULONGLONG kLargestFile = INT_MAX;
constexpr int kHead = 65536;

CString WideOf(UINT codePage, std::string_view bytes) {
    CString text;
    const int length = static_cast<int>(bytes.size());
    const int needed = MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0);
    if (needed > 0)
        MultiByteToWideChar(codePage, 0, bytes.data(), length, text.GetBufferSetLength(needed),
                            needed);
    return text;
}

struct FreeBytes {
    void operator()(BYTE* bytes) const { std::free(bytes); }
};

// A text's declaration and encoding.
template <class Ch>
struct Declared {
    std::basic_string_view<Ch> declaration;
    std::basic_string_view<Ch> document; // the text after the declaration
    std::optional<UINT> codePage;        // no value for an unknown name
};

// Whether a declaration begins but does not end in the bytes that were read.
template <class Ch>
bool MayDeclare(const Declared<Ch>& declared, const DeclarationMarks<Ch>& marks) {
    return declared.declaration.empty() && declared.document.starts_with(marks.begin);
}

// A file being loaded: its head or all of its bytes, and the facts known about their encoding.
class Loader {
public:
    Loader(CMarkup& markup, CLengthyOperationHandler* handler)
        : m_markup(markup), m_handler(handler) {}

    void Load(const WCHAR* fileName);
    DWORD SystemError() const { return m_systemError; }

private:
    void Read(CFile& file);
    void ReadBytes(CFile& file, int count);
    void SwapUnits(int from);
    bool ReadInPieces(CFile& file, int left);
    void LoadNarrow();
    void LoadWide();

    bool IsEbcdic() const { return m_detected.CompareNoCase(_T("ebcdic")) == 0; }
    std::optional<UINT> CodePageOf(const CString& name) const;
    Declared<char> ExamineNarrow() const;
    Declared<WCHAR> ExamineWide() const;
    template <class Ch>
    std::basic_string_view<Ch> Text() const;
    bool TakeText();
    [[noreturn]] void ThrowNoMemory();

    CMarkup& m_markup;
    CLengthyOperationHandler* m_handler;
    std::unique_ptr<BYTE, FreeBytes> m_bytes;
    int m_length = 0;
    bool m_inPieces = false; // m_bytes is the head only, and m_text the whole document
    CString m_text;
    bool m_isRecognised = false;
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
    if (!m_isRecognised)
        AfxThrowXMLFileException(CXMLFileException::invalidFile);
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
    const int head = static_cast<int>(std::min<ULONGLONG>(size, kHead));
    ReadBytes(file, head);
    if (m_length < kShortestFile)
        AfxThrowXMLFileException(CXMLFileException::invalidFile);
    m_isRecognised =
        AfxDetermineXMLFileEncoding(m_bytes.get(), static_cast<DWORD>(m_length), m_detected,
                                    m_bigEndian, m_charSize, m_bomLength) != FALSE;
    SwapUnits(0);
    // The file may have shrunk after its size was read.
    const int left = m_length < head ? 0 : static_cast<int>(size) - head;
    m_inPieces = ReadInPieces(file, left);
    if (!m_inPieces) {
        ReadBytes(file, left);
        SwapUnits(head);
    }
}

// Reads up to `count` bytes after those already read.
void Loader::ReadBytes(CFile& file, int count) {
    // Four zero bytes after the text terminate it for every width of characters.
    const std::size_t size = static_cast<std::size_t>(m_length) + static_cast<std::size_t>(count);
    void* const bytes = std::realloc(m_bytes.get(), size + 4);
    if (bytes == nullptr)
        ThrowNoMemory();
    static_cast<void>(m_bytes.release()); // realloc has freed it
    m_bytes.reset(static_cast<BYTE*>(bytes));
    m_length += static_cast<int>(file.Read(m_bytes.get() + m_length, static_cast<UINT>(count)));
    std::fill_n(m_bytes.get() + m_length, 4, BYTE());
}

// Converts two-byte units from byte `from` on to this machine's byte order.
void Loader::SwapUnits(int from) {
    if (m_bigEndian && m_charSize == 2 && from < m_length)
        AfxSwapWordData(reinterpret_cast<WORD*>(m_bytes.get() + from),
                        static_cast<ULONGLONG>((m_length - from) / 2));
}

void Loader::ThrowNoMemory() {
    m_systemError = ERROR_NOT_ENOUGH_MEMORY;
    AfxThrowXMLFileException(CXMLFileException::systemError);
}

// Reads the rest of the file as the document's text. Returns false when it must be read as bytes.
// An invalid declaration is reported later, after the handler was pumped.
bool Loader::ReadInPieces(CFile& file, int left) {
    try {
        if (m_isRecognised && m_charSize == 1 && !IsEbcdic()) {
            const auto declared = ExamineNarrow();
            if (!declared.codePage || !quorvel::ConvertsInPieces(*declared.codePage) ||
                (left > 0 && MayDeclare(declared, quorvel::kNarrowDeclarationMarks)))
                return false;
            m_text = quorvel::ReadTextInPieces(file, declared.document, left, *declared.codePage);
            return true;
        }
        if (m_isRecognised && m_charSize == 2) {
            const auto declared = ExamineWide();
            if (left > 0 && (MayDeclare(declared, quorvel::kWideDeclarationMarks) ||
                             declared.document.size() < declared.declaration.size()))
                return false;
            m_text = quorvel::ReadTextInPieces(file, declared.document, left, m_bigEndian != FALSE);
            return true;
        }
    } catch (CMemoryException* exception) {
        exception->Delete();
        ThrowNoMemory();
    }
    return false;
}

// The code page of the declared name, or no value if it is unknown. The detected name replaces an
// empty one.
std::optional<UINT> Loader::CodePageOf(const CString& name) const {
    UINT codePage;
    if (!AfxCharacterEncodingToCodePage(name.IsEmpty() ? m_detected : name, codePage))
        return std::nullopt;
    return codePage;
}

// The bytes that were read, after the byte order mark.
template <class Ch>
std::basic_string_view<Ch> Loader::Text() const {
    return {reinterpret_cast<const Ch*>(m_bytes.get() + m_bomLength),
            static_cast<std::size_t>(m_length - m_bomLength) / sizeof(Ch)};
}

Declared<char> Loader::ExamineNarrow() const {
    constexpr UINT kEbcdic = 37;
    const bool isEbcdic = IsEbcdic();
    const std::string_view text = Text<char>();
    const DeclarationMarks<char>& marks =
        isEbcdic ? quorvel::kEbcdicDeclarationMarks : quorvel::kNarrowDeclarationMarks;
    const std::string_view declaration = quorvel::FindDeclaration(text, marks);
    CString name(isEbcdic ? _T("ebcdic-cp-us") : _T("utf-8"));
    if (const auto found = quorvel::FindEncodingName(declaration, marks))
        name = WideOf(isEbcdic ? kEbcdic : CP_ACP, *found);
    return {declaration, text.substr(declaration.size()), CodePageOf(name)};
}

Declared<WCHAR> Loader::ExamineWide() const {
    const auto text = Text<WCHAR>();
    const auto declaration = quorvel::FindDeclaration(text, quorvel::kWideDeclarationMarks);
    CString name(_T("utf-16"));
    if (const auto found = quorvel::FindEncodingName(declaration, quorvel::kWideDeclarationMarks))
        name = TextOf(*found);
    return {declaration, text.substr(declaration.size()), CodePageOf(name)};
}

void Loader::LoadNarrow() {
    const auto [declaration, document, codePage] = ExamineNarrow();
    if (!codePage)
        AfxThrowXMLFileException(CXMLFileException::unsupportedEncoding);
    if (!declaration.empty())
        m_markup.SetXMLDeclaration(WideOf(*codePage, declaration));
    Pump(m_handler);
    if (m_inPieces
            ? !TakeText()
            : !m_markup.SetDoc(document.data(), static_cast<int>(document.size()), *codePage))
        AfxThrowXMLFileException(CXMLFileException::untranslatableEncoding);
}

void Loader::LoadWide() {
    const auto [declaration, document, codePage] = ExamineWide();
    if (!codePage) // the bytes are UTF-16 in any case, but the declared name must be known
        AfxThrowXMLFileException(CXMLFileException::unsupportedEncoding);
    // Deliberate: passes the size in bytes as the length in characters.
    if (!declaration.empty())
        m_markup.SetXMLDeclaration(
            TextOf({declaration.data(), std::min(declaration.size() * sizeof(WCHAR),
                                                 declaration.size() + document.size())}));
    Pump(m_handler);
    if (m_inPieces)
        TakeText();
    else
        m_markup.SetDoc(document.data(), static_cast<int>(document.size()));
}

// Moves the text into the document without a copy. Like SetDoc, returns false for an empty one.
bool Loader::TakeText() {
    if (m_text.IsEmpty())
        return false;
    CString& document = m_markup.GetDocRef();
    std::swap(document, m_text);
    m_text.Empty(); // frees the former document
    return m_markup.SetDoc(document, document.GetLength());
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
            quorvel::DescribeCurrentException(errorText, loader.SystemError());
            result = FALSE;
        }
    }
    try {
        Pump(handler);
    } catch (...) {
        quorvel::DescribeCurrentException(errorText);
        result = FALSE;
    }
    return result;
}
