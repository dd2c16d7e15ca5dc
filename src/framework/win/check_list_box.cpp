#include <quorvel/framework/win/check_list_box.h>

#include <quorvel/framework/win/message_map.h>

#include <uxtheme.h>
#include <vssym32.h>

#include <algorithm>
#include <cstddef>

IMPLEMENT_DYNAMIC(CCheckListBox, CListBox)

BEGIN_MESSAGE_MAP(CCheckListBox, CListBox)
ON_WM_DRAWITEM_REFLECT()
ON_WM_MEASUREITEM_REFLECT()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_KEYDOWN()
ON_WM_CHAR()
END_MESSAGE_MAP()

CCheckListBox::CCheckListBox() = default;

namespace {

class ButtonTheme {
public:
    // Null when the control is drawn without a theme.
    explicit ButtonTheme(HWND control)
        : m_theme(::GetWindowTheme(control) != nullptr ? ::OpenThemeData(nullptr, L"BUTTON")
                                                       : nullptr) {}
    ButtonTheme(const ButtonTheme&) = delete;
    ~ButtonTheme() {
        if (m_theme != nullptr)
            ::CloseThemeData(m_theme);
    }
    explicit operator bool() const { return m_theme != nullptr; }

    // Draws a check box centred in a rectangle.
    void DrawCheckBox(HDC dc, const CRect& place, int check, bool enabled) const {
        constexpr int kStatesOfACheck = CBS_CHECKEDNORMAL - CBS_UNCHECKEDNORMAL;
        const int state =
            (enabled ? CBS_UNCHECKEDNORMAL : CBS_UNCHECKEDDISABLED) + kStatesOfACheck * check;
        SIZE size = {place.Width(), place.Height()};
        ::GetThemePartSize(m_theme, dc, BP_CHECKBOX, state, nullptr, TS_DRAW, &size);
        size.cx = std::min<LONG>(size.cx, place.Width());
        size.cy = std::min<LONG>(size.cy, place.Height());
        const LONG left = place.left + (place.Width() - size.cx) / 2;
        const LONG top = place.top + (place.Height() - size.cy) / 2;
        const CRect box(left, top, left + size.cx, top + size.cy);
        ::DrawThemeBackground(m_theme, dc, BP_CHECKBOX, state, box, nullptr);
    }

private:
    const HTHEME m_theme;
};

} // namespace

BOOL CCheckListBox::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CListBox::Create(style | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, rect, parent, id);
}

void CCheckListBox::PreSubclassWindow() {
    CListBox::PreSubclassWindow();
    m_rows.assign(static_cast<std::size_t>(std::max(GetCount(), 0)), Row());
    FollowFont();
}

// The system asks for the row height only once, during creation. At that time the control has no
// dialog font and is not subclassed.
void CCheckListBox::FollowFont() {
    if ((GetStyle() & LBS_OWNERDRAWFIXED) != 0)
        SetItemHeight(0, static_cast<UINT>(HeightOfRow()));
}

// Updates the checks whenever any caller changes the rows.
LRESULT CCheckListBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CListBox::WindowProc(message, wParam, lParam);
    switch (message) {
    case LB_ADDSTRING: // a sorted list inserts it
    case LB_INSERTSTRING:
        if (result >= 0)
            m_rows.insert(m_rows.begin() + result, Row());
        break;
    case LB_DELETESTRING:
        if (result != LB_ERR)
            m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(wParam));
        break;
    case LB_RESETCONTENT:
        m_rows.clear();
        break;
    case WM_SETFONT:
        FollowFont();
        break;
    default:
        break;
    }
    return result;
}

CCheckListBox::Row* CCheckListBox::Find(int row) {
    return row >= 0 && static_cast<std::size_t>(row) < m_rows.size()
               ? &m_rows[static_cast<std::size_t>(row)]
               : nullptr;
}

int CCheckListBox::GetCheck(int row) const {
    const Row* const found = Find(row);
    return found != nullptr ? found->check : 0;
}

void CCheckListBox::SetCheck(int row, int check) {
    Row* const found = Find(row);
    if (found == nullptr || check < BST_UNCHECKED || check > BST_INDETERMINATE)
        return;
    found->check = check;
    InvalidateRow(row);
}

void CCheckListBox::Enable(int row, BOOL enable) {
    if (Row* const found = Find(row)) {
        found->enabled = enable;
        InvalidateRow(row);
    }
}

BOOL CCheckListBox::IsEnabled(int row) const {
    const Row* const found = Find(row);
    return found != nullptr && found->enabled;
}

void CCheckListBox::InvalidateRow(int row) {
    CRect rect;
    if (GetItemRect(row, rect) != LB_ERR)
        InvalidateRect(rect, FALSE);
}

// The width of the check box is the row height, so that it follows the text size.
int CCheckListBox::BoxWidth() const {
    return GetItemHeight(0);
}

// The height of the text plus a box around it.
int CCheckListBox::HeightOfRow() {
    CClientDC dc(this);
    CFont* const former = dc.SelectObject(GetFont());
    TEXTMETRICW metrics = {};
    dc.GetTextMetrics(&metrics);
    if (former != nullptr)
        dc.SelectObject(former);
    return static_cast<int>(metrics.tmHeight * 5 / 4 + metrics.tmExternalLeading);
}

void CCheckListBox::MeasureItem(MEASUREITEMSTRUCT* item) {
    item->itemHeight = static_cast<UINT>(HeightOfRow());
}

void CCheckListBox::DrawBox(CDC& dc, CRect box, int check, bool enabled) {
    if (const ButtonTheme theme(m_hWnd); theme) {
        theme.DrawCheckBox(dc, box, check, enabled);
        return;
    }
    const UINT state = check == BST_INDETERMINATE ? UINT{DFCS_BUTTON3STATE | DFCS_CHECKED}
                       : check == BST_CHECKED     ? UINT{DFCS_BUTTONCHECK | DFCS_CHECKED}
                                                  : UINT{DFCS_BUTTONCHECK};
    dc.DrawFrameControl(box, DFC_BUTTON, enabled ? state : state | DFCS_INACTIVE);
}

void CCheckListBox::DrawItem(DRAWITEMSTRUCT* item) {
    const Row* const row = Find(static_cast<int>(item->itemID));
    if (row == nullptr) { // an empty list with the focus
        if ((item->itemState & ODS_FOCUS) != 0)
            ::DrawFocusRect(item->hDC, &item->rcItem);
        return;
    }
    CDC* const dc = CDC::FromHandle(item->hDC);
    const bool enabled = row->enabled && IsWindowEnabled();
    const bool selected = (item->itemState & ODS_SELECTED) != 0;
    const CRect whole(item->rcItem);
    const int width = BoxWidth();

    CRect box(whole.left, whole.top, whole.left + width, whole.bottom);
    dc->FillSolidRect(box, ::GetSysColor(COLOR_WINDOW));
    ::InflateRect(box, -1, -1);
    DrawBox(*dc, box, row->check, enabled);

    CRect label(whole.left + width, whole.top, whole.right, whole.bottom);
    dc->FillSolidRect(label, ::GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    dc->SetTextColor(::GetSysColor(!enabled   ? COLOR_GRAYTEXT
                                   : selected ? COLOR_HIGHLIGHTTEXT
                                              : COLOR_WINDOWTEXT));
    CString text;
    GetText(static_cast<int>(item->itemID), text);
    CRect inner(label.left + 2, label.top, label.right, label.bottom);
    dc->DrawText(text, inner, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    if ((item->itemState & (ODS_FOCUS | ODS_NOFOCUSRECT)) == ODS_FOCUS)
        dc->DrawFocusRect(label);
}

// The default procedure selects the row before the check changes, so the parent's handler finds the
// row selected.
void CCheckListBox::Toggle(int row) {
    Row* const found = Find(row);
    if (found == nullptr || !found->enabled)
        return;
    if (m_checkStyle == BS_AUTO3STATE)
        SetCheck(row, (found->check + 1) % 3);
    else if (m_checkStyle == BS_AUTOCHECKBOX)
        SetCheck(row, found->check == BST_UNCHECKED ? BST_CHECKED : BST_UNCHECKED);
    ::SendMessageW(::GetParent(m_hWnd), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), CLBN_CHKCHANGE),
                   reinterpret_cast<LPARAM>(m_hWnd));
}

bool CCheckListBox::ToggleAt(CPoint point) {
    BOOL outside = TRUE;
    const int row = static_cast<int>(ItemFromPoint(point, outside));
    CRect rect;
    if (outside || GetItemRect(row, rect) == LB_ERR || !::PtInRect(rect, point) ||
        point.x >= rect.left + BoxWidth())
        return false;
    SetFocus();
    SetCurSel(row);
    ::SendMessageW(::GetParent(m_hWnd), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), LBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(m_hWnd));
    Toggle(row);
    return true;
}

void CCheckListBox::OnLButtonDown(UINT flags, CPoint point) {
    if (!ToggleAt(point))
        CListBox::OnLButtonDown(flags, point);
}

void CCheckListBox::OnLButtonDblClk(UINT flags, CPoint point) {
    if (!ToggleAt(point)) // each click counts, also the second of a double click
        CListBox::OnLButtonDblClk(flags, point);
}

void CCheckListBox::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    if (key == VK_SPACE)
        Toggle(GetCaretIndex());
    else
        CListBox::OnKeyDown(key, repeat, flags);
}

void CCheckListBox::OnChar(UINT character, UINT repeat, UINT flags) {
    if (character != ' ') // a blank would search for a row that begins with it
        CListBox::OnChar(character, repeat, flags);
}
