#include "xml/session_script.h"

#include "support/test.h"

#include <random>

namespace {

CString NumberText(int number) {
    CString text;
    text.Format(_T("%d"), number);
    return text;
}

} // namespace

TEST(EditSession, GivesWhatDirectCallsGive) {
    std::mt19937 random(20261);
    std::vector<std::uint8_t> script;
    for (int round = 0; round < 1500; ++round) {
        script.resize(2 + random() % 80);
        for (std::uint8_t& part : script)
            part = static_cast<std::uint8_t>(random());
        ASSERT_STREQ(SessionScript::Run(script), "") << "round " << round;
    }
}

TEST(EditSession, RefusesWhatLiesBeforeTheLastEdit) {
    // Each edit follows an edit of the element y.
    static const std::tuple<const char*, std::function<bool(CMarkupEditSession&)>, bool,
                            const WCHAR*>
        kRows[] = {
            {"a sibling directly before it",
             [](auto& s) {
                 s.ResetChildPos();
                 return s.FindChildElem(_T("x")) && s.AddChildElem(_T("c"));
             },
             true, _T("<p><x/><c/>\r\n<y n=\"1\"></y><z/></p>")},
            {"an attribute of its parent", [](auto& s) { return s.SetAttrib(_T("n"), _T("2")); },
             false, _T("<p><x/><y n=\"1\"></y><z/></p>")},
        };
    for (const auto& [label, edit, accepted, after] : kRows) {
        MarkupProbe markup(_T("<p><x/><y></y><z/></p>"));
        CMarkupEditSession session(markup);
        ASSERT_TRUE(session.FindChildElem(_T("y")) && session.SetChildAttrib(_T("n"), _T("1")));
        EXPECT_EQ(edit(session), accepted) << label;
        EXPECT_TRUE(session.Commit()) << label;
        EXPECT_EQ(markup.GetDoc(), after) << label;
        EXPECT_EQ(markup.Tree(), MarkupProbe(after).Tree()) << label;
    }
}

// Much more than a session's initial memory, in depth and in breadth.
TEST(EditSession, BuildsALargeDocument) {
    CMarkup direct;
    CMarkup built;
    CMarkupEditSession session(built);
    const auto build = [](auto& markup) {
        markup.AddElem(_T("root"));
        markup.IntoElem();
        for (int i = 0; i < 2000; ++i) {
            markup.AddElem(_T("item"));
            markup.SetAttrib(_T("number"), NumberText(i));
            if (i % 3 == 0)
                markup.AddChildElem(_T("text"), _T("a & b"));
            if (i % 100 == 0)
                markup.IntoElem();
        }
    };
    build(direct);
    build(session);
    EXPECT_TRUE(session.Commit());
    EXPECT_EQ(built.GetDoc(), direct.GetDoc());
    EXPECT_GT(built.GetDoc().GetLength(), 50000);
}

TEST(EditSession, ChangesNothingWithoutCommit) {
    CMarkup markup(_T("<a><b/></a>"));
    {
        CMarkupEditSession session(markup);
        EXPECT_TRUE(session.FindElem() && session.SetAttrib(_T("n"), _T("1")));
        EXPECT_EQ(session.GetAttrib(_T("n")), _T("1"));
    }
    EXPECT_EQ(markup.GetDoc(), _T("<a><b/></a>"));

    CMarkupEditSession session(markup);
    EXPECT_TRUE(session.FindElem() && session.SetAttrib(_T("n"), _T("1")));
    EXPECT_TRUE(markup.FindElem() && markup.SetAttrib(_T("direct"), _T("1")));
    EXPECT_FALSE(session.Commit());
    EXPECT_EQ(markup.GetDoc(), _T("<a direct=\"1\"><b/></a>"));
}
