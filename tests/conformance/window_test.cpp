// Windows, their classes and the creation hook: what both systems promise.
#include "platform/win32.h"

#include "support/last_error.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace {

const HWND kNoWindow = reinterpret_cast<HWND>(UINT_PTR{0x7ffe});

// What the procedure saw of the four messages of a life, as "id:name ".
std::string g_seen;
enum class Refuse { kNothing, kNcCreate, kCreate };

void Note(HWND window, const char* message) {
    g_seen += std::to_string(GetWindowLongPtrW(window, GWLP_ID)) + ":" + message + " ";
}

LRESULT CALLBACK RecordLife(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto refuses = [lParam](Refuse refusal) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        return *static_cast<const Refuse*>(creation->lpCreateParams) == refusal;
    };
    switch (message) {
    case WM_NCCREATE:
        Note(window, "nccreate");
        return refuses(Refuse::kNcCreate) ? FALSE : DefWindowProcW(window, message, wParam, lParam);
    case WM_CREATE:
        Note(window, "create");
        return refuses(Refuse::kCreate) ? -1 : 0;
    case WM_DESTROY:
        Note(window, "destroy");
        return 0;
    case WM_NCDESTROY:
        Note(window, "ncdestroy");
        break;
    case WM_APP:
        return static_cast<LRESULT>(wParam) * 10 + lParam;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

ATOM Register(const WCHAR* name) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = RecordLife;
    windowClass.lpszClassName = name;
    return RegisterClassExW(&windowClass);
}

class Windows : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(Register(_T("Conformance")), 0);
        g_seen.clear();
    }
    void TearDown() override { EXPECT_TRUE(UnregisterClassW(_T("Conformance"), nullptr)); }

    HWND Create(DWORD style = WS_POPUP, HWND parent = nullptr, INT_PTR id = 0,
                Refuse refusal = Refuse::kNothing) {
        return CreateWindowExW(0, _T("conFORMance"), _T("caption"), style, 0, 0, 0, 0, parent,
                               reinterpret_cast<HMENU>(id), nullptr, &refusal);
    }
};

// What a call gives, and the error it leaves: kUnset where it succeeds.
#define GIVES(expected, error, call)                                                               \
    do {                                                                                           \
        SetLastError(kUnset);                                                                      \
        EXPECT_EQ((LONG_PTR)(call), expected) << #call;                                            \
        EXPECT_EQ(GetLastError(), DWORD{error}) << #call;                                          \
    } while (false)

TEST_F(Windows, AreRefusedWithTheErrorOfTheMistake) {
    const auto create = [](const WCHAR* name, DWORD style, HWND parent) {
        return CreateWindowExW(0, name, nullptr, style, 0, 0, 0, 0, parent, nullptr, nullptr,
                               nullptr);
    };
    WNDCLASSEXW wrongSize = {};
    wrongSize.cbSize = 3;
    wrongSize.lpfnWndProc = RecordLife;
    wrongSize.lpszClassName = _T("Wrong size");
    GIVES(0, ERROR_INVALID_PARAMETER, RegisterClassExW(&wrongSize));
    GIVES(0, ERROR_CLASS_ALREADY_EXISTS, Register(_T("CONFORMANCE")));
    GIVES(0, ERROR_TLW_WITH_WSCHILD, create(_T("Conformance"), WS_CHILD, nullptr));
    GIVES(0, ERROR_INVALID_WINDOW_HANDLE, create(_T("Conformance"), WS_POPUP, kNoWindow));
    WCHAR text[8];
    GIVES(0, ERROR_INVALID_WINDOW_HANDLE, SendMessageW(kNoWindow, WM_APP, 1, 2));
    GIVES(0, ERROR_INVALID_WINDOW_HANDLE, SendMessageW(nullptr, WM_APP, 1, 2));
    GIVES(0, ERROR_INVALID_WINDOW_HANDLE, GetClassNameW(nullptr, text, 8));
    GIVES(0, ERROR_INVALID_WINDOW_HANDLE, GetWindowLongPtrW(nullptr, GWLP_USERDATA));
    GIVES(0, ERROR_INVALID_WINDOW_HANDLE, GetDlgCtrlID(nullptr));
    GIVES(0, ERROR_INVALID_WINDOW_HANDLE, GetParent(nullptr));
    GIVES(0, ERROR_INVALID_WINDOW_HANDLE, SetWindowTextW(nullptr, _T("x")));
    // Wine says 1411 here.
    SetLastError(kUnset);
    EXPECT_EQ(create(_T("No such class"), WS_POPUP, nullptr), nullptr);
    EXPECT_TRUE(GetLastError() == ERROR_CANNOT_FIND_WND_CLASS ||
                GetLastError() == ERROR_CLASS_DOES_NOT_EXIST);
}

TEST_F(Windows, AnswerAboutThemselves) {
    const HWND window = Create();
    const HWND child = Create(WS_CHILD, window, 7);
    const HWND owned = Create(WS_POPUP, window);
    WCHAR text[16];
    const auto is = [&text](int length, const CString& expected) {
        return length == expected.GetLength() && CString(text) == expected;
    };
    GIVES(TRUE, kUnset, IsWindow(child));
    GIVES(true, kUnset, is(GetClassNameW(window, text, 16), _T("Conformance")));
    GIVES(true, kUnset, is(GetClassNameW(window, text, 5), _T("Conf")));
    GIVES(0, ERROR_INSUFFICIENT_BUFFER, GetClassNameW(window, text, 0));
    GIVES(true, kUnset, is(GetWindowTextW(window, text, 16), _T("caption")));
    GIVES(true, kUnset, is(GetWindowTextW(window, text, 4), _T("cap")));
    GIVES(TRUE, kUnset, SetWindowTextW(window, _T("other text")));
    GIVES(10, kUnset, GetWindowTextLengthW(window));
    GIVES(TRUE, kUnset, SetWindowTextW(window, nullptr));
    GIVES(0, kUnset, GetWindowTextLengthW(window));
    GIVES(7, kUnset, GetDlgCtrlID(child));
    GIVES((LONG_PTR)window, kUnset, GetParent(child));
    GIVES((LONG_PTR)window, kUnset, GetParent(owned));
    GIVES(0, kUnset, GetParent(window));
    GIVES(42, kUnset, SendMessageW(window, WM_APP, 4, 2));
    GIVES(0, kUnset, SetWindowLongPtrW(window, GWLP_USERDATA, 9));
    GIVES(9, kUnset, SetWindowLongPtrW(window, GWLP_USERDATA, 0));
    GIVES(4, kUnset, (GetWindowLongPtrW(child, GWL_STYLE) >> 28) & 15);
    GIVES(0, ERROR_INVALID_INDEX, GetWindowLongPtrW(window, 4));
    GIVES(0, ERROR_INVALID_INDEX, SetWindowLongPtrW(window, -99, 1));
    GIVES(FALSE, ERROR_CLASS_HAS_WINDOWS, UnregisterClassW(_T("Conformance"), nullptr));
    EXPECT_TRUE(DestroyWindow(window));
    for (const HWND gone : {window, child, owned})
        EXPECT_FALSE(IsWindow(gone));
    EXPECT_FALSE(DestroyWindow(window));
}

TEST_F(Windows, LiveThroughTheirMessagesInOrder) {
    const HWND window = Create(WS_POPUP);
    const HWND child = Create(WS_CHILD, window, 1);
    ASSERT_NE(Create(WS_CHILD, child, 2), nullptr);
    g_seen.clear();
    EXPECT_TRUE(DestroyWindow(window));
    EXPECT_EQ(g_seen, "0:destroy 1:destroy 2:destroy 2:ncdestroy 1:ncdestroy 0:ncdestroy ");

    g_seen.clear();
    EXPECT_EQ(Create(WS_POPUP, nullptr, 0, Refuse::kNcCreate), nullptr);
    EXPECT_EQ(g_seen, "0:nccreate 0:ncdestroy ");
    g_seen.clear();
    EXPECT_EQ(Create(WS_POPUP, nullptr, 0, Refuse::kCreate), nullptr);
    EXPECT_EQ(g_seen, "0:nccreate 0:create 0:ncdestroy ");

    const HWND closed = Create(WS_POPUP);
    SendMessageW(closed, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(closed));
}

TEST_F(Windows, AreDestroyedByTheirOwnThreadAlone) {
    const HWND window = Create();
    std::thread([window] {
        EXPECT_EQ(ErrorOf([=] { return DestroyWindow(window); }), ERROR_ACCESS_DENIED);
        EXPECT_TRUE(IsWindow(window));
    }).join();
    EXPECT_TRUE(DestroyWindow(window));
}

HHOOK g_hooks[2];
LRESULT g_hookResult;
template <int number>
LRESULT CALLBACK CreationHook(int code, WPARAM wParam, LPARAM lParam) {
    if (code != HCBT_CREATEWND)
        return CallNextHookEx(g_hooks[number], code, wParam, lParam);
    g_seen += "hook" + std::to_string(number) + " ";
    if (number == 0 && g_hookResult != 0)
        return g_hookResult;
    const LRESULT result = CallNextHookEx(g_hooks[number], code, wParam, lParam);
    if (number == 1) { // the other one may see helper windows of the system, too
        const auto* event = reinterpret_cast<const CBT_CREATEWNDW*>(lParam);
        EXPECT_EQ(CString(event->lpcs->lpszName), _T("caption"));
        EXPECT_TRUE(IsWindow(reinterpret_cast<HWND>(wParam)));
        EXPECT_TRUE(UnhookWindowsHookEx(g_hooks[1])); // from within
    }
    return result;
}

TEST_F(Windows, AreOfferedToTheCreationHooksFirst) {
    g_hookResult = 0;
    g_hooks[0] = SetWindowsHookExW(WH_CBT, CreationHook<0>, nullptr, GetCurrentThreadId());
    g_hooks[1] = SetWindowsHookExW(WH_CBT, CreationHook<1>, nullptr, GetCurrentThreadId());
    DestroyWindow(Create());
    EXPECT_EQ(g_seen.find("hook1 hook0 0:nccreate"), 0u) << g_seen;
    g_seen.clear();
    g_hookResult = 1;
    EXPECT_EQ(Create(), nullptr);
    EXPECT_EQ(g_seen, "hook0 ");
    EXPECT_TRUE(UnhookWindowsHookEx(g_hooks[0]));
    EXPECT_FALSE(UnhookWindowsHookEx(g_hooks[0]));
}

} // namespace
