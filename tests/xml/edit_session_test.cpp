#include "xml/session_script.h"

#include "support/test.h"

#include <random>

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

// Much more than a session's initial memory, in depth and in breadth.
TEST(EditSession, BuildsALargeDocument) {
    CMarkup direct;
    CMarkup built;
    CMarkupEditSession session(built);
    const auto build = [](auto& markup) {
        for (int i = 0; i < 2000; ++i) {
            markup.AddElem(_T("item"), i);
            markup.SetAttrib(_T("number"), i);
            if (i % 100 == 0)
                markup.IntoElem();
        }
    };
    build(direct);
    build(session);
    EXPECT_TRUE(session.Commit());
    EXPECT_EQ(built.GetDoc(), direct.GetDoc());
}

TEST(EditSession, CannotCommitAfterADirectEdit) {
    CMarkup markup(_T("<a><b/></a>"));
    CMarkupEditSession session(markup);
    EXPECT_TRUE(session.FindElem() && session.SetAttrib(_T("n"), _T("1")));
    EXPECT_TRUE(markup.FindElem() && markup.SetAttrib(_T("direct"), _T("1")));
    EXPECT_FALSE(session.Commit());
    EXPECT_EQ(markup.GetDoc(), _T("<a direct=\"1\"><b/></a>"));
}
