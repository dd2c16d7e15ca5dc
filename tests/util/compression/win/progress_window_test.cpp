// The progress box as the user sees it, observed while the library reads the source.
#include <quorvel/framework/app.h>
#include <quorvel/framework/wnd.h>
#include <quorvel/util/compression/compression.h>

#include "support/test.h"
#include "support/window_driver.h"
#include "util/compression/test_file.h"

TEST(ProgressWindow, LiesOverTheMainWindowForAsLongAsTheWorkLasts) {
    CWinApp app(_T("Test"));
    CWnd main;
    ASSERT_TRUE(main.CreateEx(0, _T("Static"), _T(""), WS_POPUP | WS_VISIBLE, 100, 100, 500, 400,
                              nullptr, nullptr));
    app.m_pMainWnd = &main;
    TestFile source(RandomBytes(4 * 32768)), destination; // four chunks
    HWND box = nullptr;
    CString texts;
    std::vector<LRESULT> positions;
    source.m_onRead = [&] {
        box = FindVisibleBox();
        texts = TextOf(box);
        EXPECT_EQ(::GetWindow(box, GW_OWNER), main.m_hWnd);
        EXPECT_TRUE(::IsWindowEnabled(main.m_hWnd)); // the box is modeless
        const HWND bar = ::FindWindowExW(box, nullptr, PROGRESS_CLASSW, nullptr);
        positions.push_back(::SendMessageW(bar, PBM_GETPOS, 0, 0));
        for (const HWND child : ChildrenOf(box))
            texts += _T(": ") + TextOf(child);
    };
    DWORD bytesRead, bytesWritten;
    EXPECT_TRUE(AfxDeflate(source, bytesRead, destination, bytesWritten, 1, TRUE, _T("Saving"),
                           _T("Half && half")));
    EXPECT_FALSE(::IsWindow(box));
    EXPECT_EQ(texts, _T("Saving: Half && half: "));
    EXPECT_EQ(positions, (std::vector<LRESULT>{0, 250, 500, 750, 1000}));
}
