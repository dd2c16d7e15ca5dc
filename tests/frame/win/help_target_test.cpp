// The target that the Help button of a box opens; the viewers are recorded.
#include <quorvel/frame/module.h>
#include <quorvel/frame/vask_message_box.h>

#include "frame/win/help_target.h"
#include "support/test.h"
#include "support/win/dialog_driver.h"

namespace {

CString g_opened;

TEST(HelpTarget, OpensOnceForTheButtonAndOnceForTheKey) {
    const quorvel::HelpViewers former = std::exchange(
        quorvel::CurrentHelpViewers(),
        {[](HWND, const WCHAR* address) { g_opened += CString(_T("link ")) + address; },
         [](const WCHAR* path) { g_opened += CString(_T("topic ")) + path; }});
    const WCHAR* const address = _T("http://example.com/help");
    const WCHAR* const topic = _T("guide.chm::/start.htm");
    const auto refuse = [](const WCHAR*) -> int { return FALSE; };
    const auto press = [](HWND box) { Click(box, IDHELP); };
    const auto key = [](HWND box) {
        HELPINFO info = {};
        info.cbSize = sizeof info;
        ::SendMessageW(box, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
    };
    const std::tuple<const char*, const WCHAR*, int (*)(const WCHAR*), void (*)(HWND box), CString>
        rows[] = {
            {"address, button", address, nullptr, press, CString(_T("link ")) + address},
            {"topic, key", topic, nullptr, key, CString(_T("topic ")) + topic},
            {"the host refuses the link", address, refuse, press, CString()},
            {"no target", nullptr, nullptr, press, CString()},
        };
    for (const auto& [label, target, hook, ask, opened] : rows) {
        SCOPED_TRACE(label);
        g_opened.Empty();
        QuorvelSetOpenExternalLinkCallback(hook);
        const DialogDriver driver({[&](HWND box) {
            ask(box);
            EXPECT_TRUE(::IsWindow(box)) << "stays open";
            Click(box, IDOK);
        }});
        EXPECT_EQ(AfxVaskMessageBox(_T("Text."), MB_OK | MB_HELP, target), IDOK);
        EXPECT_EQ(g_opened, opened);
    }
    quorvel::CurrentHelpViewers() = former;
    QuorvelSetOpenExternalLinkCallback(nullptr);
}

} // namespace
