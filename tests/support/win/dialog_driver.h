// Drives a modal dialog, property sheet or message box from inside its message loop.
#pragma once

#include <quorvel/framework/wnd.h>

#include "support/window_driver.h"

#include <functional>
#include <vector>

// While it exists, calls the steps one by one, each with the frontmost visible dialog box of the
// thread, after all messages of the previous step were handled. A dialog that is still open long
// after the last step is ended with -99: a test fails and does not hang.
class DialogDriver {
public:
    typedef std::function<void(HWND)> Step;

    explicit DialogDriver(std::vector<Step> steps) : m_steps(std::move(steps)) {
        Current() = this;
        m_timer = ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Tick);
    }
    DialogDriver(const DialogDriver&) = delete;
    ~DialogDriver() {
        ::KillTimer(nullptr, m_timer);
        Current() = nullptr;
    }

    bool HasRun() const { return m_next == m_steps.size(); }
    // For use in a step: calls the step again, unless this has taken too long.
    static void Repeat() {
        if (++Current()->m_waited <= kPatience)
            --Current()->m_next;
    }

private:
    static constexpr int kPatience = 500; // ticks

    static DialogDriver*& Current() {
        static DialogDriver* s_current = nullptr;
        return s_current;
    }
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        const HWND box = FindVisibleBox();
        if (box == nullptr)
            return;
        if (Current()->m_next < Current()->m_steps.size())
            Current()->m_steps[Current()->m_next++](box);
        else if (++Current()->m_waited <= kPatience)
            return;
        else if (CWnd* const wnd = CWnd::FromHandlePermanent(box))
            wnd->EndModalLoop(-99);
        else // a message box
            ::EndDialog(box, -99);
    }

    const std::vector<Step> m_steps;
    std::size_t m_next = 0;
    int m_waited = 0;
    UINT_PTR m_timer;
};

// The steps of a row in a table.
template <class... Step>
std::vector<DialogDriver::Step> Steps(Step... steps) {
    return {std::move(steps)...};
}

inline DialogDriver::Step WaitUntil(std::function<bool()> condition) {
    return [condition = std::move(condition)](HWND) {
        if (!condition())
            DialogDriver::Repeat();
    };
}

// The window in the dialog that receives its keys; after a control is disabled, the dialog.
inline HWND KeyboardOf(HWND box) {
    return ::GetFocus() != nullptr ? ::GetFocus() : box;
}
// Presses a key. The message comes through the thread's queue, so it is pre-translated.
inline DialogDriver::Step Press(UINT key) {
    return [key](HWND box) { ::PostMessageW(KeyboardOf(box), WM_KEYDOWN, key, 1); };
}
// Presses a key with VK_CONTROL or VK_SHIFT, which counts as pressed during pre-translation.
inline DialogDriver::Step PressWith(int modifier, UINT key) {
    return [modifier, key](HWND box) {
        BYTE keys[256];
        ::GetKeyboardState(keys);
        keys[modifier] = 0x80;
        ::SetKeyboardState(keys);
        MSG message = {KeyboardOf(box), WM_KEYDOWN, key, 1, 0, {}};
        CWnd::WalkPreTranslateTree(box, &message);
        keys[modifier] = 0;
        ::SetKeyboardState(keys);
    };
}
inline DialogDriver::Step ClickOn(int id) {
    return [id](HWND box) { Click(box, id); };
}
