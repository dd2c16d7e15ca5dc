// A thread's posted messages and timers. Any thread may post and set timers; only the queue's own
// thread takes messages.
#pragma once

#include "platform/linux/waits/wait.h"

#include <chrono>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace quorvel {

class MessageQueue {
public:
    static constexpr std::size_t kCapacity = 10000; // as on Windows

    // Created on the thread's first call.
    static const std::shared_ptr<MessageQueue>& OfThisThread();

    // Returns false when the queue is full.
    bool Post(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void PostQuit(int exitCode);

    // Sets or restarts a timer. With id 0 and no window, chooses a free id.
    UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
    bool KillTimer(HWND window, UINT_PTR id);

    // Drops the messages and timers of a destroyed window.
    void Forget(HWND window);

    struct Filter {
        HWND window; // null: with or without any window
        UINT first;  // both 0: any
        UINT last;
    };
    // Posted messages are first, then WM_QUIT, then timers that are due. A timer gives one WM_TIMER
    // however many periods have passed.
    bool Take(const Filter& filter, bool remove, MSG& message);

    // Waits for a message that came after the last Take, or for one of the objects. Returns the
    // result of WaitForAny, with the message as an object after the last one.
    DWORD Wait(std::span<const std::shared_ptr<Waitable>> things, DWORD milliseconds);

private:
    using Clock = std::chrono::steady_clock;
    struct Timer {
        HWND window;
        UINT_PTR id;
        TIMERPROC procedure;
        Clock::duration period;
        Clock::time_point due;
    };

    static bool Admits(const Filter& filter, HWND window, UINT message);
    bool TakePosted(const Filter& filter, bool remove, MSG& message);
    bool TakeTimer(const Filter& filter, bool remove, MSG& message);
    DWORD UntilNextTimer();
    std::vector<Timer>::iterator FindTimer(HWND window, UINT_PTR id);

    const std::shared_ptr<Waitable> m_messageArrived = std::make_shared<Waitable>(false);
    const std::shared_ptr<Waitable> m_timerSet = std::make_shared<Waitable>(true);
    std::mutex m_mutex; // guards what follows
    std::deque<MSG> m_posted;
    std::optional<int> m_quit;
    std::vector<Timer> m_timers;
    UINT_PTR m_lastFreeId = 0;
};

} // namespace quorvel
