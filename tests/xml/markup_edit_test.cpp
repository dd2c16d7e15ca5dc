#include "xml/markup_probe.h"

#include <quorvel/framework/exceptions.h>

#include "support/test.h"

TEST(MarkupEditing, BuildsADocument) {
    CMarkup markup;
    EXPECT_FALSE(markup.AddChildElem(_T("b")) || markup.AddAttrib(_T("b"), _T("c")));
    EXPECT_TRUE(markup.AddElem(_T("a"), _T("x&y")));
    EXPECT_EQ(markup.GetDoc(), _T("<a>x&amp;y</a>\r\n"));
    EXPECT_FALSE(markup.AddElem(_T("second")) || markup.AddElem(nullptr));

    CMarkup empty;
    empty.AddElem(_T("a"));
    EXPECT_TRUE(empty.AddChildElem(_T("b")));
    EXPECT_TRUE(empty.AddChildElem(_T("c"), _T("<'\">")));
    EXPECT_TRUE(empty.SetChildAttrib(_T("d"), _T("'\"")) && empty.SetAttrib(_T("e"), _T("23")));
    EXPECT_FALSE(empty.SetAttrib(_T("e"), nullptr));
    EXPECT_EQ(empty.GetDoc(), _T("<a e=\"23\">\r\n<b/>\r\n<c d=\"&apos;&quot;\">&lt;'\"&gt;</c>")
                              _T("\r\n</a>\r\n"));

    CMarkup section;
    section.AddElem(_T("a"), _T("<![CDATA[<&>]]>"));
    EXPECT_EQ(section.GetDoc(), _T("<a><![CDATA[<&>]]></a>\r\n"));

    CMarkup failed(_T("<a"));
    EXPECT_TRUE(failed.AddElem(_T(""), 5)); // after the kept text, with any name
    EXPECT_EQ(failed.GetDoc(), _T("<a<>5</>\r\n"));
    EXPECT_EQ(failed.GetData(), _T("5"));

    CMarkup cut(_T("<a b='1>2'></a>")); // the tag ends inside the value
    EXPECT_TRUE(cut.FindElem() && !cut.SetAttrib(_T("b"), _T("")));
}

TEST(MarkupEditing, AddsWhereThePositionsSay) {
    // A text, the child that is found first, and the text with an element n in the root.
    const std::tuple<const WCHAR*, int, const WCHAR*> rows[] = {
        {_T("<p/>"), 0, _T("<p>\r\n<n/>\r\n</p>")},
        {_T("<p><x/></p>"), 0, _T("<p><x/><n/>\r\n</p>")},
        {_T("<p><x/> \n<y/></p>"), 1, _T("<p><x/> \n<n/>\r\n<y/></p>")},
        {_T("<p><x/> t<y/></p>"), 1, _T("<p><x/><n/>\r\n t<y/></p>")}, // not stepped over
    };
    for (const auto& [before, position, after] : rows) {
        MarkupProbe markup(before);
        markup.FindElem();
        for (int i = 0; i < position; ++i)
            markup.FindChildElem();
        EXPECT_TRUE(markup.AddChildElem(_T("n")));
        EXPECT_EQ(markup.GetDoc(), after);
        EXPECT_EQ(markup.Tree(), MarkupProbe(after).Tree())
            << testing::PrintToString(CString(after));
        EXPECT_EQ(markup.GetChildTagName(), _T("n"));
    }
}

TEST(MarkupEditing, WritesTypedValues) {
    CMarkup markup(_T("<r/>"));
    markup.FindElem();
    const auto written = [&markup](auto value) {
        EXPECT_TRUE(markup.SetAttrib(_T("v"), value));
        return markup.GetAttrib(_T("v"));
    };
    ExpectCases<CString>({
        CASE(written(true), _T("yes")),
        CASE(written('x'), _T("x")),
        CASE(written(static_cast<unsigned char>(200)), _T("200")),
        CASE(written(static_cast<__int64>(LLONG_MIN)), _T("-9223372036854775808")),
        CASE(written(ULLONG_MAX), _T("18446744073709551615")),
        CASE(written(std::int64_t{5000000000}), _T("5000000000")),
        CASE(written(LONG_MAX), LONG_MAX > INT_MAX ? _T("9223372036854775807") : _T("2147483647")),
        CASE(written(0.1f), _T("0.1")),
        CASE(written(1e20), _T("1e+020")),
    });
}

TEST(MarkupEditing, ArgumentsMayPointIntoTheDocument) {
    CMarkup markup(_T("<name>value</name>"));
    markup.FindElem();
    for (int i = 0; i < 12; ++i) // the buffer grows several times
        ASSERT_TRUE(markup.SetAttrib(_T("copy"), markup.GetDocConstRef()));
    EXPECT_TRUE(MarkupProbe(markup.GetDoc()).IsWellFormed());
}

TEST(MarkupEditing, RefusesWhatPositionsDoNotReach) {
    MarkupProbe markup(_T("<a/>"));
    EXPECT_THROW(markup.x_Adjust(markup.IndexSize(), 1, false), CInvalidArgException*);
    constexpr int kMoreThanHalf = 1'200'000'000;
    try {
        CString half;
        half.GetBufferSetLength(kMoreThanHalf); // if there is enough memory; it is not touched
        markup.GetDocRef().GetBufferSetLength(kMoreThanHalf);
        markup.x_DocChange(0, 0, half);
        ADD_FAILURE() << "a text of " << markup.GetDoc().GetLength();
    } catch (CMemoryException* exception) {
        exception->Delete();
    }
}

// In linear time, while children are also added to earlier children.
TEST(MarkupEditing, AppendsToALongListWithoutAChildPosition) {
    MarkupProbe markup;
    markup.AddElem(_T("list"));
    for (int i = 0; i < 50'000; ++i) {
        markup.ResetPos();
        markup.FindElem();
        markup.AddChildElem(_T("item"));
        markup.IntoElem();
        markup.AddChildElem(_T("inner"), i);
    }
    EXPECT_TRUE(markup.Tree() == MarkupProbe(markup.GetDoc()).Tree());
    EXPECT_EQ(markup.GetChildData(), _T("49999"));
}
