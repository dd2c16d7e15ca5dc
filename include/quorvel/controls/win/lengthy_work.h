// CLengthyWork: long work that a window waits for while it stays alive. Windows only,
// user-interface thread, except where an operation says otherwise.
//
//     CLengthyWork work(*this, IDC_CANCEL, IDC_PROGRESS);
//     work.Run([&] { isLoaded = AfxLoadXMLFile(file, document, error, &work); });
//
// While the work runs on a thread of its own, the window is painted, can be moved and sized, and
// shows the bar and the button, which has the focus. Other keys and clicks on the thread's windows
// are dropped: no command can begin in the middle of the work. Escape, Enter and Alt+F4 cancel; so
// must the window's handlers of the button and of its own closing, by Cancel.
//
// To cancel is to ask: the work ends where it next calls PumpMessages, as the library's long
// functions do between their steps, and where it ends by itself it has not been cancelled.
#pragma once

#include <quorvel/frame/lengthy_operation.h>
#include <quorvel/framework/wnd.h>

#include <atomic>
#include <functional>

class QUORVEL_API CLengthyWork : public CLengthyOperationHandler {
public:
    // The ids of a button and of a progress bar of the style PBS_MARQUEE, both hidden, in the
    // window. An id without a control, such as 0, is ignored. The window must outlive the object.
    CLengthyWork(CWnd& window, int cancelButton, int progressBar);
    CLengthyWork(const CLengthyWork&) = delete;
    ~CLengthyWork() override;

    // FALSE when a CUserException left the work, as PumpMessages throws it. Any other exception
    // that leaves it is thrown here; a CResourceException when there is no thread to be had. The
    // work must not use the window. A WM_QUIT that comes meanwhile cancels, and is posted again.
    BOOL Run(const std::function<void()>& work);

    // Any thread.
    void Cancel() { m_isCancelled = true; }
    BOOL IsCancelled() const { return m_isCancelled; }
    // 0 to 100, clamped; until the first call the bar shows that the end is not known.
    void SetProgress(int percent);
    // For the work: throws CUserException once it is cancelled.
    void PumpMessages() override;

private:
    struct Thread;
    void Show(BOOL isRunning);
    void ShowProgress();
    void HandleMessages(bool& isQuitting);
    bool IsDropped(const MSG& message);

    CWnd& m_window;
    const int m_cancelButton;
    const int m_progressBar;
    HWND m_formerFocus = nullptr;
    int m_shownPercent = -1;
    std::atomic<int> m_percent{-1};
    std::atomic<bool> m_isCancelled{false};
};
