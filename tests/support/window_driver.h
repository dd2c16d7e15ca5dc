// Drives a modal box from inside its own message loop. Windows only.
#pragma once

#include <quorvel/framework/geometry.h>
#include <quorvel/framework/string.h>

#include <functional>
#include <utility>
#include <vector>

// A visible dialog box of this thread; null when there is none.
inline HWND FindVisibleBox() {
    HWND box = nullptr;
    const auto find = [](HWND window, LPARAM found) CALLBACK -> BOOL {
        WCHAR className[8];
        ::GetClassNameW(window, className, 8);
        if (CString(className) != _T("#32770") || !::IsWindowVisible(window))
            return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    };
    ::EnumThreadWindows(::GetCurrentThreadId(), find, reinterpret_cast<LPARAM>(&box));
    return box;
}

// While it lives, calls `act` once with the first dialog box that the thread shows, when the box
// is visible and its loop runs. A box that `act` leaves open is ended with result -1, so that a
// test fails rather than hangs.
class BoxDriver {
public:
    explicit BoxDriver(std::function<void(HWND)> act) : m_act(std::move(act)) {
        Current() = this;
        m_timer = ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Tick);
    }
    BoxDriver(const BoxDriver&) = delete;
    ~BoxDriver() {
        Stop();
        Current() = nullptr;
    }

    bool HasRun() const { return m_hasRun; }

private:
    static BoxDriver*& Current() {
        static BoxDriver* s_current = nullptr; // the callback of a timer carries nothing of ours
        return s_current;
    }
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        const HWND box = FindVisibleBox();
        BoxDriver* const driver = Current();
        if (box == nullptr || driver == nullptr || std::exchange(driver->m_hasRun, true))
            return;
        driver->Stop();
        driver->m_act(box);
        if (::IsWindowVisible(box)) // not one that is ending
            ::EndDialog(box, -1);
    }
    void Stop() {
        if (m_timer != 0)
            ::KillTimer(nullptr, std::exchange(m_timer, 0));
    }

    std::function<void(HWND)> m_act;
    UINT_PTR m_timer;
    bool m_hasRun = false;
};

inline std::vector<HWND> ChildrenOf(HWND window) {
    std::vector<HWND> children;
    for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

// In the client coordinates of its parent.
inline CRect PlaceOf(HWND child) {
    CRect rect;
    ::GetWindowRect(child, rect);
    ::MapWindowPoints(nullptr, ::GetParent(child), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

inline CString TextOf(HWND window) {
    CString text;
    const int length = ::GetWindowTextLengthW(window);
    ::GetWindowTextW(window, text.GetBuffer(length), length + 1);
    text.ReleaseBuffer();
    return text;
}

inline void Click(HWND box, int id) {
    ::SendMessageW(::GetDlgItem(box, id), BM_CLICK, 0, 0);
}
