// The test framework starts a thread at the first trace of the main thread, to outlive it. This
// file starts it before the first test and waits until it runs.
//
// When a process ends under Wine 8, its other threads are stopped by a signal. A 32-bit thread that
// is still starting has no thread segment yet: it crashes while handling the signal, and the whole
// process ends with SIGSEGV although its tests have passed. This happened to a short test with a
// trace in one of a hundred runs.
#include <quorvel/platform/platform.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace {

std::atomic<bool> s_hasStarted = false;

// The loader calls this in every new thread, before the thread's own function.
void NTAPI OnThread(void*, DWORD reason, void*) {
    if (reason == DLL_THREAD_ATTACH)
        s_hasStarted = true;
}

// The linker collects such sections into the list of functions that the loader calls.
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
    testing::AddGlobalTestEnvironment(new WatcherThread); // the framework owns it

} // namespace
