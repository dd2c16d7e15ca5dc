// What threads wait for, and the one wait under every operation that blocks. Any thread.
//
// A thread that waits for things with descriptors behind them polls those itself, and one of its
// own that becomes readable with every change of what it waits for; no other thread watches them
// for it. Without any it sleeps in a futex, which costs less on both sides.
#pragma once

#include "platform/linux/waits/handle.h"

#include <poll.h>

#include <memory>
#include <mutex>
#include <span>
#include <vector>

namespace quorvel {

class Waiter;

// A descriptor that signals a Waitable, as far as a waiting thread looks at it.
class WaitSource {
public:
    WaitSource() = default;
    WaitSource(const WaitSource&) = delete;
    WaitSource& operator=(const WaitSource&) = delete;
    virtual ~WaitSource() = default;

    // What to poll; a descriptor of -1 for nothing. It stays open for as long as the source lives.
    virtual pollfd Interest() = 0;
    // The result of polling it.
    virtual void Notice(short conditions) = 0;
};

class Waitable : public HandleObject {
public:
    explicit Waitable(bool autoReset, bool signalled = false)
        : m_autoReset(autoReset), m_signalled(signalled) {}

    void Signal();
    void Reset();
    // Whether it is signalled; an auto-reset one is reset by it.
    bool Take();

    // Not owned: a source leaves before it goes.
    void AddSource(std::weak_ptr<WaitSource> source);
    void RemoveSource(const WaitSource& source);
    // To be called when a source's interest has grown.
    void WakeWaiters();

    // A waiter is told of every change between the two.
    void Enter(const std::shared_ptr<Waiter>& waiter);
    void Leave(const std::shared_ptr<Waiter>& waiter);

private:
    friend class Waiter;

    // Gives those who sleep. The lock is held; they are roused after it, or they would wake only to
    // wait for it.
    [[nodiscard]] std::vector<std::shared_ptr<Waiter>> TellWaiters();

    const bool m_autoReset;
    std::mutex m_mutex; // guards what follows
    bool m_signalled;
    std::vector<std::shared_ptr<Waiter>> m_waiters;
    std::vector<std::weak_ptr<WaitSource>> m_sources;
};

// Waits until one of the things is signalled and takes it. WAIT_OBJECT_0 and the lowest index of
// those signalled; WAIT_TIMEOUT; WAIT_FAILED when the thread can have no descriptor of its own. A
// time-out of 0 polls once.
DWORD WaitForAny(std::span<const std::shared_ptr<Waitable>> things, DWORD milliseconds);

// The same for handles; WAIT_FAILED also for one that cannot be waited for.
DWORD WaitForAny(std::span<const HANDLE> handles, DWORD milliseconds);

} // namespace quorvel

namespace quorvel::win32 {

// Events without a name: the name and the attributes must be null (87).
HANDLE CreateEventW(SECURITY_ATTRIBUTES* security, BOOL manualReset, BOOL signalled, LPCWSTR name);
BOOL SetEvent(HANDLE event);
BOOL ResetEvent(HANDLE event);

// For events and threads.
DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds);

} // namespace quorvel::win32
