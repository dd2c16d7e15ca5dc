// Start-up and its failure, the link hook, and what needs them from inside.
#include <quorvel/frame/module.h>

#include "frame/html_help.h"
#include "frame/module.h"
#include "support/message_box_recorder.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using namespace quorvel;

TEST(Module, AFailedStartLeavesNoResourceHandle) {
    const HINSTANCE instance = QuorvelGetInstanceHandle();
    ASSERT_NE(instance, nullptr);
    EXPECT_EQ(QuorvelGetResourceHandle(), instance);

    DetachModule();
    EXPECT_FALSE(AttachModule(nullptr));
    EXPECT_EQ(QuorvelGetResourceHandle(), nullptr);
    EXPECT_FALSE(QuorvelSetResourceHandle(instance));
    EXPECT_EQ(QuorvelGetResourceHandle(), nullptr);
    DetachModule(); // after a failure there is nothing to end

    EXPECT_TRUE(AttachModule(instance));
    EXPECT_EQ(QuorvelGetResourceHandle(), instance);
    EXPECT_TRUE(QuorvelSetResourceHandle(instance));
}

int RefuseAll(const WCHAR*) {
    return FALSE;
}
int AnswerByLink(const WCHAR* link) {
    return std::basic_string_view<WCHAR>(link) == _T("http://good") ? 7 : FALSE;
}

TEST(Module, TheHookDecidesAboutLinks) {
    const struct {
        int (*hook)(const WCHAR*);
        const WCHAR* link;
        int answer;
    } rows[] = {
        {nullptr, _T("http://good"), TRUE},
        {nullptr, _T(""), TRUE},
        {nullptr, nullptr, FALSE},
        {RefuseAll, _T("http://good"), FALSE},
        {AnswerByLink, _T("http://good"), 7},
        {AnswerByLink, _T("http://bad"), FALSE},
        {AnswerByLink, nullptr, FALSE},
    };
    EXPECT_EQ(QuorvelGetOpenExternalLinkCallback(), nullptr);
    for (const auto& row : rows) {
        QuorvelSetOpenExternalLinkCallback(row.hook);
        EXPECT_EQ(QuorvelGetOpenExternalLinkCallback(), row.hook);
        EXPECT_EQ(MayOpenExternalLink(row.link), row.answer);
    }
    QuorvelSetOpenExternalLinkCallback(nullptr);
}

TEST(HtmlHelp, AFailureWithADescriptionIsShown) {
    MessageBoxRecorder recorder;
    EXPECT_TRUE(ShowHtmlHelpError(
        [](HtmlHelpError& error) {
            error.code = static_cast<LONG>(0x80004005);
            error.description = _T("The file %1 is damaged.");
            return TRUE;
        },
        MB_ICONSTOP));
    EXPECT_EQ(recorder.Take(),
              (std::vector<RecordedMessageBox>{
                  {_T("An html help error has occurred.\r\n\r\nThe file %1 is damaged."),
                   MB_ICONSTOP, 0}}));
    BOOL(*const quiet[])
    (HtmlHelpError&) = {
        [](HtmlHelpError& error) {
            error = {-1, _T("a query that fails")};
            return FALSE;
        },
        [](HtmlHelpError& error) {
            error = {0, _T("a success")};
            return TRUE;
        },
        [](HtmlHelpError& error) {
            error = {-1, CString()};
            return TRUE;
        },
    };
    for (const auto query : quiet)
        EXPECT_FALSE(ShowHtmlHelpError(query, MB_OK));
    EXPECT_TRUE(recorder.Take().empty());
}

} // namespace
