#include "xml/markup_probe.h"

#include <quorvel/framework/exceptions.h>
#include <quorvel/xml/edit_session.h>

#include "support/test.h"

TEST(MarkupEditing, BuildsADocument) {
    CMarkup markup;
    EXPECT_FALSE(markup.AddChildElem(_T("b")));
    EXPECT_FALSE(markup.AddAttrib(_T("b"), _T("c")));
    EXPECT_TRUE(markup.AddElem(_T("a"), _T("x&y")));
    EXPECT_EQ(markup.GetDoc(), _T("<a>x&amp;y</a>\r\n"));
    EXPECT_FALSE(markup.AddElem(_T("second")));
    EXPECT_FALSE(markup.AddElem(nullptr));

    CMarkup empty;
    empty.AddElem(_T("a"));
    EXPECT_TRUE(empty.AddChildElem(_T("b")));
    EXPECT_TRUE(empty.AddChildElem(_T("c"), _T("<'\">")));
    EXPECT_EQ(empty.GetDoc(), _T("<a>\r\n<b/>\r\n<c>&lt;'\"&gt;</c>\r\n</a>\r\n"));
    EXPECT_EQ(empty.GetChildTagName(), _T("c"));
    EXPECT_TRUE(empty.SetChildAttrib(_T("d"), _T("'\"")));
    EXPECT_TRUE(empty.SetAttrib(_T("e"), _T("23")));
    EXPECT_FALSE(empty.SetAttrib(_T("e"), nullptr));
    EXPECT_EQ(empty.GetDoc(), _T("<a e=\"23\">\r\n<b/>\r\n<c d=\"&apos;&quot;\">&lt;'\"&gt;</c>")
                              _T("\r\n</a>\r\n"));

    CMarkup failed(_T("<a"));
    EXPECT_TRUE(failed.AddElem(_T(""), 5)); // after the kept text, with any name
    EXPECT_EQ(failed.GetDoc(), _T("<a<>5</>\r\n"));
    EXPECT_EQ(failed.GetData(), _T("5"));
}

TEST(MarkupEditing, AddsWhereThePositionsSay) {
    struct Row {
        const char* label;
        const WCHAR* before;
        const WCHAR* after; // an element n was added to the root, after child `position`
        int position;
    };
    static constexpr Row kRows[] = {
        {"empty element", _T("<p/>"), _T("<p>\r\n<n/>\r\n</p>"), 0},
        {"last child", _T("<p><x/></p>"), _T("<p><x/><n/>\r\n</p>"), 0},
        {"after a child", _T("<p><x/> \n<y/></p>"), _T("<p><x/> \n<n/>\r\n<y/></p>"), 1},
        {"text is not stepped over", _T("<p><x/> t<y/></p>"), _T("<p><x/><n/>\r\n t<y/></p>"), 1},
    };
    for (const Row& row : kRows) {
        MarkupProbe markup(row.before);
        markup.FindElem();
        for (int i = 0; i < row.position; ++i)
            markup.FindChildElem();
        EXPECT_TRUE(markup.AddChildElem(_T("n"))) << row.label;
        EXPECT_EQ(markup.GetDoc(), row.after) << row.label;
        EXPECT_EQ(markup.Tree(), MarkupProbe(row.after).Tree()) << row.label;
        EXPECT_EQ(markup.GetChildTagName(), _T("n")) << row.label;
    }
}

template <class Value>
constexpr bool kIsWritten = requires(CMarkup markup, CMarkupEditSession session, Value value) {
    markup.AddElem(_T(""), value);
    session.SetChildAttrib(_T(""), value);
};
static_assert(kIsWritten<WCHAR*> && kIsWritten<CString> && kIsWritten<std::nullptr_t>);
static_assert(!kIsWritten<char*> && !kIsWritten<int*> && !kIsWritten<void (*)()>);

TEST(MarkupEditing, WritesTypedValues) {
    CMarkup markup(_T("<r/>"));
    markup.FindElem();
    const auto written = [&markup] { return markup.GetAttrib(_T("v")); };
#define EXPECT_WRITTEN(value, text)                                                                \
    EXPECT_TRUE(markup.SetAttrib(_T("v"), value));                                                 \
    EXPECT_EQ(written(), text)
    EXPECT_WRITTEN(true, _T("yes"));
    EXPECT_WRITTEN(false, _T("no"));
    EXPECT_WRITTEN('x', _T("x"));
    EXPECT_WRITTEN(static_cast<unsigned char>(200), _T("200"));
    EXPECT_WRITTEN(static_cast<__int64>(LLONG_MIN), _T("-9223372036854775808"));
    EXPECT_WRITTEN(ULLONG_MAX, _T("18446744073709551615"));
    EXPECT_WRITTEN(std::int64_t{5000000000}, _T("5000000000"));
    EXPECT_WRITTEN(std::numeric_limits<long>::max(),
                   sizeof(long) == 8 ? _T("9223372036854775807") : _T("2147483647"));
    EXPECT_WRITTEN(-1L, _T("-1"));
    EXPECT_WRITTEN(0.1f, _T("0.1"));
    EXPECT_WRITTEN(1e20, _T("1e+020"));
#undef EXPECT_WRITTEN
}

TEST(MarkupEditing, SectionsAreTakenAsTheyStand) {
    CMarkup markup;
    markup.AddElem(_T("a"), _T("<![CDATA[<&>]]>"));
    EXPECT_EQ(markup.GetDoc(), _T("<a><![CDATA[<&>]]></a>\r\n"));
    EXPECT_EQ(markup.GetData(), _T("<&>"));
}

TEST(MarkupEditing, ArgumentsMayPointIntoTheDocument) {
    CMarkup markup(_T("<name>value</name>"));
    markup.FindElem();
    for (int i = 0; i < 12; ++i) // the buffer grows several times
        ASSERT_TRUE(markup.SetAttrib(_T("copy"), markup.GetDocConstRef()));
    EXPECT_TRUE(MarkupProbe(markup.GetDoc()).IsWellFormed());
}

TEST(MarkupEditing, RefusesAValueThatTheTagWasCutIn) {
    CMarkup markup(_T("<a b='1>2'></a>"));
    markup.FindElem();
    EXPECT_FALSE(markup.SetAttrib(_T("b"), _T("")));
    EXPECT_EQ(markup.GetDoc(), _T("<a b='1>2'></a>"));
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
    constexpr int kItems = 50'000;
    MarkupProbe markup;
    markup.AddElem(_T("list"));
    for (int i = 0; i < kItems; ++i) {
        markup.ResetPos();
        markup.FindElem();
        markup.AddChildElem(_T("item"));
        markup.IntoElem();
        markup.AddChildElem(_T("inner"), i);
    }
    EXPECT_TRUE(markup.Tree() == MarkupProbe(markup.GetDoc()).Tree());
    EXPECT_EQ(markup.GetChildData(), _T("49999"));
}
