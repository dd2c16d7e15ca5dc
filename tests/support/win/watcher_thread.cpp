// The test framework starts a thread beside the main one at the main thread's first trace, to
// outlive it. Here that happens before the first test, and the thread's start is awaited.
//
// Under Wine 8 an ending process stops its other threads by a signal. A 32-bit thread that is still
// being started has no thread segment yet: it faults while it handles the signal, and the whole
// process dies by SIGSEGV although its tests have passed. A short test that traced did so once in a
// hundred runs.
#include <quorvel/platform/platform.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace {

std::atomic<bool> s_hasStarted = false;

// The loader calls this in every new thread before the thread's own function.
void NTAPI OnThread(void*, DWORD reason, void*) {
    if (reason == DLL_THREAD_ATTACH)
        s_hasStarted = true;
}

// The linker gathers such sections into the list of functions that the loader calls.
[[gnu::section(".CRT$XLY"), gnu::used]] const PIMAGE_TLS_CALLBACK s_onThread = OnThread;

class WatcherThread : public testing::Environment {
public:
    void SetUp() override {
        using namespace std::chrono;
        SCOPED_TRACE("start of the watcher thread");
        const auto limit = steady_clock::now() + seconds(30);
        while (!s_hasStarted) {
            ASSERT_LT(steady_clock::now(), limit) << "the framework starts no thread any more";
            std::this_thread::yield();
        }
    }
};

testing::Environment* const s_watcherThread =
    testing::AddGlobalTestEnvironment(new WatcherThread); // the framework's from here on

} // namespace
