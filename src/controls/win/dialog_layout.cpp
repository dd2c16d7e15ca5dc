#include <quorvel/controls/win/dialog_layout.h>

#include <quorvel/framework/geometry.h>

#include <algorithm>

BOOL CDialogLayout::Attach(CWnd& dialog, std::initializer_list<Control> controls) {
    if (dialog.m_hWnd == nullptr)
        return FALSE;
    std::vector<Place> places;
    for (const Control& control : controls) {
        const HWND window = ::GetDlgItem(dialog.m_hWnd, control.id);
        if (window == nullptr)
            continue;
        CRect rect;
        ::GetWindowRect(window, rect);
        dialog.ScreenToClient(rect);
        places.push_back({control, window, rect});
    }
    CRect window, client;
    dialog.GetWindowRect(window);
    dialog.GetClientRect(client);
    m_dialog = dialog.m_hWnd;
    m_places.swap(places);
    m_client = client.Size();
    m_window = window.Size();
    return TRUE;
}

void CDialogLayout::OnSize(UINT type) {
    CRect client;
    if (m_dialog == nullptr || type == SIZE_MINIMIZED || !::GetClientRect(m_dialog, client))
        return;
    const int wider = std::max<int>(client.Width() - m_client.cx, 0);
    const int higher = std::max<int>(client.Height() - m_client.cy, 0);
    HDWP positions = ::BeginDeferWindowPos(static_cast<int>(m_places.size()));
    for (const auto& [control, window, rect] : m_places) {
        const int left = rect.left + ::MulDiv(wider, control.left, 100);
        const int top = rect.top + ::MulDiv(higher, control.top, 100);
        const int right = rect.right + ::MulDiv(wider, control.right, 100);
        const int bottom = rect.bottom + ::MulDiv(higher, control.bottom, 100);
        if (positions != nullptr)
            positions =
                ::DeferWindowPos(positions, window, nullptr, left, top, right - left, bottom - top,
                                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
    }
    if (positions != nullptr)
        ::EndDeferWindowPos(positions);
    // Static texts that grew draw what they had, and what they left is not theirs to erase.
    ::InvalidateRect(m_dialog, nullptr, TRUE);
}

void CDialogLayout::OnGetMinMaxInfo(MINMAXINFO* info) const {
    if (m_dialog != nullptr)
        info->ptMinTrackSize = {m_window.cx, m_window.cy};
}
