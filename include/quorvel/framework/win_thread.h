// CWinThread: a thread of the library.
#pragma once

#include <quorvel/framework/object.h>

#include <memory>

class CWnd;
namespace quorvel {
struct ThreadStart;
}

typedef UINT (*AFX_THREADPROC)(void* parameter); // its result is the exit code

// A thread of the library. AfxBeginThread creates the object. It is deleted when its function ends;
// when m_bAutoDelete is FALSE, the creator deletes it after the thread has ended.
class QUORVEL_API CWinThread : public CCmdTarget {
    DECLARE_DYNAMIC(CWinThread)
public:
    CWinThread();
    ~CWinThread() override; // a thread that was never resumed does not run its function

    // Returns 1 when the thread was suspended and now runs, 0 when it ran already. The thread may
    // have ended, and the object may have been deleted, before this returns.
    DWORD ResumeThread();

#if defined(_WIN32)
    // Handles this thread's messages until WM_QUIT and returns its exit code. It is the message
    // loop of a program whose main window is not a modal dialog. When no message waits, it calls
    // OnIdle until that returns FALSE.
    int Run();
    // `count` is the number of calls since the last message. The default sends WM_KICKIDLE to the
    // thread's modeless dialogs and property sheets, and returns TRUE when one of them asks for
    // more idle time.
    virtual BOOL OnIdle(LONG count);
    // Waits for one message and handles it. Returns FALSE for WM_QUIT.
    BOOL PumpMessage();
    // Called before each message is translated and dispatched, also in modal loops of the
    // framework. TRUE ends the handling of the message. The default calls PreTranslateMessage of
    // each window from the message's window up to the main window.
    virtual BOOL PreTranslateMessage(MSG* message);
#endif

    CWnd* m_pMainWnd;   // not owned; null when the thread has no window
    HANDLE m_hThread;   // owned, duplicate it to keep it; null without AfxBeginThread
    BOOL m_bAutoDelete; // TRUE; change it only while the thread is suspended

private:
    friend struct quorvel::ThreadStart;
    std::shared_ptr<quorvel::ThreadStart> m_start;
};

// Runs the function on a new thread. Its result is the thread's exit code; an exception that leaves
// it is dropped (exit code 0). `priority` must be THREAD_PRIORITY_NORMAL (otherwise the error is
// 87); a stack size of 0 is the platform's default; the only flag is CREATE_SUSPENDED. Returns null
// and sets the last error when no thread can be created. Any thread.
QUORVEL_API CWinThread* AfxBeginThread(AFX_THREADPROC function, void* parameter,
                                       int priority = THREAD_PRIORITY_NORMAL, UINT stackSize = 0,
                                       DWORD flags = 0);
