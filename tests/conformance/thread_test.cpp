// Events, threads and waits: common promises of both systems.
#include "platform/win32.h"

#include "support/test.h"

#include <atomic>
#include <thread>

namespace {

TEST(Events, KeepOrGiveUpTheirSignal) {
    const std::tuple<const char*, BOOL, BOOL, int, DWORD> rows[] = {
        {"manual, set from the start", TRUE, TRUE, 0, WAIT_OBJECT_0},
        {"automatic, set from the start", FALSE, TRUE, 0, WAIT_TIMEOUT},
        {"automatic, set twice", FALSE, FALSE, 2, WAIT_TIMEOUT},
    };
    for (const auto& [label, manualReset, signalled, sets, secondWait] : rows) {
        const HANDLE event = CreateEventW(nullptr, manualReset, signalled, nullptr);
        for (int i = 0; i < sets; ++i)
            EXPECT_TRUE(SetEvent(event));
        for (const DWORD expected : {DWORD{WAIT_OBJECT_0}, secondWait})
            EXPECT_EQ(WaitForSingleObject(event, 0), expected) << label;
        EXPECT_TRUE(SetEvent(event) && ResetEvent(event));
        EXPECT_EQ(WaitForSingleObject(event, 1), WAIT_TIMEOUT) << label;
        CloseHandle(event);
        EXPECT_EQ(ErrorOf([event] { return SetEvent(event); }), ERROR_INVALID_HANDLE);
    }
}

std::atomic<int> g_destroyedLocals;
struct Local {
    ~Local() { ++g_destroyedLocals; }
};
DWORD WINAPI HoldLocal(LPVOID) {
    static thread_local Local t_local;
    [[maybe_unused]] const volatile auto* used = &t_local;
    return 0;
}

TEST(Threads, HaveDestroyedTheirLocalsWhenTheyEnd) {
    for (int i = 1; i <= 100; ++i) {
        const HANDLE thread = CreateThread(nullptr, 0, HoldLocal, nullptr, 0, nullptr);
        EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
        EXPECT_EQ(g_destroyedLocals, i);
        CloseHandle(thread);
    }
}

// Each signal of an auto-reset event ends one wait. Two threads pass one signal back and forth: a
// lost signal would hang them, a doubled one would give a wrong count.
TEST(Waits, LoseNoSignalBetweenThreads) {
    constexpr int kRounds = 20000;
    const HANDLE ping = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const HANDLE pong = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    int count = 0; // protected by the signal
    std::thread other([&] {
        for (int i = 0; i < kRounds; ++i, SetEvent(pong)) {
            WaitForSingleObject(ping, INFINITE);
            ++count;
        }
    });
    for (int i = 0; i < kRounds; ++i) {
        SetEvent(ping);
        ASSERT_EQ(WaitForSingleObject(pong, INFINITE), WAIT_OBJECT_0);
        ASSERT_EQ(count, i + 1);
    }
    other.join();
    EXPECT_TRUE(CloseHandle(ping) && CloseHandle(pong));
}

} // namespace
