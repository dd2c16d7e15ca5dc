#include <quorvel/controls/win/lengthy_work.h>

#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/win_thread.h>

#include <algorithm>
#include <exception>
#include <memory>

struct CLengthyWork::Thread {
    const std::function<void()>& work;
    std::exception_ptr exception;
    bool isCancelled = false;

    static UINT Run(void* parameter) {
        Thread& thread = *static_cast<Thread*>(parameter);
        try {
            thread.work();
        } catch (CUserException* exception) {
            exception->Delete();
            thread.isCancelled = true;
        } catch (...) {
            thread.exception = std::current_exception();
        }
        return 0;
    }
};

CLengthyWork::CLengthyWork(CWnd& window, int cancelButton, int progressBar)
    : m_window(window), m_cancelButton(cancelButton), m_progressBar(progressBar) {}

CLengthyWork::~CLengthyWork() = default;

BOOL CLengthyWork::Run(const std::function<void()>& work) {
    constexpr DWORD kProgressInterval = 100; // milliseconds
    Thread state{work, nullptr};
    const std::unique_ptr<CWinThread> thread(
        AfxBeginThread(Thread::Run, &state, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED));
    if (thread == nullptr)
        AfxThrowResourceException();
    thread->m_bAutoDelete = FALSE;
    m_isCancelled = false;
    m_percent = -1;
    m_shownPercent = -1;
    thread->ResumeThread();
    Show(TRUE);
    bool isQuitting = false;
    while (::MsgWaitForMultipleObjects(1, &thread->m_hThread, FALSE, kProgressInterval,
                                       QS_ALLINPUT) != WAIT_OBJECT_0) {
        ShowProgress();
        HandleMessages(isQuitting);
    }
    Show(FALSE);
    if (isQuitting)
        ::PostQuitMessage(0);
    if (state.exception != nullptr)
        std::rethrow_exception(state.exception);
    return !state.isCancelled;
}

void CLengthyWork::HandleMessages(bool& isQuitting) {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            isQuitting = true;
            Cancel();
        } else if (!IsDropped(message)) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
    }
}

// Also cancels by the keys that do.
bool CLengthyWork::IsDropped(const MSG& message) {
    const UINT id = message.message;
    const bool isForButton =
        m_cancelButton != 0 && message.hwnd == ::GetDlgItem(m_window.m_hWnd, m_cancelButton);
    if (id >= WM_KEYFIRST && id <= WM_KEYLAST) {
        const bool isCancelling =
            (id == WM_KEYDOWN && (message.wParam == VK_ESCAPE || message.wParam == VK_RETURN)) ||
            (id == WM_SYSKEYDOWN && message.wParam == VK_F4);
        if (isCancelling)
            Cancel();
        return isCancelling || id == WM_SYSKEYDOWN || !isForButton;
    }
    if (id >= WM_MOUSEFIRST && id <= WM_MOUSELAST)
        return id != WM_MOUSEMOVE && !isForButton;
    const bool isOnFrame = id > WM_NCMOUSEMOVE && id <= WM_NCXBUTTONDBLCLK;
    return isOnFrame && (message.wParam == HTMENU || message.wParam == HTHSCROLL ||
                         message.wParam == HTVSCROLL || message.wParam == HTSYSMENU);
}

void CLengthyWork::Show(BOOL isRunning) {
    CWnd* const button = m_cancelButton != 0 ? m_window.GetDlgItem(m_cancelButton) : nullptr;
    CWnd* const bar = m_progressBar != 0 ? m_window.GetDlgItem(m_progressBar) : nullptr;
    if (bar != nullptr) {
        bar->ModifyStyle(0, PBS_MARQUEE);
        bar->SendMessage(PBM_SETMARQUEE, static_cast<WPARAM>(isRunning), 50);
        bar->ShowWindow(isRunning ? SW_SHOW : SW_HIDE);
    }
    if (button == nullptr)
        return;
    if (isRunning) {
        const HWND focus = ::GetFocus();
        m_formerFocus = ::IsChild(m_window.m_hWnd, focus) ? focus : nullptr;
        button->ShowWindow(SW_SHOW);
        if (m_formerFocus != nullptr || focus == m_window.m_hWnd)
            button->SetFocus();
        m_window.UpdateWindow();
    } else {
        if (::GetFocus() == button->m_hWnd && ::IsWindow(m_formerFocus))
            ::SetFocus(m_formerFocus);
        button->ShowWindow(SW_HIDE);
    }
}

void CLengthyWork::SetProgress(int percent) {
    m_percent = std::clamp(percent, 0, 100);
}

void CLengthyWork::ShowProgress() {
    CWnd* const bar = m_progressBar != 0 ? m_window.GetDlgItem(m_progressBar) : nullptr;
    const int percent = m_percent;
    if (bar == nullptr || percent == m_shownPercent)
        return;
    if (m_shownPercent < 0) {
        bar->SendMessage(PBM_SETMARQUEE, FALSE, 0);
        bar->ModifyStyle(PBS_MARQUEE, 0);
        bar->SendMessage(PBM_SETRANGE32, 0, 100);
    }
    m_shownPercent = percent;
    bar->SendMessage(PBM_SETPOS, static_cast<WPARAM>(percent));
}

void CLengthyWork::PumpMessages() {
    if (m_isCancelled)
        AfxThrowUserException();
}
