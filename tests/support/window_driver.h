// Windows and their parts, seen from outside. Windows only.
#pragma once

#include <quorvel/framework/geometry.h>
#include <quorvel/framework/string.h>

#include <vector>

// A visible dialog box of this thread, or null.
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

inline CRect ScreenPlaceOf(HWND window) {
    CRect rect;
    ::GetWindowRect(window, rect);
    return rect;
}

inline LOGFONTW FontOf(HWND control) {
    LOGFONTW font = {};
    ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(control, WM_GETFONT, 0, 0)), sizeof font,
                 &font);
    return font;
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
