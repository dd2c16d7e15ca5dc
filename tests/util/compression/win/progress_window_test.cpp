// The progress box as the user sees it, observed while the library reads the source.
#include <quorvel/framework/app.h>
#include <quorvel/framework/wnd.h>
#include <quorvel/util/compression/compression.h>

#include "support/test.h"
#include "support/window_driver.h"
#include "util/compression/test_file.h"

namespace {

struct Seen {
    HWND window = nullptr;
    CString caption;
    CString status;
    HWND owner = nullptr;
    bool enabledOwner = false;
    std::vector<LRESULT> positions;
};

void Look(Seen& seen) {
    seen.window = FindVisibleBox();
    if (seen.window == nullptr)
        return;
    seen.caption = TextOf(seen.window);
    seen.owner = ::GetWindow(seen.window, GW_OWNER);
    seen.enabledOwner = seen.owner != nullptr && ::IsWindowEnabled(seen.owner);
    for (const HWND child : ChildrenOf(seen.window)) {
        WCHAR className[32];
        ::GetClassNameW(child, className, 32);
        if (CString(className) == PROGRESS_CLASSW)
            seen.positions.push_back(::SendMessageW(child, PBM_GETPOS, 0, 0));
        else
            seen.status = TextOf(child);
    }
}

// The state at each read of four chunks of 32768 bytes, and at the end.
Seen SeenWhileDeflating(const WCHAR* caption, const WCHAR* status) {
    Seen seen;
    TestFile source(RandomBytes(4 * 32768));
    TestFile destination;
    source.m_onRead = [&] { Look(seen); };
    DWORD bytesRead;
    DWORD bytesWritten;
    EXPECT_TRUE(AfxDeflate(source, bytesRead, destination, bytesWritten, 1, TRUE, caption, status));
    EXPECT_FALSE(::IsWindow(seen.window));
    return seen;
}

} // namespace

TEST(ProgressWindow, LiesOverTheMainWindowForAsLongAsTheWorkLasts) {
    CWinApp app(_T("Test"));
    CWnd main;
    ASSERT_TRUE(main.CreateEx(0, _T("Static"), _T(""), WS_POPUP | WS_VISIBLE, 100, 100, 500, 400,
                              nullptr, nullptr));
    app.m_pMainWnd = &main;
    const Seen seen = SeenWhileDeflating(_T("Saving"), _T("Half && half"));
    EXPECT_EQ(seen.caption, _T("Saving"));
    EXPECT_EQ(seen.status, _T("Half && half"));
    EXPECT_EQ(seen.owner, main.m_hWnd);
    EXPECT_TRUE(seen.enabledOwner); // the box is modeless
    EXPECT_EQ(seen.positions, (std::vector<LRESULT>{0, 250, 500, 750, 1000}));
}
