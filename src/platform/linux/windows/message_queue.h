// A thread's posted messages and timers. Any thread may post and set timers; the queue's own thread
// alone takes messages from it.
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

    // Made when the thread first asks.
    static const std::shared_ptr<MessageQueue>& OfThisThread();

    // False when the queue is full.
    bool Post(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void PostQuit(int exitCode);

    // Sets a timer or starts it anew. An id of 0 without a window stands for one that is free.
    UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
    bool KillTimer(HWND window, UINT_PTR id);

    // Drops what waits for a window that is gone.
    void Forget(HWND window);

    struct Filter {
        HWND window; // null: any, and none
        UINT first;  // both 0: any
        UINT last;
    };
    // Posted messages come first, then the end, then timers that are due: WM_TIMER comes once for
    // however long it was not asked for.
    bool Take(const Filter& filter, bool remove, MSG& message);

    // Waits for a message that came after the last Take, or for one of the things. The result is
    // WaitForAny's, where the message counts as the last of the things.
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

    const std::shared_ptr<Waitable> m_news = std::make_shared<Waitable>(false);
    const std::shared_ptr<Waitable> m_timerSet = std::make_shared<Waitable>(true);
    std::mutex m_mutex; // guards what follows
    std::deque<MSG> m_posted;
    std::optional<int> m_quit;
    std::vector<Timer> m_timers;
    UINT_PTR m_lastFreeId = 0;
};

} // namespace quorvel
