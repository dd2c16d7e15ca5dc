// Long work that a window waits for, the layout of a window that is sized, and its menu of files.
#include <quorvel/controls/win/dialog_layout.h>
#include <quorvel/controls/win/lengthy_work.h>
#include <quorvel/controls/win/recent_files_menu.h>
#include <quorvel/framework/exceptions.h>

#include "support/test.h"
#include "support/window_driver.h"

#include <commctrl.h>

#include <atomic>
#include <stdexcept>

namespace {

constexpr int kCancel = 1, kBar = 2, kField = 3, kOther = 4;

class Window : public CWnd {
public:
    Window() {
        CreateEx(0, _T("Static"), nullptr, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300,
                 nullptr, nullptr);
        Add(_T("Button"), kCancel, 0, {10, 200, 90, 220});
        Add(PROGRESS_CLASSW, kBar, PBS_MARQUEE, {100, 200, 200, 220});
        Add(_T("Edit"), kField, WS_VISIBLE, {10, 10, 90, 30});
        ::SetFocus(Get(kField));
    }
    HWND Get(int id) const { return ::GetDlgItem(m_hWnd, id); }
    void Add(const WCHAR* kind, int id, DWORD style, const CRect& rect) {
        ::CreateWindowExW(0, kind, nullptr, WS_CHILD | style, rect.left, rect.top, rect.Width(),
                          rect.Height(), m_hWnd, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                          nullptr, nullptr);
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_COMMAND && LOWORD(wParam) == kCancel && m_work != nullptr)
            m_work->Cancel();
        m_hasSeenEnd = m_hasSeenEnd || message == WM_APP;
        return CWnd::WindowProc(message, wParam, lParam);
    }

public:
    CLengthyWork* m_work = nullptr;
    std::atomic<bool> m_hasSeenEnd{false}; // what was posted before WM_APP is handled
};

void Await(const std::function<bool()>& isSo) {
    for (int i = 0; i < 20000 && !isSo(); ++i)
        ::Sleep(1);
}

TEST(LengthyWork, ShowsTheBarAndTheButtonWhileItRuns) {
    Window window;
    CLengthyWork work(window, kCancel, kBar);
    const HWND button = window.Get(kCancel), bar = window.Get(kBar);
    static std::atomic<bool> s_isShown;
    s_isShown = false;
    // A timer of the window's thread looks at it while the work waits.
    static std::function<bool()> s_look;
    s_look = [&] {
        return ::IsWindowVisible(button) && ::IsWindowVisible(bar) && ::GetFocus() == button &&
               ::SendMessageW(bar, PBM_GETPOS, 0, 0) == 42;
    };
    const UINT_PTR timer =
        ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM,
                   [](HWND, UINT, UINT_PTR, DWORD) CALLBACK { s_isShown = s_isShown || s_look(); });
    EXPECT_TRUE(work.Run([&] {
        work.SetProgress(42);
        Await([] { return s_isShown.load(); });
    }));
    ::KillTimer(nullptr, timer);
    EXPECT_TRUE(s_isShown);
    EXPECT_FALSE(::IsWindowVisible(button) || ::IsWindowVisible(bar));
    EXPECT_EQ(::GetFocus(), window.Get(kField));
}

TEST(LengthyWork, IsCancelledByKeysAndItsButtonAndByNothingElse) {
    Window window;
    const auto isCancelledBy = [&](HWND target, UINT message, WPARAM wParam) {
        CLengthyWork work(window, kCancel, kBar);
        window.m_work = &work;
        window.m_hasSeenEnd = false;
        return !work.Run([&] {
            ::PostMessageW(target, message, wParam, 1);
            ::PostMessageW(window.m_hWnd, WM_APP, 0, 0);
            Await([&] { return window.m_hasSeenEnd || work.IsCancelled(); });
            work.PumpMessages();
        });
    };
    const HWND field = window.Get(kField);
    ExpectCases<bool>({
        CASE(isCancelledBy(field, WM_KEYDOWN, VK_ESCAPE), true),
        CASE(isCancelledBy(window.Get(kCancel), WM_KEYDOWN, VK_RETURN), true),
        CASE(isCancelledBy(window.m_hWnd, WM_SYSKEYDOWN, VK_F4), true),
        CASE(isCancelledBy(window.m_hWnd, WM_COMMAND, kCancel), true),
        CASE(isCancelledBy(field, WM_CHAR, 'a'), false),
        CASE(isCancelledBy(window.m_hWnd, WM_NCLBUTTONDOWN, HTMENU), false),
    });
    EXPECT_EQ(TextOf(field), _T(""));
    window.m_work = nullptr;
}

TEST(LengthyWork, PassesExceptionsAndTheEndOfTheProgramOn) {
    Window window;
    CLengthyWork work(window, 0, 99);
    EXPECT_THROW(work.Run([] { throw std::runtime_error("work"); }), std::runtime_error);
    EXPECT_THROW(work.Run([] { AfxThrowMemoryException(); }), CMemoryException*);
    const DWORD thread = ::GetCurrentThreadId();
    EXPECT_TRUE(work.Run([&] {
        ::PostThreadMessageW(thread, WM_QUIT, 0, 0);
        Await([&] { return work.IsCancelled() != FALSE; });
    }));
    MSG message = {};
    EXPECT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST(DialogLayout, MovesEdgesByTheirShareOfTheGrowth) {
    Window window;
    window.Add(_T("Edit"), kOther, WS_VISIBLE, {100, 10, 200, 100});
    CDialogLayout layout;
    layout.OnSize(SIZE_RESTORED); // nothing yet
    CWnd none;
    EXPECT_FALSE(layout.Attach(none, {}));
    EXPECT_TRUE(layout.Attach(window, {{kField, 0, 0, 100, 0},
                                       {99, 0, 0, 100, 100},
                                       {kOther, 100, 50, 100, 100},
                                       {kCancel, 0, 100, 0, 100}}));
    const std::tuple<int, int, UINT, CRect, CRect, CRect> rows[] = {
        {600, 400, SIZE_RESTORED, {10, 10, 290, 30}, {300, 60, 400, 200}, {10, 300, 90, 320}},
        {700, 300, SIZE_MINIMIZED, {10, 10, 290, 30}, {300, 60, 400, 200}, {10, 300, 90, 320}},
        {100, 50, SIZE_RESTORED, {10, 10, 90, 30}, {100, 10, 200, 100}, {10, 200, 90, 220}},
    };
    for (const auto& [width, height, type, field, other, button] : rows) {
        window.SetWindowPos(nullptr, 0, 0, width, height, SWP_NOZORDER);
        layout.OnSize(type);
        EXPECT_EQ(PlaceOf(window.Get(kField)), field) << width;
        EXPECT_EQ(PlaceOf(window.Get(kOther)), other) << width;
        EXPECT_EQ(PlaceOf(window.Get(kCancel)), button) << width;
    }
    MINMAXINFO info = {};
    layout.OnGetMinMaxInfo(&info);
    EXPECT_EQ(CPoint(info.ptMinTrackSize), CPoint(400, 300));
    window.DestroyWindow();
    layout.OnSize(SIZE_RESTORED);
}

TEST(RecentFilesMenu, ShowsTheFilesOrTheText) {
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 7, _T("old"));
    CRecentFiles files(12);
    const auto item = [&](int position) {
        AfxShowRecentFiles(menu, files, 300, _T("(none)"));
        const UINT id = menu.GetMenuItemID(position);
        CString text;
        menu.GetMenuString(id, text, MF_BYCOMMAND);
        text.AppendFormat(_T(" %u"), id);
        return text +
               ((menu.GetMenuState(id, MF_BYCOMMAND) & MF_GRAYED) != 0 ? _T(" grey") : _T(""));
    };
    EXPECT_EQ(item(0), _T("(none) 300 grey"));
    for (WCHAR letter = 'j'; letter > 'a'; --letter)
        files.Add(CString(letter));
    files.Add(_T("A & B"));
    ExpectCases<CString>({CASE(item(0), _T("&1 A && B 300")), CASE(item(9), _T("10 j 309"))});
}

} // namespace
