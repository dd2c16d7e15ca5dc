#include "platform/win32.h"

#include "platform/linux/system_error.h"
#include "platform/linux/wait.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <optional>
#include <utility>

namespace quorvel {

// The calling thread's part in its waits. It is entered with everything the thread waits for
// before that is looked at, so a change in between is not missed.
class Waiter {
public:
    Waiter() : m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}
    Waiter(const Waiter&) = delete;
    ~Waiter() {
        if (IsValid())
            close(m_descriptor);
    }
    bool IsValid() const { return m_descriptor >= 0; }

    // Its own thread is awake: what a look at a descriptor signals is seen by the wait that looks.
    void Wake() {
        if (m_thread != win32::GetCurrentThreadId()) [[maybe_unused]]
            const int ignored = eventfd_write(m_descriptor, 1);
    }

    void Enter(Waitable& thing) {
        const std::lock_guard lock(thing.m_mutex);
        thing.m_waiters.push_back(this);
    }
    void Leave(Waitable& thing) {
        const std::lock_guard lock(thing.m_mutex);
        thing.m_waiters.erase(std::ranges::find(thing.m_waiters, this));
    }

    // Sleeps until something may have changed, `timeout` at the most (null: without limit).
    void Sleep(std::span<const std::shared_ptr<Waitable>> things, const timespec* timeout) {
        m_polled.assign(1, {m_descriptor, POLLIN, 0});
        m_sources.clear();
        for (const std::shared_ptr<Waitable>& thing : things)
            Collect(*thing);
        const int ready = ppoll(m_polled.data(), m_polled.size(), timeout, nullptr);
        if (ready > 0) {
            if (m_polled[0].revents != 0) {
                eventfd_t ignored;
                eventfd_read(m_descriptor, &ignored);
            }
            for (std::size_t i = 0; i < m_sources.size(); ++i)
                if (m_polled[i + 1].revents != 0)
                    m_sources[i]->Notice(m_polled[i + 1].revents);
        }
        m_sources.clear(); // lets go of what another thread may be closing
    }

private:
    void Collect(Waitable& thing) {
        const std::size_t first = m_sources.size();
        {
            const std::lock_guard lock(thing.m_mutex);
            for (const std::weak_ptr<WaitSource>& each : thing.m_sources)
                if (std::shared_ptr<WaitSource> source = each.lock())
                    m_sources.push_back(std::move(source));
        }
        // Outside the lock: a source has its own, and signals this thing under it.
        for (std::size_t i = first; i < m_sources.size(); ++i)
            m_polled.push_back(m_sources[i]->Interest());
    }

    const int m_descriptor;
    const DWORD m_thread = win32::GetCurrentThreadId();
    std::vector<std::shared_ptr<WaitSource>> m_sources;
    std::vector<pollfd> m_polled; // the own descriptor, then those of the sources
};

void Waitable::Signal() {
    const std::lock_guard lock(m_mutex);
    if (std::exchange(m_signalled, true))
        return; // who waits is awake already and has not taken it yet
    for (Waiter* const waiter : m_waiters)
        waiter->Wake();
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
    const std::lock_guard lock(m_mutex);
    m_sources.push_back(std::move(source));
    for (Waiter* const waiter : m_waiters)
        waiter->Wake();
}

void Waitable::RemoveSource(const WaitSource& source) {
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_sources, [&source](const std::weak_ptr<WaitSource>& each) {
        const std::shared_ptr<WaitSource> held = each.lock();
        return held == nullptr || held.get() == &source;
    });
    for (Waiter* const waiter : m_waiters)
        waiter->Wake();
}

void Waitable::WakeWaiters() {
    const std::lock_guard lock(m_mutex);
    for (Waiter* const waiter : m_waiters)
        waiter->Wake();
}

namespace {

using Clock = std::chrono::steady_clock;

// Entered with all of the things for as long as it lives.
class Attendance {
public:
    Attendance(Waiter& waiter, std::span<const std::shared_ptr<Waitable>> things)
        : m_waiter(waiter), m_things(things) {
        for (const std::shared_ptr<Waitable>& thing : m_things)
            m_waiter.Enter(*thing);
    }
    Attendance(const Attendance&) = delete;
    ~Attendance() {
        for (const std::shared_ptr<Waitable>& thing : m_things)
            m_waiter.Leave(*thing);
    }

private:
    Waiter& m_waiter;
    std::span<const std::shared_ptr<Waitable>> m_things;
};

// WAIT_TIMEOUT when none is signalled.
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
    static thread_local Waiter t_waiter;
    if (!t_waiter.IsValid()) {
        win32::SetLastError(ERROR_TOO_MANY_OPEN_FILES);
        return WAIT_FAILED;
    }
    const Attendance attendance(t_waiter, things);
    for (bool expired = false; !expired;) {
        if ((result = TakeLowest(things)) != WAIT_TIMEOUT)
            return result;
        timespec left;
        if (deadline) {
            left = TimeUntil(*deadline);
            expired = left.tv_sec == 0 && left.tv_nsec == 0;
        }
        t_waiter.Sleep(things, deadline ? &left : nullptr);
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
