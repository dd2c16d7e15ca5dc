// CVaskListCtrl: its items and its drawing.
#include <quorvel/controls/win/vask_list_ctrl.h>

#include "controls/win/list_item_content.h"
#include "controls/win/report_columns.h"

#include <utility>

// Items

BOOL CVaskListCtrl::SelectItem(int item, int select) {
    if (item < 0) // -1 would mean all items
        return FALSE;
    const UINT states = select ? LVIS_SELECTED | LVIS_FOCUSED : LVIS_SELECTED;
    return SetItemState(item, select ? states : 0, states);
}

int CVaskListCtrl::GetSingleSelectionItem() const {
    return GetSelectedCount() == 1 ? GetNextItem(-1, LVNI_SELECTED) : -1;
}

BOOL CVaskListCtrl::IsItemSelected(int item) const {
    return item >= 0 && GetItemState(item, LVIS_SELECTED) != 0;
}

BOOL CVaskListCtrl::SelectAllItems() {
    const RedrawLock lock(*this);
    return SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
}

BOOL CVaskListCtrl::UnselectAllItems() {
    const RedrawLock lock(*this);
    return SetItemState(-1, 0, LVIS_SELECTED);
}

BOOL CVaskListCtrl::HasCheckedItem() const {
    const int count = GetItemCount();
    for (int i = 0; i < count; ++i) {
        if (GetCheck(i))
            return TRUE;
    }
    return FALSE;
}

BOOL CVaskListCtrl::HitTestOnItem(CPoint point) const {
    return HitTest(point) >= 0;
}

BOOL CVaskListCtrl::CanMoveSelectedItemUp() const {
    return GetSingleSelectionItem() > 0;
}

BOOL CVaskListCtrl::CanMoveSelectedItemDown() const {
    const int item = GetSingleSelectionItem();
    return item >= 0 && item + 1 < GetItemCount();
}

int CVaskListCtrl::MoveSelectedItemUp() {
    return CanMoveSelectedItemUp() ? MoveSelectedItem(-1) : -1;
}

int CVaskListCtrl::MoveSelectedItemDown() {
    return CanMoveSelectedItemDown() ? MoveSelectedItem(1) : -1;
}

// Exchanges the contents of the two items. Deleting and inserting an item would notify the parent,
// which then frees the object in the item's data.
int CVaskListCtrl::MoveSelectedItem(int direction) {
    const Watch watch(*this);
    const int item = GetSingleSelectionItem();
    const int other = item + direction;
    const int columnCount = GetInsertedColumnCount();
    const quorvel::ListItemContent moved(*this, item, columnCount);
    const quorvel::ListItemContent neighbour(*this, other, columnCount);
    {
        const RedrawLock lock(*this);
        neighbour.PutInto(*this, item);
        if (watch.IsAlive())
            moved.PutInto(*this, other);
    }
    if (watch.IsAlive())
        EnsureVisible(other, FALSE);
    return other;
}

BOOL CVaskListCtrl::IsReportView() const {
    return (GetStyle() & LVS_TYPEMASK) == LVS_REPORT;
}

LRESULT CVaskListCtrl::OnMouseDown(WPARAM, LPARAM lParam) {
    const CPoint point(static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam)));
    if (!m_areNonItemClicksBlocked || HitTestOnItem(point))
        return Default();
    SetFocus();
    return 0;
}

// Inserting or deleting a row changes which of the rows below are highlighted, but the platform
// only moves their pixels.
LRESULT CVaskListCtrl::OnRowsChange(WPARAM, LPARAM) {
    const Watch watch(*this);
    const LRESULT result = Default();
    if (watch.IsAlive() && m_areRowsHighlighted)
        Invalidate();
    return result;
}

// Redrawing

CVaskListCtrl::RedrawLock::RedrawLock(CVaskListCtrl& list) : m_list(list), m_watch(list) {
    if (m_list.m_redrawLocks++ == 0 && m_list.m_isRedrawn && m_list.m_hWnd != nullptr)
        m_list.DefWindowProc(WM_SETREDRAW, FALSE, 0);
}

CVaskListCtrl::RedrawLock::~RedrawLock() {
    if (!m_watch.IsAlive() || --m_list.m_redrawLocks > 0 || !m_list.m_isRedrawn ||
        m_list.m_hWnd == nullptr)
        return;
    m_list.DefWindowProc(WM_SETREDRAW, TRUE, 0);
    m_list.Invalidate();
}

LRESULT CVaskListCtrl::OnSetRedraw(WPARAM wParam, LPARAM) {
    m_isRedrawn = wParam != FALSE;
    return m_redrawLocks == 0 ? Default() : 0;
}

// Texts and colours

BOOL CVaskListCtrl::SetEmptyText(const WCHAR* text) {
    if (text == nullptr)
        return FALSE;
    m_emptyText = text;
    if (m_hWnd != nullptr)
        Invalidate();
    return TRUE;
}

BOOL CVaskListCtrl::IsValidEmptyTextAlignment(UINT alignment) {
    return alignment == DT_LEFT || alignment == DT_CENTER || alignment == DT_RIGHT;
}

BOOL CVaskListCtrl::SetEmptyTextAlignment(UINT alignment) {
    if (!IsValidEmptyTextAlignment(alignment))
        return FALSE;
    m_emptyTextAlignment = alignment;
    if (m_hWnd != nullptr)
        Invalidate();
    return TRUE;
}

void CVaskListCtrl::SetEmptyTextColor(COLORREF color) {
    m_emptyTextColor = color;
    if (m_hWnd != nullptr)
        Invalidate();
}

COLORREF CVaskListCtrl::GetEmptyTextColor() const {
    return m_emptyTextColor != CLR_DEFAULT ? m_emptyTextColor : ::GetSysColor(COLOR_GRAYTEXT);
}

void CVaskListCtrl::SetRowsHighlighted(BOOL highlight) {
    m_areRowsHighlighted = highlight != FALSE;
    if (m_hWnd != nullptr)
        Invalidate();
}

void CVaskListCtrl::SetRowHighlightColor(COLORREF color) {
    m_rowHighlightColor = color;
    if (m_hWnd != nullptr)
        Invalidate();
}

// Mixes in a sixteenth of the text's colour: texts stay legible with any two colours.
COLORREF CVaskListCtrl::GetRowHighlightColor() const {
    if (m_rowHighlightColor != CLR_DEFAULT)
        return m_rowHighlightColor;
    const COLORREF window = ::GetSysColor(COLOR_WINDOW);
    const COLORREF text = ::GetSysColor(COLOR_WINDOWTEXT);
    const auto mix = [](BYTE most, BYTE little) { return (15 * most + little) / 16; };
    return RGB(mix(GetRValue(window), GetRValue(text)), mix(GetGValue(window), GetGValue(text)),
               mix(GetBValue(window), GetBValue(text)));
}

BOOL CVaskListCtrl::OnNMCustomdraw(NMHDR* header, LRESULT* result) {
    if (!m_areRowsHighlighted)
        return FALSE;
    NMLVCUSTOMDRAW& draw = *reinterpret_cast<NMLVCUSTOMDRAW*>(header);
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
        *result = CDRF_NOTIFYITEMDRAW;
    } else {
        if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && draw.nmcd.dwItemSpec % 2 == 1)
            draw.clrTextBk = GetRowHighlightColor();
        *result = CDRF_DODEFAULT;
    }
    return TRUE;
}

void CVaskListCtrl::UpdateFonts() {
    AttachHeader();
    if (HeaderWindow() == nullptr)
        return;
    m_header->SendMessage(WM_SETFONT, static_cast<WPARAM>(SendMessage(WM_GETFONT)), TRUE);
    Invalidate();
}

LRESULT CVaskListCtrl::OnSetFont(WPARAM, LPARAM) {
    const LRESULT result = Default();
    UpdateFonts();
    return result;
}

void CVaskListCtrl::OnSysColorChange() {
    CListCtrl::OnSysColorChange();
    Invalidate();
}

void CVaskListCtrl::OnSize(UINT type, int width, int height) {
    CListCtrl::OnSize(type, width, height);
    if (m_isEmptyTextDrawn)
        Invalidate();
}

// Only some versions of the platform ask the parent for this text, so it is drawn after the list
// itself. While the text is visible, and once after that, everything is drawn again: the list-view
// does not know the text and would scroll it or leave it there.
void CVaskListCtrl::OnPaint() {
    const bool isDrawn = HasEmptyText() && GetItemCount() == 0;
    if (std::exchange(m_isEmptyTextDrawn, isDrawn) || isDrawn)
        Invalidate();
    const Watch watch(*this);
    Default();
    if (watch.IsAlive() && isDrawn)
        DrawEmptyText();
}

void CVaskListCtrl::DrawEmptyText() {
    CRect rect;
    GetClientRect(rect);
    if (HeaderWindow() != nullptr && m_header->IsWindowVisible()) {
        CRect header;
        m_header->GetClientRect(header);
        rect.top += header.bottom;
    }
    CClientDC dc(this);
    TEXTMETRICW metrics = {};
    const int saved = dc.SaveDC();
    ::SelectObject(dc, reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
    dc.GetTextMetrics(&metrics);
    rect.top += metrics.tmHeight / 2;
    rect.left += metrics.tmAveCharWidth;
    rect.right -= metrics.tmAveCharWidth;
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(GetEmptyTextColor());
    dc.DrawText(m_emptyText, rect, m_emptyTextAlignment | DT_NOPREFIX | DT_WORDBREAK);
    dc.RestoreDC(saved);
}
