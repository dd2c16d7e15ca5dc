// Saves an XML file: encodes the declaration and the text in pieces into large blocks.
#include <quorvel/xml/xml_file.h>

#include "framework/replacement_file.h"
#include "platform/surrogates.h"
#include "platform/win32.h"
#include "xml/xml_declaration.h"
#include "xml/xml_file_steps.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string_view>
#include <utility>

namespace {

using quorvel::Pump;
using quorvel::TextOf;

// Replaces the quoted encoding name of the declaration; if `onlyNames` is not empty, only when the
// name is one of them.
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

// Writes encoded text in blocks at multiples of their size, because file systems write those with
// the least work.
class TextWriter {
public:
    // Encodes up to kPiece characters into at most kWidest bytes each. Returns the number of bytes,
    // or 0 when they cannot be encoded.
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
        if (count > 1 && quorvel::IsHighSurrogate(text[at + count - 1]))
            --count; // a surrogate pair stays together
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

int AfxSaveXMLFile(CMarkup& markup, const WCHAR* fileName, CString& errorText,
                   CLengthyOperationHandler* handler) {
    errorText.Empty();
    try {
        Save(markup, fileName, handler);
        return TRUE;
    } catch (...) {
        quorvel::DescribeCurrentException(errorText);
        return FALSE;
    }
}
