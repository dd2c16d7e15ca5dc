#include <quorvel/framework/win_thread.h>

#include <quorvel/framework/exceptions.h>

#include "platform/win32.h"

#include <atomic>
#include <utility>

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)

// The start data of a thread. The thread and its object share it, because either may end first.
struct quorvel::ThreadStart {
    AFX_THREADPROC function;
    void* parameter;
    CWinThread* object;
    std::atomic<bool> abandoned = false; // the object was deleted before the thread ran

    static std::unique_ptr<CWinThread> Begin(AFX_THREADPROC function, void* parameter,
                                             UINT stackSize);
    static DWORD WINAPI Run(LPVOID held);
    UINT CallFunction() const noexcept;
};

// Always suspended: the thread must not end before its object has its handle.
std::unique_ptr<CWinThread> quorvel::ThreadStart::Begin(AFX_THREADPROC function, void* parameter,
                                                        UINT stackSize) {
    auto thread = std::make_unique<CWinThread>();
    thread->m_start.reset(new ThreadStart{function, parameter, thread.get()});
    auto held = std::make_unique<std::shared_ptr<ThreadStart>>(thread->m_start);
    thread->m_hThread =
        ::CreateThread(nullptr, stackSize, Run, held.get(), CREATE_SUSPENDED, nullptr);
    if (thread->m_hThread == nullptr)
        return nullptr;
    held.release();
    return thread;
}

UINT quorvel::ThreadStart::CallFunction() const noexcept {
    try {
        return function(parameter);
    } catch (CException* exception) {
        exception->Delete();
    } catch (...) { // no exception may leave a thread
    }
    return 0;
}

DWORD WINAPI quorvel::ThreadStart::Run(LPVOID held) {
    const std::unique_ptr<std::shared_ptr<ThreadStart>> owner(
        static_cast<std::shared_ptr<ThreadStart>*>(held));
    const ThreadStart& start = **owner;
    if (start.abandoned)
        return 0;
    const UINT result = start.CallFunction();
    if (start.object->m_bAutoDelete)
        delete start.object;
    return result;
}

CWinThread::CWinThread() : m_pMainWnd(nullptr), m_hThread(nullptr), m_bAutoDelete(TRUE) {}

CWinThread::~CWinThread() {
    if (m_hThread == nullptr)
        return;
    m_start->abandoned = true;
    ::ResumeThread(m_hThread); // otherwise a suspended thread would never end
    ::CloseHandle(m_hThread);
}

DWORD CWinThread::ResumeThread() {
    return ::ResumeThread(m_hThread);
}

CWinThread* AfxBeginThread(AFX_THREADPROC function, void* parameter, int priority, UINT stackSize,
                           DWORD flags) {
    if (function == nullptr || priority != THREAD_PRIORITY_NORMAL ||
        (flags & ~DWORD{CREATE_SUSPENDED}) != 0) {
        ::SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto thread = quorvel::ThreadStart::Begin(function, parameter, stackSize);
    if (thread == nullptr)
        return nullptr;
    CWinThread* const started = thread.release();
    if (!(flags & CREATE_SUSPENDED))
        started->ResumeThread();
    return started;
}
