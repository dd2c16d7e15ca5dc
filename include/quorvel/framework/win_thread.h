// CWinThread: a thread of the library.
#pragma once

#include <quorvel/framework/object.h>

#include <memory>

class CWnd;
namespace quorvel {
struct ThreadStart;
}

typedef UINT (*AFX_THREADPROC)(void* parameter);

// A thread of the library. An object that AfxBeginThread made is deleted when its function ends;
// with m_bAutoDelete FALSE the starter deletes it, once the thread has ended.
class QUORVEL_API CWinThread : public CCmdTarget {
    DECLARE_DYNAMIC(CWinThread)
public:
    CWinThread();
    ~CWinThread() override; // a thread that was never resumed ends without running its function

    // 1 when the thread was suspended and runs now, 0 when it ran already. It may have ended, and
    // the object be gone, before this returns.
    DWORD ResumeThread();

#if defined(_WIN32)
    // Handles this thread's messages until WM_QUIT, and returns its exit code: the loop of a
    // program whose main window is no modal dialog. When no messages are waiting, it calls OnIdle
    // until that is FALSE.
    int Run();
    // `count` is that of the calls since the last message. The default gives their idle time to the
    // thread's modeless dialogs and property sheets, by WM_KICKIDLE, and is TRUE when one of them
    // wants more.
    virtual BOOL OnIdle(LONG count);
    // Waits for one message and handles it. FALSE for WM_QUIT.
    BOOL PumpMessage();
    // Called before each message is translated and dispatched, in modal loops of the framework too.
    // TRUE ends the handling of the message. The default calls PreTranslateMessage of the windows
    // from the message's own up to the main window.
    virtual BOOL PreTranslateMessage(MSG* message);
#endif

    CWnd* m_pMainWnd;   // not owned; null when the thread has no window
    HANDLE m_hThread;   // owned: duplicate it to outlive the object; null without AfxBeginThread
    BOOL m_bAutoDelete; // TRUE; to be changed while the thread is suspended

private:
    friend struct quorvel::ThreadStart;
    std::shared_ptr<quorvel::ThreadStart> m_start;
};

// Runs the function on a thread of its own; its result is the thread's exit code, and an exception
// that leaves it is dropped (exit code 0). The priority is THREAD_PRIORITY_NORMAL (otherwise 87),
// a stack size of 0 the platform's default, and the one flag CREATE_SUSPENDED. Null with the last
// error when there is no thread to be had. Any thread.
QUORVEL_API CWinThread* AfxBeginThread(AFX_THREADPROC function, void* parameter,
                                       int priority = THREAD_PRIORITY_NORMAL, UINT stackSize = 0,
                                       DWORD flags = 0);
