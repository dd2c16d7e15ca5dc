#include <quorvel/xml/xml_text.h>

#include "support/text.h"

#include <gtest/gtest.h>

TEST(XmlText, AddsAndStrips) {
    struct Row {
        const char* label;
        CString (*function)(const WCHAR*);
        const WCHAR* text;
        const WCHAR* result;
    };
    static const Row kRows[] = {
        {"references", AfxAddXMLEntityReferences, _T("&<>'\"a"), _T("&amp;&lt;&gt;&apos;&quot;a")},
        {"an ampersand is not doubled", AfxAddXMLEntityReferences, _T("&lt;"), _T("&amp;lt;")},
        {"null", AfxAddXMLEntityReferences, nullptr, _T("")},
        {"strip", AfxStripXMLEntityReferences, _T("&quot;&apos;&gt;&lt;&amp;"), _T("\"'><&")},
        {"stripped once", AfxStripXMLEntityReferences, _T("&amp;lt;"), _T("&lt;")},
        {"section", AfxAddCDATATags, _T("a]]>b]]"), _T("<![CDATA[a]]&gt;b]]]]>")},
        {"section of nothing", AfxAddCDATATags, _T(""), _T("<![CDATA[]]>")},
        {"null section", AfxAddCDATATags, nullptr, _T("")},
        {"first section only", AfxStripCDATATags, _T("x<![CDATA[a]]&gt;]]>y<![CDATA[b]]>"),
         _T("a]]&gt;")},
        {"section over lines", AfxStripCDATATags, _T("<![CDATA[a\r\nb]]>"), _T("a\r\nb")},
        {"no section", AfxStripCDATATags, _T("<![CDATA[a"), _T("<![CDATA[a")},
        {"auto references", AfxAutoAddXMLEntityReferences, _T("a'"), _T("a&apos;")},
        {"no need", AfxAutoAddXMLEntityReferences, _T("a;"), _T("a;")},
        {"auto section", AfxAutoAddCDATATags, _T("a&"), _T("<![CDATA[a&]]>")},
        {"no section needed", AfxAutoAddCDATATags, _T("a"), _T("a")},
        {"auto null", AfxAutoAddCDATATags, nullptr, _T("")},
    };
    for (const Row& row : kRows)
        EXPECT_EQ(row.function(row.text), row.result) << row.label;
}
