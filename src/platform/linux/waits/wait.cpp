#include "platform/linux/waits/wait.h"

#include "platform/linux/system/system_error.h"
#include "platform/linux/waits/thread.h"

#include <linux/futex.h>
#include <sched.h>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <optional>
#include <utility>

namespace quorvel {

// The calling thread's state in its waits. It is registered with all objects that the thread waits
// for. It is reset before each check of them, so that no change in between is missed.
class Waiter {
public:
    Waiter() = default;
    Waiter(const Waiter&) = delete;
    ~Waiter() {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }

    // Records a change. Returns true when the thread sleeps and must be woken. The waiting thread
    // itself is awake: a change that its poll causes is seen by its next check.
    bool Notify() {
        return m_thread != win32::GetCurrentThreadId() && m_state.exchange(kNotified) == kAsleep;
    }
    // A late wake-up only makes the thread check once more.
    void Wake() {
        if (!m_polls)
            syscall(SYS_futex, &m_state, FUTEX_WAKE_PRIVATE, 1, nullptr, nullptr, 0);
        else [[maybe_unused]]
            const int ignored = eventfd_write(m_descriptor, 1);
    }

    void Begin() { m_state = kAwake; }
    // Sleeps until something may have changed since Begin, but at most `timeout` (null: no limit).
    // Returns false when the thread needs an eventfd and cannot create one.
    bool Sleep(std::span<const std::shared_ptr<Waitable>> things, const timespec* timeout) {
        m_polled.clear();
        for (const std::shared_ptr<Waitable>& thing : things)
            Collect(*thing);
        m_polls = !m_sources.empty();
        if (!m_polls)
            SleepInFutex(timeout);
        else if (HasDescriptor())
            SleepInPoll(timeout);
        else
            return false;
        m_sources.clear(); // another thread may be closing these
        return true;
    }

private:
    enum State : std::uint32_t { kAwake, kNotified, kAsleep };

    bool FallAsleep() {
        std::uint32_t expected = kAwake;
        return m_state.compare_exchange_strong(expected, kAsleep);
    }
    bool HasDescriptor() {
        if (m_descriptor < 0)
            m_descriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
        return m_descriptor >= 0;
    }
    void SleepInFutex(const timespec* timeout) {
        if (timeout != nullptr && timeout->tv_sec == 0 && timeout->tv_nsec == 0)
            return;
        sched_yield(); // a posting thread on this processor can post more before this one sleeps
        if (FallAsleep())
            syscall(SYS_futex, &m_state, FUTEX_WAIT_PRIVATE, kAsleep, timeout, nullptr, 0);
    }
    void SleepInPoll(const timespec* timeout) {
        static constexpr timespec kNone = {};
        m_polled.push_back({m_descriptor, POLLIN, 0});
        if (!FallAsleep())
            timeout = &kNone; // poll the descriptors in any case
        if (ppoll(m_polled.data(), m_polled.size(), timeout, nullptr) <= 0)
            return;
        if (m_polled.back().revents != 0) {
            eventfd_t ignored;
            eventfd_read(m_descriptor, &ignored);
        }
        for (std::size_t i = 0; i < m_sources.size(); ++i)
            if (m_polled[i].revents != 0)
                m_sources[i]->OnPolled(m_polled[i].revents);
    }
    void Collect(Waitable& thing) {
        const std::size_t first = m_sources.size();
        {
            const std::lock_guard lock(thing.m_mutex);
            for (const std::weak_ptr<WaitSource>& each : thing.m_sources)
                if (std::shared_ptr<WaitSource> source = each.lock())
                    m_sources.push_back(std::move(source));
        }
        // Outside the lock: a source has its own lock and signals this object while holding it.
        for (std::size_t i = first; i < m_sources.size(); ++i)
            m_polled.push_back(m_sources[i]->Interest());
    }

    const DWORD m_thread = win32::GetCurrentThreadId();
    std::atomic<std::uint32_t> m_state = kAwake;
    std::atomic<bool> m_polls = false;
    int m_descriptor = -1; // created for the first poll
    std::vector<std::shared_ptr<WaitSource>> m_sources;
    std::vector<pollfd> m_polled; // the descriptors of the sources, then our own
};

namespace {

using Waiters = std::vector<std::shared_ptr<Waiter>>;

void Wake(const Waiters& sleeping) {
    for (const std::shared_ptr<Waiter>& each : sleeping)
        each->Wake();
}

} // namespace

Waiters Waitable::NotifyWaiters() {
    Waiters sleeping;
    for (const std::shared_ptr<Waiter>& each : m_waiters)
        if (each->Notify())
            sleeping.push_back(each);
    return sleeping;
}

void Waitable::Register(const std::shared_ptr<Waiter>& waiter) {
    const std::lock_guard lock(m_mutex);
    m_waiters.push_back(waiter);
}

void Waitable::Unregister(const std::shared_ptr<Waiter>& waiter) {
    const std::lock_guard lock(m_mutex);
    m_waiters.erase(std::ranges::find(m_waiters, waiter));
}

void Waitable::Signal() {
    std::unique_lock lock(m_mutex);
    if (std::exchange(m_signalled, true))
        return; // the waiting threads are awake but have not taken it yet
    const Waiters sleeping = NotifyWaiters();
    lock.unlock();
    Wake(sleeping);
}

void Waitable::Reset() {
    const std::lock_guard lock(m_mutex);
    m_signalled = false;
}

bool Waitable::Take() {
    const std::lock_guard lock(m_mutex);
    const bool signalled = m_signalled;
    if (m_autoReset)
        m_signalled = false;
    return signalled;
}

void Waitable::AddSource(std::weak_ptr<WaitSource> source) {
    std::unique_lock lock(m_mutex);
    m_sources.push_back(std::move(source));
    const Waiters sleeping = NotifyWaiters();
    lock.unlock();
    Wake(sleeping);
}

void Waitable::RemoveSource(const WaitSource& source) {
    std::unique_lock lock(m_mutex);
    std::erase_if(m_sources, [&source](const std::weak_ptr<WaitSource>& each) {
        const std::shared_ptr<WaitSource> held = each.lock();
        return held == nullptr || held.get() == &source;
    });
    const Waiters sleeping = NotifyWaiters();
    lock.unlock();
    Wake(sleeping);
}

void Waitable::WakeWaiters() {
    std::unique_lock lock(m_mutex);
    const Waiters sleeping = NotifyWaiters();
    lock.unlock();
    Wake(sleeping);
}

namespace {

using Clock = std::chrono::steady_clock;

// Registered with all of the objects during its lifetime.
class Registration {
public:
    Registration(const std::shared_ptr<Waiter>& waiter,
                 std::span<const std::shared_ptr<Waitable>> things)
        : m_waiter(waiter), m_things(things) {
        for (const std::shared_ptr<Waitable>& thing : m_things)
            thing->Register(m_waiter);
    }
    Registration(const Registration&) = delete;
    ~Registration() {
        for (const std::shared_ptr<Waitable>& thing : m_things)
            thing->Unregister(m_waiter);
    }

private:
    const std::shared_ptr<Waiter>& m_waiter;
    std::span<const std::shared_ptr<Waitable>> m_things;
};

// Returns WAIT_TIMEOUT when nothing is signalled.
DWORD TakeLowest(std::span<const std::shared_ptr<Waitable>> things) {
    for (std::size_t i = 0; i < things.size(); ++i)
        if (things[i]->Take())
            return WAIT_OBJECT_0 + static_cast<DWORD>(i);
    return WAIT_TIMEOUT;
}

timespec TimeUntil(Clock::time_point deadline) {
    const auto left = std::max(deadline - Clock::now(), Clock::duration::zero());
    const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
    return {static_cast<time_t>(seconds.count()),
            static_cast<long>(std::chrono::nanoseconds(left - seconds).count())};
}

} // namespace

DWORD WaitForAny(std::span<const std::shared_ptr<Waitable>> things, DWORD milliseconds) {
    std::optional<Clock::time_point> deadline;
    if (milliseconds != INFINITE)
        deadline = Clock::now() + std::chrono::milliseconds(milliseconds);
    DWORD result = TakeLowest(things);
    if (result != WAIT_TIMEOUT)
        return result;
    static thread_local const auto t_waiter = std::make_shared<Waiter>();
    const Registration registration(t_waiter, things);
    for (bool expired = false; !expired;) {
        t_waiter->Begin();
        if ((result = TakeLowest(things)) != WAIT_TIMEOUT)
            return result;
        timespec left;
        if (deadline) {
            left = TimeUntil(*deadline);
            expired = left.tv_sec == 0 && left.tv_nsec == 0;
        }
        if (!t_waiter->Sleep(things, deadline ? &left : nullptr)) {
            win32::SetLastError(ERROR_TOO_MANY_OPEN_FILES);
            return WAIT_FAILED;
        }
    }
    return TakeLowest(things);
}

DWORD WaitForAny(std::span<const HANDLE> handles, DWORD milliseconds) {
    std::vector<std::shared_ptr<Waitable>> things;
    things.reserve(handles.size());
    for (const HANDLE handle : handles) {
        things.push_back(FindHandle<Waitable>(handle));
        if (things.back() == nullptr)
            return WAIT_FAILED;
    }
    return WaitForAny(things, milliseconds);
}

namespace {

class Event final : public Waitable {
public:
    using Waitable::Waitable;
};

} // namespace

} // namespace quorvel

namespace quorvel::win32 {

HANDLE CreateEventW(SECURITY_ATTRIBUTES* security, BOOL manualReset, BOOL signalled, LPCWSTR name) {
    if (security != nullptr || name != nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return NewHandle(std::make_shared<Event>(!manualReset, signalled != FALSE));
}

BOOL SetEvent(HANDLE handle) {
    const std::shared_ptr<Event> event = FindHandle<Event>(handle);
    if (event == nullptr)
        return FALSE;
    event->Signal();
    return TRUE;
}

BOOL ResetEvent(HANDLE handle) {
    const std::shared_ptr<Event> event = FindHandle<Event>(handle);
    if (event == nullptr)
        return FALSE;
    event->Reset();
    return TRUE;
}

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds) {
    return WaitForAny(std::span(&handle, 1), milliseconds);
}

} // namespace quorvel::win32
