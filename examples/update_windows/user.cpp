#include "user.h"

#include <quorvel/framework/wnd.h>
#include <quorvel/res/resource_ids.h>

#include "common/console.h"
#include "support/window_driver.h"
#include "window_text.h"

#include <commctrl.h>

#include <utility>

namespace {

constexpr UINT kMilliseconds = 50;
constexpr int kQuietLooks = 5; // until a dialog is taken to wait

User* s_user = nullptr; // callbacks carry nothing of ours

bool IsPane(HWND window) {
    return ::GetDlgItem(window, QUORVEL_UPDATES_PROGRESS_TEXT) != nullptr;
}

} // namespace

User::User(std::vector<Step> steps, int answer)
    : m_steps(std::move(steps)), m_answer(answer),
      m_timer(::SetTimer(nullptr, 0, kMilliseconds,
                         [](HWND, UINT, UINT_PTR, DWORD) CALLBACK { s_user->Look(); })),
      m_hook(::SetWindowsHookExW(WH_CALLWNDPROC, OnMessage, nullptr, ::GetCurrentThreadId())) {
    s_user = this;
}

User::~User() {
    ::UnhookWindowsHookEx(m_hook);
    ::KillTimer(nullptr, m_timer);
    s_user = nullptr;
}

void User::Look() {
    const HWND box = FindVisibleBox();
    if (box == nullptr || IsPane(box)) {
        m_quietLooks = 0;
    } else if (CWnd::FromHandlePermanent(box) == nullptr) {
        m_quietLooks = 0;
        AnswerBox(box);
    } else if (++m_quietLooks >= kQuietLooks && !m_steps.empty()) {
        m_quietLooks = 0;
        const Step step = m_steps.front();
        m_steps.erase(m_steps.begin());
        step(box);
    }
}

void User::AnswerBox(HWND box) {
    if (std::exchange(m_answered, box) == box)
        return; // it is closing
    PrintControls(box);
    const HWND button = ::GetDlgItem(box, m_answer);
    ::PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button != nullptr ? m_answer : IDOK), 0);
}

LRESULT CALLBACK User::OnMessage(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION && s_user != nullptr)
        s_user->Watch(*reinterpret_cast<const CWPSTRUCT*>(lParam));
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

// What is shown too shortly to be looked at: each text of a pane, of the figures those of the
// whole, and the balloon at a field.
void User::Watch(const CWPSTRUCT& message) {
    if (message.message == WM_SETTEXT && ::IsWindowVisible(message.hwnd)) {
        const int id = ::GetDlgCtrlID(message.hwnd);
        const CString text = reinterpret_cast<const WCHAR*>(message.lParam);
        const bool isFigures = id == QUORVEL_UPDATES_PROGRESS_FIGURES;
        if ((id != QUORVEL_UPDATES_PROGRESS_TEXT && !isFigures) || text.IsEmpty())
            return;
        if (!isFigures || text.Find(_T("100%")) >= 0)
            Print(stdout, _T("[") + TextOf(::GetParent(message.hwnd)) + _T("] ") + text);
        if (isFigures && text.Find(_T(" 0 of ")) < 0 && std::exchange(m_cancelsDownload, false)) {
            Print(stdout, _T("(Escape)"));
            PressKey(VK_ESCAPE);
        }
    } else if (message.message == WM_SHOWWINDOW && message.wParam != 0 && IsPane(message.hwnd)) {
        const CString text = TextOf(::GetDlgItem(message.hwnd, QUORVEL_UPDATES_PROGRESS_TEXT));
        if (!text.IsEmpty())
            Print(stdout, _T("[") + TextOf(message.hwnd) + _T("] ") + text);
    } else if (message.message == TTM_UPDATETIPTEXTW) {
        m_balloonText = reinterpret_cast<const TOOLINFOW*>(message.lParam)->lpszText;
    } else if (message.message == TTM_TRACKACTIVATE && message.wParam != 0) {
        Print(stdout, _T("  (!) ") + m_balloonText);
    }
}

void PressKey(UINT key) {
    ::PostMessageW(::GetFocus(), WM_KEYDOWN, key, 1);
}

User::Step Press(UINT key, const WCHAR* name) {
    return [key, name](HWND) {
        Print(stdout, CString(_T("(")) + name + _T(")"));
        PressKey(key);
    };
}

User::Step PressAlt(WCHAR letter) {
    return [letter](HWND) {
        Print(stdout, CString(_T("(Alt+")) + letter + _T(")"));
        ::PostMessageW(::GetFocus(), WM_SYSCHAR, letter, 1 << 29);
    };
}

User::Step Type(const CString& text) {
    return [text](HWND) {
        for (int i = 0; i < text.GetLength(); ++i)
            ::PostMessageW(::GetFocus(), WM_CHAR, text[i], 1);
    };
}
