// The message loops of a thread: the program's own and those of modal windows.
#include <quorvel/framework/app.h>
#include <quorvel/framework/wnd.h>

#include "framework/handler_exception.h"

#include <utility>
#include <vector>

namespace {

constexpr UINT kSystemTimer = 0x0118; // blinks the caret, among others

// Returns FALSE for WM_QUIT.
bool Pump(MSG& message) {
    if (::GetMessageW(&message, nullptr, 0, 0) <= 0)
        return false;
    try {
        CWinApp* const app = AfxGetApp();
        if (app != nullptr ? app->PreTranslateMessage(&message)
                           : CWnd::WalkPreTranslateTree(nullptr, &message))
            return true;
    } catch (...) { // handled like a failure in a handler, so that the loop continues
        quorvel::EndHandlerException(message);
        return true;
    }
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
    return true;
}

bool IsQueueEmpty() {
    MSG message;
    return !::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
}

// Whether the message may have changed what OnIdle displays.
bool IsIdleMessage(const MSG& message) {
    static thread_local LPARAM t_mousePlace = -1;
    if (message.message == WM_MOUSEMOVE) { // the system also sends it when the mouse has not moved
        const LPARAM place = MAKELPARAM(message.pt.x, message.pt.y);
        const bool moved = place != t_mousePlace;
        t_mousePlace = place;
        return moved;
    }
    return message.message != WM_PAINT && message.message != kSystemTimer;
}

bool CallOnIdle(CWinThread& thread, LONG count) {
    try {
        return thread.OnIdle(count) != FALSE;
    } catch (...) {
        quorvel::EndHandlerException({});
        return false;
    }
}

} // namespace

BOOL CWinThread::PumpMessage() {
    MSG message;
    return Pump(message);
}

int CWinThread::Run() {
    MSG message = {};
    bool idle = true;
    LONG idleCount = 0;
    for (;;) {
        while (idle && IsQueueEmpty())
            idle = CallOnIdle(*this, idleCount++);
        if (!Pump(message))
            return static_cast<int>(message.wParam);
        if (IsIdleMessage(message)) {
            idle = true;
            idleCount = 0;
        }
    }
}

BOOL CWinThread::OnIdle(LONG count) {
    std::vector<HWND> windows; // a copy, because OnIdle may create and destroy windows
    const auto note = [](HWND window, LPARAM noted) CALLBACK -> BOOL {
        if (::IsWindowVisible(window) && CWnd::FromHandlePermanent(window) != nullptr)
            reinterpret_cast<std::vector<HWND>*>(noted)->push_back(window);
        return TRUE;
    };
    ::EnumThreadWindows(::GetCurrentThreadId(), note, reinterpret_cast<LPARAM>(&windows));
    BOOL wantsMore = FALSE;
    for (const HWND window : windows) {
        if (::SendMessageW(window, WM_KICKIDLE, MSGF_DIALOGBOX, count) != 0)
            wantsMore = TRUE;
    }
    return wantsMore;
}

BOOL CWinThread::PreTranslateMessage(MSG* message) {
    return CWnd::WalkPreTranslateTree(m_pMainWnd != nullptr ? m_pMainWnd->m_hWnd : nullptr,
                                      message);
}

BOOL CWnd::PreTranslateMessage(MSG*) {
    return FALSE;
}

BOOL CWnd::WalkPreTranslateTree(HWND stop, MSG* message) {
    for (HWND window = message->hwnd; window != nullptr; window = ::GetParent(window)) {
        CWnd* const wnd = FromHandlePermanent(window);
        if (wnd != nullptr && wnd->PreTranslateMessage(message))
            return TRUE;
        if (window == stop)
            break;
    }
    return FALSE;
}

int CWnd::RunModalLoop(DWORD flags) {
    if (m_hWnd == nullptr)
        return -1;
    const HWND owner = ::GetParent(m_hWnd);
    bool show = (flags & MLF_SHOWONIDLE) != 0 && (GetStyle() & WS_VISIBLE) == 0;
    bool idle = true;
    LONG idleCount = 0;
    const auto showNow = [&] {
        if (std::exchange(show, false)) {
            ShowWindow(SW_SHOWNORMAL);
            UpdateWindow();
        }
    };
    m_modal = Modal::Running;
    for (;;) {
        while (idle && ContinueModal() && IsQueueEmpty()) {
            showNow();
            if ((flags & MLF_NOIDLEMSG) == 0 && owner != nullptr && idleCount == 0)
                ::SendMessageW(owner, WM_ENTERIDLE, MSGF_DIALOGBOX,
                               reinterpret_cast<LPARAM>(m_hWnd));
            idle = (flags & MLF_NOKICKIDLE) == 0 &&
                   SendMessage(WM_KICKIDLE, MSGF_DIALOGBOX, idleCount++) != 0;
        }
        do {
            MSG message;
            if (!Pump(message)) {
                ::PostQuitMessage(static_cast<int>(message.wParam)); // for the outer loops
                m_modal = Modal::None;
                return m_modalResult = -1;
            }
            if (message.message == kSystemTimer || message.message == WM_SYSKEYDOWN)
                showNow(); // the user is waiting for the window
            if (!ContinueModal()) {
                m_modal = Modal::None;
                return m_modalResult;
            }
            if (IsIdleMessage(message)) {
                idle = true;
                idleCount = 0;
            }
        } while (!IsQueueEmpty());
    }
}

BOOL CWnd::ContinueModal() {
    return m_modal == Modal::Running;
}

void CWnd::EndModalLoop(int result) {
    m_modalResult = result;
    if (m_modal != Modal::Running)
        return;
    m_modal = Modal::Ended;
    ::PostMessageW(m_hWnd, WM_NULL, 0, 0); // wakes the loop if it waits for a message
}
