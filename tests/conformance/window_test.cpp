// Windows, their classes and the creation hook: what both systems promise.
#include "platform/win32.h"

#include "support/text.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr DWORD kUnset = 0xdead;
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
        if (refuses(Refuse::kNcCreate))
            return FALSE;
        break;
    case WM_CREATE:
        Note(window, "create");
        return refuses(Refuse::kCreate) ? -1 : 0;
    case WM_DESTROY:
        Note(window, "destroy");
        break;
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

struct Call {
    const char* label;
    std::function<LONG_PTR()> call;
    LONG_PTR expected;
    DWORD error; // kUnset: untouched
};

void Check(const std::vector<Call>& calls) {
    for (const Call& row : calls) {
        SCOPED_TRACE(row.label);
        SetLastError(kUnset);
        EXPECT_EQ(row.call(), row.expected);
        EXPECT_EQ(GetLastError(), row.error);
    }
}

TEST_F(Windows, AreRefusedWithTheErrorOfTheMistake) {
    const auto create = [](const WCHAR* name, DWORD style, HWND parent) {
        return reinterpret_cast<LONG_PTR>(CreateWindowExW(0, name, nullptr, style, 0, 0, 0, 0,
                                                          parent, nullptr, nullptr, nullptr));
    };
    WNDCLASSEXW wrongSize = {};
    wrongSize.cbSize = 3;
    wrongSize.lpfnWndProc = RecordLife;
    wrongSize.lpszClassName = _T("Wrong size");
    WCHAR text[8];
    Check({
        {"a class twice", [] { return LONG_PTR{Register(_T("CONFORMANCE"))}; }, 0,
         ERROR_CLASS_ALREADY_EXISTS},
        {"a record of another size", [&] { return LONG_PTR{RegisterClassExW(&wrongSize)}; }, 0,
         ERROR_INVALID_PARAMETER},
        {"a child without a parent", [&] { return create(_T("Conformance"), WS_CHILD, nullptr); },
         0, ERROR_TLW_WITH_WSCHILD},
        {"no such owner", [&] { return create(_T("Conformance"), WS_POPUP, kNoWindow); }, 0,
         ERROR_INVALID_WINDOW_HANDLE},
        {"message to none", [] { return SendMessageW(nullptr, WM_APP, 1, 2); }, 0,
         ERROR_INVALID_WINDOW_HANDLE},
        {"message to an unknown one", [] { return SendMessageW(kNoWindow, WM_APP, 1, 2); }, 0,
         ERROR_INVALID_WINDOW_HANDLE},
        {"class name of none", [&] { return LONG_PTR{GetClassNameW(nullptr, text, 8)}; }, 0,
         ERROR_INVALID_WINDOW_HANDLE},
        {"word of none", [] { return LONG_PTR{GetWindowLongPtrW(nullptr, GWLP_USERDATA)}; }, 0,
         ERROR_INVALID_WINDOW_HANDLE},
        {"control id of none", [] { return LONG_PTR{GetDlgCtrlID(nullptr)}; }, 0,
         ERROR_INVALID_WINDOW_HANDLE},
        {"parent of none", [] { return reinterpret_cast<LONG_PTR>(GetParent(nullptr)); }, 0,
         ERROR_INVALID_WINDOW_HANDLE},
        {"text for none", [] { return LONG_PTR{SetWindowTextW(nullptr, _T("x"))}; }, 0,
         ERROR_INVALID_WINDOW_HANDLE},
    });
    // Wine says 1411 here.
    SetLastError(kUnset);
    EXPECT_EQ(create(_T("No such class"), WS_POPUP, nullptr), 0);
    EXPECT_TRUE(GetLastError() == ERROR_CANNOT_FIND_WND_CLASS ||
                GetLastError() == ERROR_CLASS_DOES_NOT_EXIST);
}

TEST_F(Windows, AnswerAboutThemselves) {
    const HWND window = Create();
    const HWND child = Create(WS_CHILD, window, 7);
    const HWND owned = Create(WS_POPUP, window);
    WCHAR text[16];
    const auto read = [&text](int length, const WCHAR* expected) {
        return LONG_PTR{length == CString(expected).GetLength() && CString(text) == expected};
    };
    Check({
        {"exists", [&] { return LONG_PTR{IsWindow(child)}; }, TRUE, kUnset},
        {"class name", [&] { return read(GetClassNameW(window, text, 16), _T("Conformance")); },
         TRUE, kUnset},
        {"class name cut", [&] { return read(GetClassNameW(window, text, 5), _T("Conf")); }, TRUE,
         kUnset},
        {"no room for it", [&] { return LONG_PTR{GetClassNameW(window, text, 0)}; }, 0,
         ERROR_INSUFFICIENT_BUFFER},
        {"text", [&] { return read(GetWindowTextW(window, text, 16), _T("caption")); }, TRUE,
         kUnset},
        {"text cut", [&] { return read(GetWindowTextW(window, text, 4), _T("cap")); }, TRUE,
         kUnset},
        {"set", [&] { return LONG_PTR{SetWindowTextW(window, _T("other text"))}; }, TRUE, kUnset},
        {"its length", [&] { return LONG_PTR{GetWindowTextLengthW(window)}; }, 10, kUnset},
        {"set to null", [&] { return LONG_PTR{SetWindowTextW(window, nullptr)}; }, TRUE, kUnset},
        {"then empty", [&] { return LONG_PTR{GetWindowTextLengthW(window)}; }, 0, kUnset},
        {"child's id", [&] { return LONG_PTR{GetDlgCtrlID(child)}; }, 7, kUnset},
        {"child's parent", [&] { return LONG_PTR{GetParent(child) == window}; }, TRUE, kUnset},
        {"owner", [&] { return LONG_PTR{GetParent(owned) == window}; }, TRUE, kUnset},
        {"no parent", [&] { return reinterpret_cast<LONG_PTR>(GetParent(window)); }, 0, kUnset},
        {"a message", [&] { return SendMessageW(window, WM_APP, 4, 2); }, 42, kUnset},
        {"user data", [&] { return LONG_PTR{SetWindowLongPtrW(window, GWLP_USERDATA, 9)}; }, 0,
         kUnset},
        {"and back", [&] { return LONG_PTR{SetWindowLongPtrW(window, GWLP_USERDATA, 0)}; }, 9,
         kUnset},
        {"style", [&] { return (GetWindowLongPtrW(child, GWL_STYLE) >> 28) & 15; }, 4, kUnset},
        {"no such word", [&] { return LONG_PTR{GetWindowLongPtrW(window, 4)}; }, 0,
         ERROR_INVALID_INDEX},
        {"no such word to write", [&] { return LONG_PTR{SetWindowLongPtrW(window, -99, 1)}; }, 0,
         ERROR_INVALID_INDEX},
        {"class in use", [] { return LONG_PTR{UnregisterClassW(_T("Conformance"), nullptr)}; },
         FALSE, ERROR_CLASS_HAS_WINDOWS},
    });
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
        SetLastError(kUnset);
        EXPECT_FALSE(DestroyWindow(window));
        EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
        EXPECT_TRUE(IsWindow(window));
    }).join();
    EXPECT_TRUE(DestroyWindow(window));
}

HHOOK g_hooks[2];
LRESULT g_hookResult;
LRESULT CALLBACK FirstHook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND) {
        g_seen += "first ";
        if (g_hookResult != 0)
            return g_hookResult;
    }
    return CallNextHookEx(g_hooks[0], code, wParam, lParam);
}
LRESULT CALLBACK SecondHook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND) {
        g_seen += "second ";
        const auto* event = reinterpret_cast<const CBT_CREATEWNDW*>(lParam);
        EXPECT_EQ(CString(event->lpcs->lpszName), _T("caption"));
        EXPECT_TRUE(IsWindow(reinterpret_cast<HWND>(wParam)));
    }
    const LRESULT result = CallNextHookEx(g_hooks[1], code, wParam, lParam);
    if (code == HCBT_CREATEWND) {
        EXPECT_TRUE(UnhookWindowsHookEx(g_hooks[1])); // from within
    }
    return result;
}

TEST_F(Windows, AreOfferedToTheCreationHooksFirst) {
    g_hookResult = 0;
    g_hooks[0] = SetWindowsHookExW(WH_CBT, FirstHook, nullptr, GetCurrentThreadId());
    g_hooks[1] = SetWindowsHookExW(WH_CBT, SecondHook, nullptr, GetCurrentThreadId());
    DestroyWindow(Create());
    EXPECT_EQ(g_seen.find("second first 0:nccreate"), 0u) << g_seen;
    g_seen.clear();
    g_hookResult = 1;
    EXPECT_EQ(Create(), nullptr);
    EXPECT_EQ(g_seen, "first ");
    EXPECT_TRUE(UnhookWindowsHookEx(g_hooks[0]));
    EXPECT_FALSE(UnhookWindowsHookEx(g_hooks[0]));
}

} // namespace
