#include "xml/markup_probe.h"

#include "support/test.h"

TEST(MarkupNavigation, MovesItsThreePositions) {
    MarkupProbe markup(_T("<r><a><b/></a><c/></r>")); // records: r 1, a 2, b 3, c 4
    const std::tuple<bool, std::function<bool()>, std::array<int, 4>> steps[] = {
        {true,
         [&] { return markup.FindChildElem(); },
         {0, 1, 2, 1}}, // the root becomes the main one
        {true, [&] { return markup.IntoElem(); }, {1, 2, 0, 1}},
        {true, [&] { return markup.FindChildElem(_T("b = what follows")); }, {1, 2, 3, 1}},
        {false, [&] { return markup.FindChildElem(_T("b")); }, {1, 2, 3, 1}},
        {true, [&] { return markup.ResetChildPos(), true; }, {1, 2, 0, 1}},
        {true, [&] { return markup.ResetMainPos(), true; }, {1, 0, 0, 0}},
        {false, [&] { return markup.IntoElem(); }, {1, 0, 0, 0}},
        {false, [&] { return markup.FindElem(_T("C")); }, {1, 0, 0, 0}},
        {true, [&] { return markup.FindElem(_T("c")); }, {1, 4, 0, 1}},
        {false, [&] { return markup.FindElem(); }, {1, 4, 0, 1}},
        {true, [&] { return markup.IntoElem(); }, {4, 0, 0, 0}},       // also without children
        {false, [&] { return markup.FindChildElem(); }, {4, 0, 0, 0}}, // does not move to the root
        {true, [&] { return markup.OutOfElem(); }, {1, 4, 0, 1}},
        {true, [&] { return markup.OutOfElem(); }, {0, 1, 4, 1}},
        {false, [&] { return markup.OutOfElem(); }, {0, 1, 4, 1}},
        {true, [&] { return markup.ResetPos(), true; }, {}},
    };
    for (const auto& [result, step, position] : steps) {
        EXPECT_EQ(step(), result) << testing::PrintToString(position);
        EXPECT_EQ(markup.Position(), position);
    }
}

TEST(MarkupReading, ReadsAttributes) {
    const std::tuple<const char*, const WCHAR*, const WCHAR*, const WCHAR*> rows[] = {
        {"single quotes", _T("<a b='c\"d'/>"), _T("b"), _T("c\"d")},
        {"longer name in the tag", _T("<a bc='d'/>"), _T("b"), _T("")},
        {"a name that goes on", _T("<a b='c'/>"), _T("b[1]"), _T("c")},
        {"name without a value", _T("<a b c='d'/>"), _T("b"), _T("")},
        {"entities", _T("<a b='&lt;&amp;&gt;&apos;&quot;&#65;&x;&'/>"), _T("b"),
         _T("<&>'\"&#65;&x;&")},
        {"the tag's own name is no attribute", _T("<a a='1'/>"), _T("a"), _T("1")},
        {"an empty name gives the first attribute's", _T("<a b='c'/>"), _T(""), _T("b")},
        {"a null name gives nothing", _T("<a b='c'/>"), nullptr, _T("")},
    };
    for (const auto& [label, tag, name, value] : rows) {
        CMarkup markup(tag);
        EXPECT_EQ(markup.GetAttrib(name), _T("")) << label; // no position yet
        ASSERT_TRUE(markup.FindElem()) << label;
        EXPECT_EQ(markup.GetAttrib(name), value) << label;
    }
}

TEST(MarkupReading, ReadsContent) {
    const std::tuple<const char*, const WCHAR*, const WCHAR*> rows[] = {
        {"numeric references stay", _T("<a>&#x41;</a>"), _T("&#x41;")},
        {"section", _T("<a>\n <![CDATA[<&amp;>]]> after</a>"), _T("<&amp;>")},
        {"text before the section", _T("<a>b<![CDATA[c]]></a>"), _T("b<![CDATA[c]]>")},
        {"with children", _T("<a>b<c/></a>"), _T("")},
    };
    for (const auto& [label, element, data] : rows) {
        CMarkup markup(CString(_T("<r>")) + element + _T("</r>"));
        ASSERT_TRUE(markup.FindChildElem()) << label;
        EXPECT_EQ(markup.GetChildData(), data) << label;
        EXPECT_EQ(markup.GetData(), _T("")) << label;
        markup.IntoElem();
        EXPECT_EQ(markup.GetData(), data) << label;
    }
}
