// Members of CWnd that need a screen.
#include <quorvel/framework/app.h>
#include <quorvel/framework/geometry.h>
#include <quorvel/framework/win/dc.h>
#include <quorvel/framework/win/gdi.h>
#include <quorvel/framework/win/menu.h>
#include <quorvel/framework/wnd.h>

#include "framework/system_changes.h"
#include "framework/win/child_windows.h"

#include <shellapi.h>

#include <algorithm>

namespace {

// Centres a window of this size over a rectangle and keeps it within another one. If it does not
// fit, its left and top edges have priority.
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

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
    return SubclassWindow(::GetDlgItem(SafeHwndOf(parent), static_cast<int>(id)));
}

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL deep,
                                    BOOL onlyPermanent) {
    for (const HWND child : quorvel::ChildWindows(m_hWnd)) {
        if (!onlyPermanent || FromHandlePermanent(child) != nullptr)
            ::SendMessageW(child, message, wParam, lParam);
        if (deep && ::IsWindow(child) && ::GetTopWindow(child) != nullptr)
            FromHandle(child)->SendMessageToDescendants(message, wParam, lParam, deep,
                                                        onlyPermanent);
    }
}

// Controls store colours and sizes, but the system notifies only top-level windows.
void quorvel::PassOnChange(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if ((message == WM_SYSCOLORCHANGE || message == WM_SETTINGCHANGE) && ::IsWindow(window) &&
        (::GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) == 0)
        CWnd::FromHandle(window)->SendMessageToDescendants(message, wParam, lParam, TRUE, FALSE);
}

CWnd* CWnd::GetTopLevelParent() const {
    HWND top = m_hWnd;
    for (HWND next = top; next != nullptr; next = ::GetParent(next))
        top = next;
    return FromHandle(top);
}

int CWnd::MessageBox(const WCHAR* text, const WCHAR* caption, UINT type) {
    return ::MessageBoxW(m_hWnd, text, caption != nullptr ? caption : AfxGetAppName(), type);
}

void CWnd::GetDlgItemText(int id, CString& text) const {
    const HWND item = ::GetDlgItem(m_hWnd, id);
    if (item != nullptr)
        FromHandle(item)->GetWindowText(text);
    else
        text.Empty();
}

int CWnd::GetCheckedRadioButton(int first, int last) const {
    for (int id = first; id <= last; ++id)
        if (IsDlgButtonChecked(id) != 0)
            return id;
    return 0;
}

CFont* CWnd::GetFont() const {
    return CFont::FromHandle(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
}

void CWnd::SetFont(CFont* font, BOOL redraw) {
    const HGDIOBJ handle = font != nullptr ? font->GetSafeHandle() : nullptr;
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(handle), redraw);
}

CMenu* CWnd::GetMenu() const {
    return CMenu::FromHandle(::GetMenu(m_hWnd));
}

BOOL CWnd::SetMenu(CMenu* menu) {
    return ::SetMenu(m_hWnd, menu != nullptr ? menu->m_hMenu : nullptr);
}

CMenu* CWnd::GetSystemMenu(BOOL revert) const {
    return CMenu::FromHandle(::GetSystemMenu(m_hWnd, revert));
}

CDC* CWnd::GetDC() {
    return CDC::FromHandle(::GetDC(m_hWnd));
}

CDC* CWnd::GetWindowDC() {
    return CDC::FromHandle(::GetWindowDC(m_hWnd));
}

int CWnd::ReleaseDC(CDC* dc) {
    return ::ReleaseDC(m_hWnd, dc->m_hDC);
}

CDC* CWnd::BeginPaint(PAINTSTRUCT* paint) {
    return CDC::FromHandle(::BeginPaint(m_hWnd, paint));
}

void CWnd::DragAcceptFiles(BOOL accept) {
    ::DragAcceptFiles(m_hWnd, accept);
}

BOOL CWnd::ModifyStyleOf(int which, DWORD remove, DWORD add, UINT positionFlags) {
    const DWORD style = static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, which));
    const DWORD changed = (style & ~remove) | add;
    if (changed == style)
        return FALSE;
    ::SetWindowLongPtrW(m_hWnd, which, static_cast<LONG>(changed));
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
