// Worker threads and the life of their objects.
#include <quorvel/framework/app.h>
#include <quorvel/framework/exceptions.h>

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

// The exit code, after the thread's end.
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

TEST(Thread, RunsItsFunctionOnceResumed) {
    g_runs = 0;
    int amount = 3;
    ASSERT_NE(AfxBeginThread(Count, &amount), nullptr);
    WaitFor(g_runs, 3);
    CWinThread* const suspended =
        AfxBeginThread(Count, &amount, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
    ASSERT_NE(suspended, nullptr);
    EXPECT_TRUE(suspended->m_bAutoDelete);
    suspended->m_bAutoDelete = FALSE;
    EXPECT_EQ(g_runs, 3);
    EXPECT_EQ(suspended->ResumeThread(), 1u);
    WaitFor(g_runs, 6);
    EXPECT_EQ(Await(suspended->m_hThread), 7u);
    delete suspended;
}

TEST(Thread, DeletedBeforeItIsResumedNeverRuns) {
    g_runs = 0;
    int amount = 1;
    for (int i = 0; i < 200; ++i) {
        CWinThread* const suspended =
            AfxBeginThread(Count, &amount, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
        ASSERT_NE(suspended, nullptr);
        const HANDLE thread = Duplicate(suspended->m_hThread);
        delete suspended;
        EXPECT_EQ(Await(thread), 0u);
        CloseHandle(thread);
    }
    EXPECT_EQ(g_runs, 0);
}

TEST(Thread, DropsWhateverItsFunctionThrows) {
    for (const AFX_THREADPROC function : {ThrowException, ThrowNumber}) {
        CWinThread* const suspended =
            AfxBeginThread(function, nullptr, THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED);
        ASSERT_NE(suspended, nullptr);
        const HANDLE thread = Duplicate(suspended->m_hThread);
        suspended->ResumeThread();
        EXPECT_EQ(Await(thread), 0u);
        CloseHandle(thread);
    }
}

TEST(Thread, RefusesWhatItCannotDo) {
    EXPECT_EQ(AfxBeginThread(nullptr, nullptr), nullptr);
    EXPECT_EQ(AfxBeginThread(Count, nullptr, THREAD_PRIORITY_NORMAL + 1), nullptr);
    EXPECT_EQ(AfxBeginThread(Count, nullptr, THREAD_PRIORITY_NORMAL, 0, 0x10000), nullptr);
}

} // namespace
