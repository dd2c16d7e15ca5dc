#include <quorvel/xml/xml_text.h>

namespace {

struct Entity {
    const WCHAR* character;
    const WCHAR* reference;
};

// Escaped in this order and unescaped in the reverse order, so that no ampersand is handled twice.
constexpr Entity kEntities[] = {
    {_T("&"), _T("&amp;")},  {_T("<"), _T("&lt;")},    {_T(">"), _T("&gt;")},
    {_T("'"), _T("&apos;")}, {_T("\""), _T("&quot;")},
};
constexpr int kEntityCount = static_cast<int>(sizeof kEntities / sizeof *kEntities);

constexpr WCHAR kSectionBegin[] = _T("<![CDATA[");
constexpr WCHAR kSectionEnd[] = _T("]]>");
constexpr int kSectionBeginLength = 9;

} // namespace

BOOL AfxDoesTextContainXMLEscapeCharacters(const WCHAR* text) {
    return CString(text).FindOneOf(_T("&<>'\"")) >= 0;
}

CString AfxAddXMLEntityReferences(const WCHAR* text) {
    CString result(text);
    for (const Entity& entity : kEntities)
        result.Replace(entity.character, entity.reference);
    return result;
}

CString AfxStripXMLEntityReferences(const WCHAR* text) {
    CString result(text);
    for (int i = kEntityCount - 1; i >= 0; --i)
        result.Replace(kEntities[i].reference, kEntities[i].character);
    return result;
}

CString AfxAddCDATATags(const WCHAR* text) {
    if (text == nullptr)
        return CString();
    CString content(text);
    content.Replace(kSectionEnd, _T("]]&gt;"));
    return kSectionBegin + content + kSectionEnd;
}

CString AfxStripCDATATags(const WCHAR* text) {
    const CString whole(text);
    const int begin = whole.Find(kSectionBegin);
    const int end = begin < 0 ? -1 : whole.Find(kSectionEnd, begin + kSectionBeginLength);
    if (end < 0)
        return whole;
    return whole.Mid(begin + kSectionBeginLength, end - begin - kSectionBeginLength);
}

CString AfxAutoAddXMLEntityReferences(const WCHAR* text) {
    return AfxDoesTextContainXMLEscapeCharacters(text) ? AfxAddXMLEntityReferences(text)
                                                       : CString(text);
}

CString AfxAutoAddCDATATags(const WCHAR* text) {
    return AfxDoesTextContainXMLEscapeCharacters(text) ? AfxAddCDATATags(text) : CString(text);
}
