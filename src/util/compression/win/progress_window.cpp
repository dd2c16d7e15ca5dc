// The progress box as a modeless window over the main window.
//
// The thread is busy with the work and fetches no messages in the meantime. So the window paints
// itself at each step and handles only what the system sends it. It takes no input: dragging it
// would run a message loop during the work and deliver the waiting messages of the host's windows.
#include "util/compression/progress_box.h"

#include <quorvel/frame/module.h>
#include <quorvel/framework/app.h>
#include <quorvel/framework/wnd.h>
#include <quorvel/res/resource_ids.h>

namespace quorvel {

namespace {

INT_PTR CALLBACK DefaultDialogProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

// With an owner in another thread, the two threads would wait for each other.
HWND OwnerOnThisThread() {
    const CWnd* main = AfxGetMainWnd();
    const HWND window = main != nullptr ? main->m_hWnd : nullptr;
    return ::GetWindowThreadProcessId(window, nullptr) == ::GetCurrentThreadId() ? window : nullptr;
}

class ProgressWindow : public ProgressView {
public:
    bool Create();
    void SetCaption(const CString& caption) override { m_window.SetWindowText(caption); }
    void SetStatus(const CString& status) override;
    void SetStep(int step) override;

private:
    void Paint();

    CWnd m_window;
};

bool ProgressWindow::Create() {
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_PROGRESS_CLASS};
    ::InitCommonControlsEx(&classes);
    m_window.Attach(::CreateDialogParamW(QuorvelGetInstanceHandle(),
                                         MAKEINTRESOURCEW(QUORVEL_DIALOG_PROGRESS),
                                         OwnerOnThisThread(), DefaultDialogProcedure, 0));
    if (m_window.m_hWnd == nullptr)
        return false;
    ::SendDlgItemMessageW(m_window.m_hWnd, QUORVEL_PROGRESS_BAR, PBM_SETRANGE32, 0, kProgressSteps);
    m_window.CenterWindow();
    return true;
}

void ProgressWindow::SetStatus(const CString& status) {
    ::SetDlgItemTextW(m_window.m_hWnd, QUORVEL_PROGRESS_STATUS, status);
    if (m_window.IsWindowVisible())
        Paint();
}

void ProgressWindow::SetStep(int step) {
    ::SendDlgItemMessageW(m_window.m_hWnd, QUORVEL_PROGRESS_BAR, PBM_SETPOS,
                          static_cast<WPARAM>(step), 0);
    if (!m_window.IsWindowVisible())
        m_window.ShowWindow(SW_SHOW);
    Paint();
}

void ProgressWindow::Paint() {
    ::RedrawWindow(m_window.m_hWnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    MSG message;
    while (::PeekMessageW(&message, m_window.m_hWnd, 0, 0, PM_REMOVE | PM_QS_PAINT))
        ::DispatchMessageW(&message);
}

} // namespace

std::unique_ptr<ProgressView> CreateProgressView() {
    auto window = std::make_unique<ProgressWindow>();
    return window->Create() ? std::move(window) : nullptr;
}

} // namespace quorvel
