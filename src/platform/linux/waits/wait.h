// Objects that threads wait for, and the single wait behind all blocking operations. Any thread.
//
// A thread that waits for objects with descriptors polls these descriptors itself, together with an
// eventfd that each change of an object makes readable. No helper thread exists. Without
// descriptors the thread sleeps in a futex, which is cheaper for both sides.
#pragma once

#include "platform/linux/waits/handle.h"

#include <poll.h>

#include <memory>
#include <mutex>
#include <span>
#include <vector>

namespace quorvel {

class Waiter;

// A descriptor that signals a Waitable. Only waiting threads poll it.
class WaitSource {
public:
    WaitSource() = default;
    WaitSource(const WaitSource&) = delete;
    WaitSource& operator=(const WaitSource&) = delete;
    virtual ~WaitSource() = default;

    // The events to poll for; a descriptor of -1 means nothing. Stays open while the source exists.
    virtual pollfd Interest() = 0;
    // Handles the result of the poll.
    virtual void OnPolled(short conditions) = 0;
};

class Waitable : public HandleObject {
public:
    explicit Waitable(bool autoReset, bool signalled = false)
        : m_autoReset(autoReset), m_signalled(signalled) {}

    void Signal();
    void Reset();
    // Whether it is signalled. Resets an auto-reset object.
    bool Take();

    // Not owned. A source unregisters before it is destroyed.
    void AddSource(std::weak_ptr<WaitSource> source);
    void RemoveSource(const WaitSource& source);
    // Call this when a source's interest has grown.
    void WakeWaiters();

    // Between the two calls the waiter is notified of every change.
    void Register(const std::shared_ptr<Waiter>& waiter);
    void Unregister(const std::shared_ptr<Waiter>& waiter);

private:
    friend class Waiter;

    // Returns the sleeping waiters. The caller holds the lock and wakes them after releasing it;
    // otherwise they would wake and wait for it.
    [[nodiscard]] std::vector<std::shared_ptr<Waiter>> NotifyWaiters();

    const bool m_autoReset;
    std::mutex m_mutex; // guards what follows
    bool m_signalled;
    std::vector<std::shared_ptr<Waiter>> m_waiters;
    std::vector<std::weak_ptr<WaitSource>> m_sources;
};

// Waits until one of the objects is signalled and takes it. Returns WAIT_OBJECT_0 plus the lowest
// signalled index, WAIT_TIMEOUT, or WAIT_FAILED when the thread cannot create an eventfd. A
// time-out of 0 polls once.
DWORD WaitForAny(std::span<const std::shared_ptr<Waitable>> things, DWORD milliseconds);

// The same for handles. WAIT_FAILED also for a handle that cannot be waited for.
DWORD WaitForAny(std::span<const HANDLE> handles, DWORD milliseconds);

} // namespace quorvel

namespace quorvel::win32 {

// Creates an event. Names are not supported: the name and the attributes must be null (87).
HANDLE CreateEventW(SECURITY_ATTRIBUTES* security, BOOL manualReset, BOOL signalled, LPCWSTR name);
BOOL SetEvent(HANDLE event);
BOOL ResetEvent(HANDLE event);

// For events and threads.
DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds);

} // namespace quorvel::win32
