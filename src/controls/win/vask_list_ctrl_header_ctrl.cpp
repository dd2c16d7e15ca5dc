#include <quorvel/controls/win/vask_list_ctrl_header_ctrl.h>

#include <quorvel/controls/win/vask_list_ctrl.h>

#include <algorithm>

IMPLEMENT_DYNAMIC(CVaskListCtrlHeaderCtrl, CSortHeaderCtrl)

BEGIN_MESSAGE_MAP(CVaskListCtrlHeaderCtrl, CSortHeaderCtrl)
ON_WM_CONTEXTMENU()
ON_WM_PAINT()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

CVaskListCtrlHeaderCtrl::CVaskListCtrlHeaderCtrl() = default;

CVaskListCtrlHeaderCtrl::~CVaskListCtrlHeaderCtrl() = default;

void CVaskListCtrlHeaderCtrl::OnContextMenu(CWnd*, CPoint point) {
    CWnd* const parent = GetParent();
    if (parent == nullptr || !parent->IsKindOf(RUNTIME_CLASS(CVaskListCtrl)))
        return;
    HDHITTESTINFO test = {};
    int column = -1;
    if (point == CPoint(-1, -1)) { // opened with the keyboard
        CRect place;
        GetClientRect(place);
        if (::GetFocus() == m_hWnd) {
            column = ChosenColumn();
            test.flags = HHT_ONHEADER;
            GetItemRect(column, place);
        }
        point = CPoint(place.left, place.bottom);
        ClientToScreen(&point);
    } else {
        test.pt = point;
        ScreenToClient(&test.pt);
        column = HitTest(&test);
    }
    static_cast<CVaskListCtrl*>(parent)->OnHeaderContextMenu(column, test.flags, point);
}

// Keys

BOOL CVaskListCtrlHeaderCtrl::PreTranslateMessage(MSG* message) {
    return (message->message == WM_KEYDOWN && message->hwnd == m_hWnd &&
            TakeKey(static_cast<UINT>(message->wParam))) ||
           CSortHeaderCtrl::PreTranslateMessage(message);
}

bool CVaskListCtrlHeaderCtrl::TakeKey(UINT key) {
    if (::GetKeyState(VK_CONTROL) < 0)
        return false;
    HDITEMW item = {};
    item.mask = HDI_ORDER;
    GetItem(ChosenColumn(), &item);
    switch (key) {
    case VK_LEFT:
        Choose(item.iOrder - 1);
        return true;
    case VK_RIGHT:
        Choose(item.iOrder + 1);
        return true;
    case VK_HOME:
        Choose(0);
        return true;
    case VK_END:
        Choose(GetItemCount() - 1);
        return true;
    case VK_SPACE:
        ClickChosenColumn();
        return true;
    case VK_TAB:
        if (::GetKeyState(VK_SHIFT) < 0)
            return false; // the list handles it
        [[fallthrough]];
    case VK_DOWN:
        GetParent()->SetFocus();
        return true;
    default:
        return false;
    }
}

int CVaskListCtrlHeaderCtrl::ChosenColumn() const {
    return std::min(m_chosenColumn, GetItemCount() - 1);
}

void CVaskListCtrlHeaderCtrl::Choose(int displayPosition) {
    if (displayPosition < 0 || displayPosition >= GetItemCount())
        return;
    m_chosenColumn = OrderToIndex(displayPosition);
    Invalidate();
    // The header is as wide as its columns and moves when the list is scrolled.
    CWnd& list = *GetParent();
    CRect place;
    CRect view;
    GetItemRect(m_chosenColumn, place);
    list.GetClientRect(view);
    ::MapWindowPoints(m_hWnd, list.m_hWnd, reinterpret_cast<POINT*>(&place), 2);
    const int beyond = place.left < 0 ? static_cast<int>(place.left)
                                      : std::min(std::max<int>(place.right - view.right, 0),
                                                 static_cast<int>(place.left));
    if (beyond != 0)
        list.SendMessage(LVM_SCROLL, static_cast<WPARAM>(beyond));
}

// Sends the header's own click notification, so that the list sorts and its parent is notified.
void CVaskListCtrlHeaderCtrl::ClickChosenColumn() {
    NMHEADERW click = {};
    click.hdr = {m_hWnd, static_cast<UINT_PTR>(GetDlgCtrlID()), static_cast<UINT>(HDN_ITEMCLICKW)};
    click.iItem = ChosenColumn();
    GetParent()->SendMessage(WM_NOTIFY, click.hdr.idFrom, reinterpret_cast<LPARAM>(&click));
}

void CVaskListCtrlHeaderCtrl::OnPaint() {
    CSortHeaderCtrl::OnPaint();
    CRect rect;
    if (::GetFocus() != m_hWnd || !GetItemRect(ChosenColumn(), rect))
        return;
    ::InflateRect(rect, -2, -2);
    CClientDC dc(this);
    dc.SetTextColor(::GetSysColor(COLOR_BTNTEXT)); // the rectangle has two colours
    dc.SetBkColor(::GetSysColor(COLOR_BTNFACE));
    dc.DrawFocusRect(rect);
}

void CVaskListCtrlHeaderCtrl::OnSetFocus(CWnd* former) {
    CSortHeaderCtrl::OnSetFocus(former);
    Invalidate();
}

void CVaskListCtrlHeaderCtrl::OnKillFocus(CWnd* next) {
    CSortHeaderCtrl::OnKillFocus(next);
    Invalidate();
}
