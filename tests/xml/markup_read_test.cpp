#include "xml/markup_probe.h"

#include "support/test.h"

TEST(MarkupNavigation, FindsElementsByName) {
    CMarkup markup(_T("<r><item n='1'/><Item/><item n='2'/><other/></r>"));
    ASSERT_TRUE(markup.FindElem());
    EXPECT_FALSE(markup.FindElem()); // no sibling: the position stays
    EXPECT_EQ(markup.GetTagName(), _T("r"));
    ASSERT_TRUE(markup.IntoElem());
    EXPECT_EQ(markup.GetTagName(), _T(""));
    ASSERT_TRUE(markup.FindElem(_T("item")));
    ASSERT_TRUE(markup.FindElem(_T("item = whatever follows")));
    EXPECT_FALSE(markup.FindElem(_T("item")));
    EXPECT_EQ(markup.GetAttrib(_T("n")), _T("2"));
    ASSERT_TRUE(markup.OutOfElem());
    EXPECT_EQ(markup.GetChildTagName(), _T("item"));
    EXPECT_FALSE(markup.OutOfElem());
}

TEST(MarkupNavigation, MovesItsThreePositions) {
    MarkupProbe markup(_T("<r><a><b/></a><c/></r>")); // records: r 1, a 2, b 3, c 4
    typedef std::array<int, 4> Position;
    EXPECT_TRUE(markup.FindChildElem()); // the root becomes the main element by itself
    EXPECT_EQ(markup.Position(), (Position{0, 1, 2, 1}));
    EXPECT_TRUE(markup.IntoElem());
    EXPECT_EQ(markup.Position(), (Position{1, 2, 0, 1}));
    EXPECT_TRUE(markup.FindChildElem(_T("b")));
    EXPECT_EQ(markup.Position(), (Position{1, 2, 3, 1}));
    EXPECT_FALSE(markup.FindChildElem(_T("b")));
    EXPECT_EQ(markup.Position(), (Position{1, 2, 3, 1}));
    markup.ResetChildPos();
    EXPECT_EQ(markup.Position(), (Position{1, 2, 0, 1}));
    markup.ResetMainPos();
    EXPECT_EQ(markup.Position(), (Position{1, 0, 0, 0}));
    EXPECT_FALSE(markup.IntoElem());
    EXPECT_TRUE(markup.FindElem(_T("c")));
    EXPECT_TRUE(markup.IntoElem()); // IntoElem works without children
    EXPECT_EQ(markup.Position(), (Position{4, 0, 0, 0}));
    EXPECT_FALSE(markup.FindChildElem()); // the search does not move to the root
    EXPECT_EQ(markup.Position(), (Position{4, 0, 0, 0}));
    EXPECT_TRUE(markup.OutOfElem());
    EXPECT_EQ(markup.Position(), (Position{1, 4, 0, 1}));
    markup.ResetPos();
    EXPECT_EQ(markup.Position(), (Position{}));
}

TEST(MarkupReading, ReadsAttributes) {
    static constexpr std::tuple<const char*, const WCHAR*, const WCHAR*, const WCHAR*> kRows[] = {
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
    for (const auto& [label, tag, name, value] : kRows) {
        CMarkup markup(tag);
        EXPECT_EQ(markup.GetAttrib(name), _T("")) << label; // no position yet
        ASSERT_TRUE(markup.FindElem()) << label;
        EXPECT_EQ(markup.GetAttrib(name), value) << label;
    }
}

TEST(MarkupReading, ReadsContent) {
    static constexpr std::tuple<const char*, const WCHAR*, const WCHAR*> kRows[] = {
        {"numeric references stay", _T("<a>&#x41;</a>"), _T("&#x41;")},
        {"section", _T("<a>\n <![CDATA[<&amp;>]]> after</a>"), _T("<&amp;>")},
        {"text before the section", _T("<a>b<![CDATA[c]]></a>"), _T("b<![CDATA[c]]>")},
        {"comment", _T("<a><!--b--></a>"), _T("<!--b-->")},
        {"with children", _T("<a>b<c/></a>"), _T("")},
    };
    for (const auto& [label, element, data] : kRows) {
        CMarkup markup(CString(_T("<r>")) + element + _T("</r>"));
        ASSERT_TRUE(markup.FindChildElem()) << label;
        EXPECT_EQ(markup.GetChildData(), data) << label;
        EXPECT_EQ(markup.GetData(), _T("")) << label;
        markup.IntoElem();
        EXPECT_EQ(markup.GetData(), data) << label;
    }
}
