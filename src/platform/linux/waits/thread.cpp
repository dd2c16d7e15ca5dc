#include "platform/linux/waits/thread.h"

#include <quorvel/platform/linux_api.h>

#include "platform/linux/system/system_error.h"
#include "platform/linux/waits/wait.h"

#include <limits.h>
#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <utility>

namespace quorvel {

namespace {

class Thread final : public Waitable {
public:
    Thread(LPTHREAD_START_ROUTINE start, LPVOID parameter, bool suspended)
        : Waitable(false), m_start(start), m_parameter(parameter), m_suspended(suspended) {}

    // Returns false when the system refuses another thread.
    static bool Launch(const std::shared_ptr<Thread>& thread, std::size_t stackSize) {
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
        if (stackSize != 0)
            pthread_attr_setstacksize(&attributes,
                                      std::max<std::size_t>(stackSize, PTHREAD_STACK_MIN));
        auto* const held = new std::shared_ptr<Thread>(thread);
        pthread_t id;
        const int error = pthread_create(&id, &attributes, Run, held);
        pthread_attr_destroy(&attributes);
        if (error != 0)
            delete held;
        return error == 0;
    }

    DWORD Resume() {
        std::unique_lock lock(m_mutex);
        if (!std::exchange(m_suspended, false))
            return 0;
        lock.unlock(); // otherwise the thread would wake and wait for the lock
        m_resumed.notify_one();
        return 1;
    }
    DWORD ExitCode() const { return m_exitCode; }

private:
    using Held = std::shared_ptr<Thread>;

    static void* Run(void* parameter) {
        Held* const held = static_cast<Held*>(parameter);
        pthread_setspecific(EndKey(), held);
        Thread& thread = **held;
        {
            std::unique_lock lock(thread.m_mutex);
            thread.m_resumed.wait(lock, [&thread] { return !thread.m_suspended; });
        }
        thread.m_result = thread.m_start(thread.m_parameter);
        return nullptr;
    }
    // pthread destroys the values of keys after thread_local objects. So those are already
    // destroyed when a waiting thread wakes.
    static pthread_key_t EndKey() {
        static const pthread_key_t s_key = [] {
            pthread_key_t key;
            pthread_key_create(&key, End);
            return key;
        }();
        return s_key;
    }
    static void End(void* value) {
        Held* const held = static_cast<Held*>(value);
        (*held)->m_exitCode = (*held)->m_result;
        (*held)->Signal();
        delete held;
    }

    const LPTHREAD_START_ROUTINE m_start;
    const LPVOID m_parameter;
    DWORD m_result = 0; // written by the thread only
    std::atomic<DWORD> m_exitCode = STILL_ACTIVE;
    std::mutex m_mutex; // guards what follows
    std::condition_variable m_resumed;
    bool m_suspended;
};

} // namespace

} // namespace quorvel

namespace quorvel::win32 {

HANDLE CreateThread(SECURITY_ATTRIBUTES* security, SIZE_T stackSize, LPTHREAD_START_ROUTINE start,
                    LPVOID parameter, DWORD flags, DWORD* id) {
    if (security != nullptr || id != nullptr || (flags & ~CREATE_SUSPENDED) != 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const auto thread = std::make_shared<Thread>(start, parameter, (flags & CREATE_SUSPENDED) != 0);
    const HANDLE handle = NewHandle(thread);
    if (handle == nullptr || Thread::Launch(thread, stackSize))
        return handle;
    CloseHandle(handle);
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

DWORD ResumeThread(HANDLE handle) {
    const std::shared_ptr<Thread> thread = FindHandle<Thread>(handle);
    return thread != nullptr ? thread->Resume() : static_cast<DWORD>(-1);
}

BOOL GetExitCodeThread(HANDLE handle, DWORD* exitCode) {
    const std::shared_ptr<Thread> thread = FindHandle<Thread>(handle);
    if (thread == nullptr)
        return FALSE;
    *exitCode = thread->ExitCode();
    return TRUE;
}

DWORD GetCurrentThreadId() {
    static thread_local const DWORD t_id = static_cast<DWORD>(gettid());
    return t_id;
}

} // namespace quorvel::win32
