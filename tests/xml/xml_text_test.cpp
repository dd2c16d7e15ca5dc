#include <quorvel/xml/xml_text.h>

#include "support/test.h"

TEST(XmlText, AddsAndStrips) {
    const std::tuple<const char*, CString (*)(const WCHAR*), const WCHAR*, const WCHAR*> rows[] = {
        {"references", AfxAddXMLEntityReferences, _T("&<>'\"a"), _T("&amp;&lt;&gt;&apos;&quot;a")},
        {"null", AfxAddXMLEntityReferences, nullptr, _T("")},
        {"stripped once", AfxStripXMLEntityReferences, _T("&amp;lt;"), _T("&lt;")},
        {"section", AfxAddCDATATags, _T("a]]>b]]"), _T("<![CDATA[a]]&gt;b]]]]>")},
        {"first section only", AfxStripCDATATags, _T("x<![CDATA[a]]&gt;]]>y<![CDATA[b]]>"),
         _T("a]]&gt;")},
        {"no section", AfxStripCDATATags, _T("<![CDATA[a"), _T("<![CDATA[a")},
        {"auto references", AfxAutoAddXMLEntityReferences, _T("a'"), _T("a&apos;")},
        {"auto section", AfxAutoAddCDATATags, _T("a&"), _T("<![CDATA[a&]]>")},
    };
    for (const auto& [label, function, text, result] : rows)
        EXPECT_EQ(function(text), result) << label;
}
