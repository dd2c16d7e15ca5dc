// Windows and their classes: common promises of both systems.
#include "platform/win32.h"

#include "support/test.h"
#include "support/window_class.h"

#include <thread>

namespace {

// The last messages of a window that its procedure received, as "id:name ".
std::string g_seen;

LRESULT CALLBACK RecordLife(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY || message == WM_NCDESTROY)
        g_seen += std::to_string(GetWindowLongPtrW(window, GWLP_ID)) +
                  (message == WM_DESTROY ? ":destroy " : ":ncdestroy ");
    return DefWindowProcW(window, message, wParam, lParam);
}

class Windows : public testing::Test {
protected:
    const TestWindowClass m_class{_T("Conformance"), RecordLife};
};

TEST_F(Windows, EndAfterTheirOwnerAndTheirChildren) {
    const HWND window = m_class.Create();
    const HWND owned = m_class.Create(WS_POPUP, window);
    EXPECT_EQ(ErrorOf([] { return UnregisterClassW(_T("conFORMance"), nullptr); }),
              ERROR_CLASS_HAS_WINDOWS);
    EXPECT_TRUE(DestroyWindow(window));
    EXPECT_FALSE(IsWindow(owned));

    const HWND parent = m_class.Create();
    const HWND child = m_class.Create(WS_CHILD, parent, 1);
    m_class.Create(WS_CHILD, child, 2);
    g_seen.clear();
    EXPECT_TRUE(DestroyWindow(parent));
    EXPECT_EQ(g_seen, "0:destroy 1:destroy 2:destroy 2:ncdestroy 1:ncdestroy 0:ncdestroy ");
}

TEST_F(Windows, EndWithTheirThreadOrByItAlone) {
    const HWND ours = m_class.Create();
    HWND window = nullptr, child = nullptr;
    std::thread([&] {
        EXPECT_EQ(ErrorOf([=] { return DestroyWindow(ours); }), ERROR_ACCESS_DENIED);
        window = m_class.Create();
        child = m_class.Create(WS_CHILD, window, 1);
        g_seen.clear();
    }).join();
    EXPECT_FALSE(IsWindow(window) || IsWindow(child));
    EXPECT_EQ(g_seen, "") << "no messages";
    EXPECT_TRUE(DestroyWindow(ours));
}

TEST_F(Windows, BelongToTheProgramWhereNoModuleIsGiven) {
    WNDCLASSEXW again = {};
    again.cbSize = sizeof again;
    again.lpfnWndProc = DefWindowProcW;
    again.lpszClassName = _T("Conformance");
    again.hInstance = GetModuleHandleW(nullptr);
    EXPECT_EQ(ErrorOf([&] { return RegisterClassExW(&again) != 0; }), ERROR_CLASS_ALREADY_EXISTS);
    const HWND window = CreateWindowExW(0, again.lpszClassName, nullptr, WS_POPUP, 0, 0, 0, 0,
                                        nullptr, nullptr, again.hInstance, nullptr);
    EXPECT_TRUE(DestroyWindow(window));
}

} // namespace
