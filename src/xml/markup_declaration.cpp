#include <quorvel/util/text/encoding_names.h>
#include <quorvel/xml/markup.h>

#include "xml/xml_declaration.h"

CString CMarkup::GetXMLDeclaration() const {
    return m_strXMLDeclaration.IsEmpty() ? CString(_T("<?xml version=\"1.0\" encoding=\"utf-8\"?>"))
                                         : m_strXMLDeclaration;
}

bool CMarkup::SetXMLDeclaration(const WCHAR* text) {
    constexpr std::size_t kShortest = 7; // <?xml?>
    if (text == nullptr)
        return false;
    const std::basic_string_view<WCHAR> view(text);
    if (view.size() < kShortest || !view.starts_with(_T("<?xml")) || !view.ends_with(_T("?>")))
        return false;
    m_strXMLDeclaration = text;
    return true;
}

unsigned int CMarkup::GetCodePage() const {
    const std::basic_string_view<WCHAR> declaration(m_strXMLDeclaration.GetString());
    const auto name = quorvel::FindEncodingName(declaration, quorvel::kWideDeclarationMarks);
    UINT codePage = 0;
    AfxCharacterEncodingToCodePage(name ? CString(name->data(), static_cast<int>(name->size()))
                                        : CString(_T("utf-8")),
                                   codePage);
    return codePage;
}
