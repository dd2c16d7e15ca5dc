#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/win_thread.h>

#include "platform/win32.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>

namespace {

std::atomic<int> g_runs;

UINT Count(void* amount) {
    g_runs += *static_cast<int*>(amount);
    return 7;
}
UINT ThrowException(void*) {
    AfxThrowUserException();
}
UINT ThrowNumber(void*) {
    throw 5;
}

int g_amount = 3;

// Waits for the thread and returns its exit code.
DWORD Await(HANDLE thread) {
    DWORD code = 99;
    WaitForSingleObject(thread, INFINITE);
    GetExitCodeThread(thread, &code);
    return code;
}

CWinThread* BeginSuspended(AFX_THREADPROC function) {
    return AfxBeginThread(function, &g_amount, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
}

TEST(Thread, RunsItsFunctionOnceResumed) {
    g_runs = 0;
    ASSERT_NE(AfxBeginThread(Count, &g_amount), nullptr);
    while (g_runs != 3)
        std::this_thread::yield();
    const std::unique_ptr<CWinThread> suspended(BeginSuspended(Count));
    suspended->m_bAutoDelete = FALSE;
    EXPECT_EQ(g_runs, 3);
    EXPECT_EQ(suspended->ResumeThread(), 1u);
    EXPECT_EQ(Await(suspended->m_hThread), 7u);
    EXPECT_EQ(g_runs, 6);
}

TEST(Thread, EndsWithoutRunningOrWithWhatIsThrown) {
    g_runs = 0;
    for (int i = 0; i < 100; ++i) {
        const AFX_THREADPROC function = i == 0 ? ThrowException : i == 1 ? ThrowNumber : Count;
        CWinThread* const suspended = BeginSuspended(function);
        const HANDLE self = GetCurrentProcess();
        HANDLE thread = nullptr;
        EXPECT_TRUE(DuplicateHandle(self, suspended->m_hThread, self, &thread, 0, FALSE,
                                    DUPLICATE_SAME_ACCESS));
        if (function == Count)
            delete suspended;
        else
            suspended->ResumeThread();
        EXPECT_EQ(Await(thread), 0u);
        CloseHandle(thread);
    }
    EXPECT_EQ(g_runs, 0);
}

} // namespace
