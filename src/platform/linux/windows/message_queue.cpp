#include "platform/linux/windows/message_queue.h"

#include <quorvel/platform/linux_api.h>

#include <algorithm>

namespace quorvel {

namespace {

DWORD Milliseconds(std::chrono::steady_clock::time_point time) {
    return static_cast<DWORD>(
        std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count());
}

} // namespace

const std::shared_ptr<MessageQueue>& MessageQueue::OfThisThread() {
    static thread_local const auto t_queue = std::make_shared<MessageQueue>();
    return t_queue;
}

bool MessageQueue::Post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    std::unique_lock lock(m_mutex);
    if (m_posted.size() >= kCapacity)
        return false;
    m_posted.push_back({window, message, wParam, lParam, Milliseconds(Clock::now()), {}});
    lock.unlock(); // otherwise the owner would wake and wait for the lock
    m_messageArrived->Signal();
    return true;
}

void MessageQueue::PostQuit(int exitCode) {
    const std::lock_guard lock(m_mutex);
    m_quit = exitCode;
    m_messageArrived->Signal();
}

std::vector<MessageQueue::Timer>::iterator MessageQueue::FindTimer(HWND window, UINT_PTR id) {
    return std::ranges::find_if(m_timers, [window, id](const Timer& timer) {
        return timer.window == window && timer.id == id;
    });
}

UINT_PTR MessageQueue::SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
    const auto period =
        std::chrono::milliseconds(std::clamp(milliseconds, USER_TIMER_MINIMUM, 0x7fffffffu));
    const std::lock_guard lock(m_mutex);
    auto timer = FindTimer(window, id);
    if (window == nullptr && timer == m_timers.end()) {
        do
            id = ++m_lastFreeId;
        while (id == 0 || FindTimer(nullptr, id) != m_timers.end());
    }
    if (timer == m_timers.end())
        timer = m_timers.insert(timer, Timer{window, id, nullptr, {}, {}});
    timer->procedure = procedure;
    timer->period = period;
    timer->due = Clock::now() + period;
    m_timerSet->Signal();
    return id != 0 ? id : 1;
}

bool MessageQueue::KillTimer(HWND window, UINT_PTR id) {
    const std::lock_guard lock(m_mutex);
    const auto timer = FindTimer(window, id);
    if (timer == m_timers.end())
        return false;
    m_timers.erase(timer);
    return true;
}

void MessageQueue::Forget(HWND window) {
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_posted, [window](const MSG& message) { return message.hwnd == window; });
    std::erase_if(m_timers, [window](const Timer& timer) { return timer.window == window; });
}

bool MessageQueue::Admits(const Filter& filter, HWND window, UINT message) {
    return (filter.window == nullptr || filter.window == window) &&
           ((filter.first == 0 && filter.last == 0) ||
            (filter.first <= message && message <= filter.last));
}

bool MessageQueue::TakePosted(const Filter& filter, bool remove, MSG& message) {
    const auto found = std::ranges::find_if(
        m_posted, [&filter](const MSG& each) { return Admits(filter, each.hwnd, each.message); });
    if (found == m_posted.end())
        return false;
    message = *found;
    if (remove)
        m_posted.erase(found);
    return true;
}

bool MessageQueue::TakeTimer(const Filter& filter, bool remove, MSG& message) {
    const Clock::time_point now = Clock::now();
    Timer* next = nullptr;
    for (Timer& timer : m_timers)
        if (timer.due <= now && Admits(filter, timer.window, WM_TIMER) &&
            (next == nullptr || timer.due < next->due))
            next = &timer;
    if (next == nullptr)
        return false;
    message = {next->window,      WM_TIMER, next->id, reinterpret_cast<LPARAM>(next->procedure),
               Milliseconds(now), {}};
    if (remove)
        next->due = now + next->period;
    return true;
}

bool MessageQueue::Take(const Filter& filter, bool remove, MSG& message) {
    const std::lock_guard lock(m_mutex);
    m_messageArrived->Reset();
    if (TakePosted(filter, remove, message))
        return true;
    if (m_quit) { // whatever the filter
        message = {nullptr, WM_QUIT, static_cast<WPARAM>(*m_quit), 0, Milliseconds(Clock::now()),
                   {}};
        if (remove)
            m_quit.reset();
        return true;
    }
    return TakeTimer(filter, remove, message);
}

DWORD MessageQueue::UntilNextTimer() {
    const std::lock_guard lock(m_mutex);
    if (m_timers.empty())
        return INFINITE;
    const auto next = std::ranges::min_element(m_timers, {}, &Timer::due);
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(next->due - Clock::now());
    return left.count() > 0 ? static_cast<DWORD>(left.count()) : 0;
}

DWORD MessageQueue::Wait(std::span<const std::shared_ptr<Waitable>> things, DWORD milliseconds) {
    std::vector<std::shared_ptr<Waitable>> all(things.begin(), things.end());
    all.push_back(m_messageArrived);
    all.push_back(m_timerSet);
    const Clock::time_point start = Clock::now();
    for (;;) {
        const auto passed = std::chrono::floor<std::chrono::milliseconds>(Clock::now() - start);
        const DWORD left = milliseconds == INFINITE ? INFINITE
                           : passed.count() < milliseconds
                               ? milliseconds - static_cast<DWORD>(passed.count())
                               : 0;
        const DWORD timer = UntilNextTimer();
        const DWORD result = WaitForAny(all, std::min(left, timer));
        if (result == WAIT_OBJECT_0 + all.size() - 1)
            continue; // compute the time until the next timer again
        if (result != WAIT_TIMEOUT)
            return result;
        if (UntilNextTimer() == 0)
            return WAIT_OBJECT_0 + static_cast<DWORD>(things.size());
        if (left <= timer && left != INFINITE)
            return WAIT_TIMEOUT;
    }
}

} // namespace quorvel

namespace quorvel::win32 {

namespace {

BOOL Take(MSG* message, HWND window, UINT first, UINT last, bool remove) {
    return MessageQueue::OfThisThread()->Take({window, first, last}, remove, *message);
}

} // namespace

BOOL PeekMessageW(MSG* message, HWND window, UINT first, UINT last, UINT remove) {
    if (window != nullptr && !IsWindow(window))
        return FALSE;
    return Take(message, window, first, last, (remove & PM_REMOVE) != 0);
}

BOOL GetMessageW(MSG* message, HWND window, UINT first, UINT last) {
    while (window == nullptr || IsWindow(window)) {
        if (Take(message, window, first, last, true))
            return message->message != WM_QUIT;
        if (MessageQueue::OfThisThread()->Wait({}, INFINITE) == WAIT_FAILED)
            return -1;
    }
    return -1;
}

LRESULT DispatchMessageW(const MSG* message) {
    if (message->message == WM_TIMER && message->lParam != 0) {
        const auto procedure = reinterpret_cast<TIMERPROC>(message->lParam);
        procedure(message->hwnd, WM_TIMER, message->wParam, message->time);
        return 0;
    }
    return message->hwnd != nullptr
               ? SendMessageW(message->hwnd, message->message, message->wParam, message->lParam)
               : 0;
}

void PostQuitMessage(int exitCode) {
    MessageQueue::OfThisThread()->PostQuit(exitCode);
}

DWORD MsgWaitForMultipleObjects(DWORD count, const HANDLE* handles, BOOL all, DWORD milliseconds,
                                DWORD wakeMask) {
    if (all || wakeMask != QS_ALLINPUT) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return WAIT_FAILED;
    }
    std::vector<std::shared_ptr<Waitable>> things;
    for (DWORD i = 0; i < count; ++i) {
        things.push_back(FindHandle<Waitable>(handles[i]));
        if (things.back() == nullptr)
            return WAIT_FAILED;
    }
    return MessageQueue::OfThisThread()->Wait(things, milliseconds);
}

} // namespace quorvel::win32
