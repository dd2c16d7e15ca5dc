// Worker threads and the lifetime of their objects.
#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/win_thread.h>

#include "platform/win32.h"

#include <gtest/gtest.h>

#include <atomic>
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

void WaitFor(const std::atomic<int>& value, int expected) {
    while (value != expected)
        std::this_thread::yield();
}

// Waits for the thread and returns its exit code.
DWORD Await(HANDLE thread) {
    DWORD code = 0;
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_TRUE(GetExitCodeThread(thread, &code));
    return code;
}

HANDLE Duplicate(HANDLE handle) {
    HANDLE duplicate = nullptr;
    EXPECT_TRUE(DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &duplicate, 0,
                                FALSE, DUPLICATE_SAME_ACCESS));
    return duplicate;
}

CWinThread* BeginSuspended(AFX_THREADPROC function, void* parameter) {
    return AfxBeginThread(function, parameter, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
}

TEST(Thread, RunsItsFunctionOnceResumed) {
    g_runs = 0;
    int amount = 3;
    ASSERT_NE(AfxBeginThread(Count, &amount), nullptr);
    WaitFor(g_runs, 3);
    CWinThread* const suspended = BeginSuspended(Count, &amount);
    ASSERT_NE(suspended, nullptr);
    suspended->m_bAutoDelete = FALSE;
    EXPECT_EQ(g_runs, 3);
    EXPECT_EQ(suspended->ResumeThread(), 1u);
    EXPECT_EQ(Await(suspended->m_hThread), 7u);
    EXPECT_EQ(g_runs, 6);
    delete suspended;
}

TEST(Thread, EndsWithoutRunningOrWithWhatIsThrown) {
    g_runs = 0;
    int amount = 1;
    const std::tuple<AFX_THREADPROC, bool, int> rows[] = {
        {Count, false, 100}, {ThrowException, true, 1}, {ThrowNumber, true, 1}};
    for (const auto& [function, resumed, times] : rows)
        for (int i = 0; i < times; ++i) {
            CWinThread* const suspended = BeginSuspended(function, &amount);
            ASSERT_NE(suspended, nullptr);
            const HANDLE thread = Duplicate(suspended->m_hThread);
            if (resumed)
                suspended->ResumeThread();
            else
                delete suspended;
            EXPECT_EQ(Await(thread), 0u);
            CloseHandle(thread);
        }
    EXPECT_EQ(g_runs, 0);
}

} // namespace
