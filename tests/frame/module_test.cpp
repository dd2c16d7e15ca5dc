// Start-up and its failure, the link hook, and internal users of both.
#include <quorvel/frame/module.h>

#include "frame/external_link.h"
#include "frame/html_help.h"
#include "frame/module_entry.h"
#include "support/message_box_recorder.h"
#include "support/test.h"

namespace {

using namespace quorvel;

TEST(Module, AFailedStartLeavesNoResourceHandle) {
    const HINSTANCE instance = QuorvelGetInstanceHandle();
    DetachModule();
    EXPECT_FALSE(AttachModule(nullptr));
    EXPECT_EQ(QuorvelGetResourceHandle(), nullptr);
    EXPECT_FALSE(QuorvelSetResourceHandle(instance));
    DetachModule(); // after a failure this does nothing

    EXPECT_TRUE(AttachModule(instance));
    EXPECT_EQ(QuorvelGetResourceHandle(), instance);
    EXPECT_TRUE(QuorvelSetResourceHandle(instance));
}

TEST(Module, TheHookDecidesAboutLinks) {
    EXPECT_FALSE(MayOpenExternalLink(nullptr));
    EXPECT_TRUE(MayOpenExternalLink(_T("http://good")));
    QuorvelSetOpenExternalLinkCallback([](const WCHAR*) -> int { return 7; });
    EXPECT_EQ(MayOpenExternalLink(_T("http://good")), 7);
    QuorvelSetOpenExternalLinkCallback(nullptr);
}

TEST(HtmlHelp, AFailureWithADescriptionIsShown) {
    static HtmlHelpError s_error;
    MessageBoxRecorder recorder;
    const auto show = [](LONG code) {
        s_error = {code, _T("The file %1 is damaged.")};
        const auto answer = [](HtmlHelpError& error) -> BOOL { return error = s_error, TRUE; };
        return ShowHtmlHelpError(answer, MB_ICONSTOP);
    };
    EXPECT_FALSE(show(0)) << "a success";
    EXPECT_TRUE(show(static_cast<LONG>(0x80004005)));
    const RecordedMessageBox shown = {
        _T("An html help error has occurred.\r\n\r\nThe file %1 is damaged."), MB_ICONSTOP, 0};
    EXPECT_EQ(recorder.Take(), std::vector{shown});
}

} // namespace
