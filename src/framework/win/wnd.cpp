// The members of CWnd that need a screen.
#include <quorvel/framework/geometry.h>
#include <quorvel/framework/win/gdi.h>
#include <quorvel/framework/wnd.h>

#include <algorithm>

namespace {

// Where a window of that size lies centred over a rectangle, as far as it then stays within
// another; its left and top edges win.
CPoint CentredWithin(CSize size, const CRect& over, const CRect& within) {
    const auto place = [](LONG length, LONG low, LONG high, LONG first, LONG last) {
        return std::max(first, std::min(low + (high - low - length) / 2, last - length));
    };
    return {place(size.cx, over.left, over.right, within.left, within.right),
            place(size.cy, over.top, over.bottom, within.top, within.bottom)};
}

CRect WorkAreaOf(HWND window) {
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

} // namespace

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::PostMessageW(m_hWnd, message, wParam, lParam);
}

void CWnd::GetClientRect(RECT* rect) const {
    ::GetClientRect(m_hWnd, rect);
}

void CWnd::GetWindowRect(RECT* rect) const {
    ::GetWindowRect(m_hWnd, rect);
}

void CWnd::MoveWindow(const RECT& rect, BOOL repaint) {
    ::MoveWindow(m_hWnd, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                 repaint);
}

BOOL CWnd::SetWindowPos(const CWnd* insertAfter, int x, int y, int width, int height, UINT flags) {
    return ::SetWindowPos(m_hWnd, insertAfter != nullptr ? insertAfter->m_hWnd : nullptr, x, y,
                          width, height, flags);
}

BOOL CWnd::ShowWindow(int command) {
    return ::ShowWindow(m_hWnd, command);
}

BOOL CWnd::EnableWindow(BOOL enable) {
    return ::EnableWindow(m_hWnd, enable);
}

BOOL CWnd::IsWindowVisible() const {
    return ::IsWindowVisible(m_hWnd);
}

void CWnd::Invalidate(BOOL erase) {
    ::InvalidateRect(m_hWnd, nullptr, erase);
}

CWnd* CWnd::SetFocus() {
    return FromHandle(::SetFocus(m_hWnd));
}

CWnd* CWnd::GetDlgItem(int id) const {
    return FromHandle(::GetDlgItem(m_hWnd, id));
}

CFont* CWnd::GetFont() const {
    return CFont::FromHandle(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
}

void CWnd::SetFont(CFont* font, BOOL redraw) {
    const HGDIOBJ handle = font != nullptr ? font->GetSafeHandle() : nullptr;
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(handle), redraw);
}

void CWnd::ScreenToClient(RECT* rect) const {
    // Both corners in one call, so that a mirrored window's edges are not swapped.
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(rect), 2);
}

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT positionFlags) {
    const DWORD style = GetStyle();
    const DWORD changed = (style & ~remove) | add;
    if (changed == style)
        return FALSE;
    ::SetWindowLongPtrW(m_hWnd, GWL_STYLE, static_cast<LONG>(changed));
    if (positionFlags != 0)
        ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                       SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | positionFlags);
    return TRUE;
}

void CWnd::CenterWindow() {
    const bool child = (GetStyle() & WS_CHILD) != 0;
    const HWND around = child ? ::GetParent(m_hWnd) : ::GetWindow(m_hWnd, GW_OWNER);
    CRect rect;
    GetWindowRect(rect);
    CRect over;
    CRect within;
    if (child) {
        ::GetClientRect(around, over);
        within = CRect(LONG_MIN / 2, LONG_MIN / 2, LONG_MAX / 2, LONG_MAX / 2);
    } else {
        const bool overOwner =
            around != nullptr && ::IsWindowVisible(around) && !::IsIconic(around);
        within = WorkAreaOf(overOwner ? around : m_hWnd);
        over = within;
        if (overOwner)
            ::GetWindowRect(around, over);
    }
    const CPoint place = CentredWithin(rect.Size(), over, within);
    SetWindowPos(nullptr, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}
