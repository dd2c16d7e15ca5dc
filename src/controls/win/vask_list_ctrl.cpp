#include <quorvel/controls/win/vask_list_ctrl.h>

#include <quorvel/controls/win/columns_dlg.h>
#include <quorvel/res/resource_ids.h>

#include "controls/win/report_columns.h"

#include <utility>

IMPLEMENT_DYNAMIC(CVaskListCtrl, CListCtrl)

BEGIN_MESSAGE_MAP(CVaskListCtrl, CListCtrl)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_PAINT()
ON_WM_SIZE()
ON_WM_SYSCOLORCHANGE()
ON_WM_CONTEXTMENU()
ON_MESSAGE(WM_LBUTTONDOWN, &CVaskListCtrl::OnMouseDown)
ON_MESSAGE(WM_LBUTTONDBLCLK, &CVaskListCtrl::OnMouseDown)
ON_MESSAGE(WM_RBUTTONDOWN, &CVaskListCtrl::OnMouseDown)
ON_MESSAGE(WM_RBUTTONDBLCLK, &CVaskListCtrl::OnMouseDown)
ON_MESSAGE(WM_SETREDRAW, &CVaskListCtrl::OnSetRedraw)
ON_MESSAGE(WM_SETFONT, &CVaskListCtrl::OnSetFont)
ON_MESSAGE(LVM_SETCOLUMNW, &CVaskListCtrl::OnSetColumn)
ON_MESSAGE(LVM_SETCOLUMNA, &CVaskListCtrl::OnSetColumn)
ON_MESSAGE(LVM_INSERTCOLUMNW, &CVaskListCtrl::OnInsertColumn)
ON_MESSAGE(LVM_INSERTCOLUMNA, &CVaskListCtrl::OnInsertColumn)
ON_MESSAGE(LVM_DELETECOLUMN, &CVaskListCtrl::OnDeleteColumn)
ON_MESSAGE(LVM_INSERTITEMW, &CVaskListCtrl::OnRowsChange)
ON_MESSAGE(LVM_INSERTITEMA, &CVaskListCtrl::OnRowsChange)
ON_MESSAGE(LVM_DELETEITEM, &CVaskListCtrl::OnRowsChange)
ON_NOTIFY_EX(HDN_ITEMCLICKW, 0, &CVaskListCtrl::OnHdnItemclick)
ON_NOTIFY_EX(HDN_ITEMCLICKA, 0, &CVaskListCtrl::OnHdnItemclick)
ON_NOTIFY_REFLECT_EX(NM_CUSTOMDRAW, &CVaskListCtrl::OnNMCustomdraw)
END_MESSAGE_MAP()

using quorvel::ColumnRecord;

CVaskListCtrl::CVaskListCtrl() : m_columns(std::make_unique<quorvel::ReportColumns>(*this)) {}

CVaskListCtrl::~CVaskListCtrl() {
    if (m_hWnd != nullptr)
        CVaskListCtrl::DestroyWindow(); // while the members still exist for its last messages
    else
        DetachHeader(); // the list-view lives on without this object
}

std::unique_ptr<CVaskListCtrlHeaderCtrl> CVaskListCtrl::MakeHeaderCtrl() {
    return std::make_unique<CVaskListCtrlHeaderCtrl>();
}

// A list that is being created gets its header only after WM_CREATE. A list without the report view
// gets it when that view is chosen.
void CVaskListCtrl::AttachHeader() {
    const HWND header = reinterpret_cast<HWND>(::SendMessageW(m_hWnd, LVM_GETHEADER, 0, 0));
    if (header == nullptr || header == HeaderWindow())
        return;
    DetachHeader();
    if (m_header == nullptr)
        m_header = MakeHeaderCtrl();
    if (m_header != nullptr && m_header->SubclassWindow(header))
        UpdateSortArrow();
}

void CVaskListCtrl::DetachHeader() {
    if (HeaderWindow() != nullptr)
        m_header->UnsubclassWindow();
}

HWND CVaskListCtrl::Detach() {
    DetachHeader();
    return CListCtrl::Detach();
}

HWND CVaskListCtrl::UnsubclassWindow() {
    DetachHeader();
    return CListCtrl::UnsubclassWindow();
}

void CVaskListCtrl::PreSubclassWindow() {
    CListCtrl::PreSubclassWindow();
    AttachHeader();
}

int CVaskListCtrl::OnCreate(CREATESTRUCTW* parameters) {
    const int result = CListCtrl::OnCreate(parameters);
    AttachHeader();
    return result;
}

// Some platforms do not close a menu when its owner is destroyed.
void CVaskListCtrl::OnDestroy() {
    if (m_isMenuOpen)
        ::EndMenu();
    if (m_columnsDlg != nullptr)
        m_columnsDlg->EndDialog(IDCANCEL);
    const Watch watch(*this);
    CListCtrl::OnDestroy();
    if (!watch.IsAlive())
        return;
    m_columns->columns.Forget(); // another window begins without columns
    m_columns->descriptions.clear();
    m_isRedrawn = true;
}

// Columns

int CVaskListCtrl::InsertVaskColumn(int position, int trueColumn, int visible, const WCHAR* heading,
                                    int format, int width, int subItem) {
    if (heading == nullptr)
        return -1;
    VASKCOLUMN column;
    column.savedPosition = visible ? position : -1;
    column.trueColumn = trueColumn;
    column.visible = visible != 0;
    column.heading = heading;
    column.column.mask = LVCF_FMT | LVCF_TEXT;
    column.column.fmt = format;
    if (width != -1) {
        column.column.mask |= LVCF_WIDTH;
        column.column.cx = width;
    }
    if (subItem != -1) {
        column.column.mask |= LVCF_SUBITEM;
        column.column.iSubItem = subItem;
    }
    return InsertVaskColumn(position, &column);
}

int CVaskListCtrl::InsertVaskColumn(int position, const VASKCOLUMN* column) {
    if (column == nullptr)
        return -1;
    const LVCOLUMNW& description = column->column;
    ColumnRecord record;
    record.savedPosition = column->savedPosition;
    record.trueColumn = column->trueColumn;
    record.isVisible = column->visible != FALSE;
    record.heading = column->heading;
    if ((description.mask & LVCF_FMT) != 0)
        record.format = description.fmt;
    if ((description.mask & LVCF_WIDTH) != 0)
        record.width = description.cx;
    if (!DoesTrueColumnExist(
            record.trueColumn)) // the former description may be of a deleted column
        m_columns->descriptions.insert_or_assign(record.trueColumn, description);
    const int inserted = m_columns->columns.Insert(position, record);
    if (!DoesTrueColumnExist(record.trueColumn))
        m_columns->descriptions.erase(record.trueColumn);
    UpdateSortArrow();
    return inserted;
}

// The end of a change notifies the host if the sort column no longer exists.
template <class Act>
auto CVaskListCtrl::ChangeColumns(Act act) {
    const Watch watch(*this);
    const auto result = act(m_columns->columns);
    if (watch.IsAlive())
        UpdateSortArrow();
    return result;
}

BOOL CVaskListCtrl::ShowVaskColumn(int trueColumn, int show) {
    return ChangeColumns([&](quorvel::Columns& columns) { return columns.Show(trueColumn, show); });
}

BOOL CVaskListCtrl::DeleteVaskColumn(int trueColumn) {
    return ChangeColumns([&](quorvel::Columns& columns) { return columns.Delete(trueColumn); });
}

BOOL CVaskListCtrl::DoesTrueColumnExist(int trueColumn) const {
    return m_columns->columns.Find(trueColumn) != nullptr;
}

BOOL CVaskListCtrl::IsVaskColumnVisible(int trueColumn) const {
    return m_columns->columns.IsVisible(trueColumn);
}

BOOL CVaskListCtrl::GetVaskColumn(int trueColumn, VASKCOLUMN* column) const {
    const ColumnRecord* const record = m_columns->columns.Find(trueColumn);
    if (record == nullptr || column == nullptr)
        return FALSE;
    column->savedPosition = record->savedPosition;
    column->trueColumn = record->trueColumn;
    column->visible = record->isVisible;
    column->heading = record->heading;
    column->column = m_columns->Describe(*record);
    return TRUE;
}

int CVaskListCtrl::GetVaskColumnWidth(int trueColumn) const {
    return DoesTrueColumnExist(trueColumn) ? m_columns->columns.GetWidth(trueColumn) : -1;
}

BOOL CVaskListCtrl::SetVaskColumnWidth(int trueColumn, int width) {
    return m_columns->columns.SetWidth(trueColumn, width);
}

int CVaskListCtrl::GetTrueColumnCount() const {
    return m_columns->columns.GetTrueColumnCount();
}

int CVaskListCtrl::GetInsertedColumnCount() const {
    return m_columns->columns.GetInsertedColumnCount();
}

int CVaskListCtrl::GetInsertedColumn(int trueColumn) const {
    return m_columns->columns.GetInsertedColumn(trueColumn);
}

int CVaskListCtrl::GetTrueColumn(int insertedColumn) const {
    return m_columns->columns.GetTrueColumn(insertedColumn);
}

int CVaskListCtrl::GetLeftToRightColumn(int displayPosition) const {
    return m_columns->columns.GetLeftToRightColumn(displayPosition);
}

int CVaskListCtrl::GetLeftToRightTrueColumn(int displayPosition) const {
    return m_columns->columns.GetLeftToRightTrueColumn(displayPosition);
}

int CVaskListCtrl::GetColumnSortOrder(int insertedColumn) const {
    return m_columns->columns.GetDisplayPosition(insertedColumn);
}

BOOL CVaskListCtrl::IsColumnSortOrderPersisted() const {
    return m_columns->columns.HasRecords();
}

BOOL CVaskListCtrl::SetColumnAlignment(int insertedColumn, UINT alignment) {
    if ((alignment & ~static_cast<UINT>(LVCFMT_JUSTIFYMASK)) != 0 || insertedColumn < 0 ||
        insertedColumn >= GetInsertedColumnCount())
        return FALSE;
    m_columns->SetAlignment(insertedColumn, static_cast<int>(alignment));
    return TRUE;
}

BOOL CVaskListCtrl::AutoSetColumnWidths(int useHeader) {
    const RedrawLock lock(*this);
    const int count = GetInsertedColumnCount();
    for (int i = 0; i < count; ++i)
        SetColumnWidth(i, useHeader ? LVSCW_AUTOSIZE_USEHEADER : LVSCW_AUTOSIZE);
    return count > 0;
}

BOOL CVaskListCtrl::ResetColumns() {
    return ChangeColumns([](quorvel::Columns& columns) {
        columns.Reset();
        return columns.HasRecords();
    });
}

INT_PTR CVaskListCtrl::EditColumns() {
    if (m_columnsDlg != nullptr)
        return -1;
    CColumnsDlg dialog(this, this);
    m_columnsDlg = &dialog;
    const Watch watch(*this);
    const INT_PTR result = dialog.DoModal();
    if (watch.IsAlive())
        m_columnsDlg = nullptr;
    return result;
}

int CVaskListCtrl::GetDefaultColumnWidth(int) {
    return 100;
}

void CVaskListCtrl::LoadDefaultColumnWidths() {
    AutoSetColumnWidths(TRUE);
}

BOOL CVaskListCtrl::CanVaskColumnBeHidden(int) {
    return GetInsertedColumnCount() > 1;
}

void CVaskListCtrl::OnShowVaskColumn(int, int) {}

// The platform removes the arrow when a column's text or format is set.
LRESULT CVaskListCtrl::OnSetColumn(WPARAM wParam, LPARAM lParam) {
    const LRESULT result = Default();
    if (result != FALSE)
        m_columns->ReadDescription(static_cast<int>(wParam),
                                   reinterpret_cast<const LVCOLUMNW*>(lParam)->mask);
    UpdateSortArrow();
    return result;
}

LRESULT CVaskListCtrl::OnInsertColumn(WPARAM, LPARAM) {
    const LRESULT result = Default();
    if (result >= 0 && !m_columns->isChanging && m_columns->columns.HasRecords())
        m_columns->columns.UpdateInsertedVaskColumnsMap(static_cast<int>(result), true);
    AttachHeader();
    UpdateSortArrow();
    return result;
}

LRESULT CVaskListCtrl::OnDeleteColumn(WPARAM wParam, LPARAM) {
    const int inserted = static_cast<int>(wParam);
    const bool isMapped = !m_columns->isChanging && m_columns->columns.HasRecords();
    if (isMapped && GetTrueColumn(inserted) >= 0)
        return DeleteVaskColumn(GetTrueColumn(inserted));
    const LRESULT result = Default();
    if (result != FALSE && isMapped)
        m_columns->columns.UpdateInsertedVaskColumnsMap(inserted, false);
    UpdateSortArrow();
    return result;
}

// Sorting

void CVaskListCtrl::UpdateSortArrow() {
    if (m_header != nullptr)
        m_header->SetSort(GetInsertedColumn(GetSortColumn()), IsSortAscending());
}

BOOL CVaskListCtrl::SetSortColumn(int trueColumn) {
    if (trueColumn < -1)
        return FALSE;
    m_columns->columns.SetSort(trueColumn, IsSortAscending());
    UpdateSortArrow();
    return TRUE;
}

BOOL CVaskListCtrl::SetSortAscending(BOOL ascending) {
    m_columns->columns.SetSort(GetSortColumn(), ascending != FALSE);
    UpdateSortArrow();
    return TRUE;
}

int CVaskListCtrl::GetSortColumn() const {
    return m_columns->columns.GetSortColumn();
}

BOOL CVaskListCtrl::IsSortAscending() const {
    return m_columns->columns.IsSortAscending();
}

BOOL CVaskListCtrl::SortItems(int, int, int) {
    return FALSE;
}

// The application may change the sort state in SortItems itself; its change has priority.
BOOL CVaskListCtrl::SortAndKeep(int trueColumn, BOOL ascending, int force) {
    const Watch watch(*this);
    const int columnBefore = GetSortColumn();
    const BOOL directionBefore = IsSortAscending();
    if (trueColumn < 0 || !SortItems(trueColumn, ascending, force) || !watch.IsAlive())
        return FALSE;
    if (GetSortColumn() == columnBefore && IsSortAscending() == directionBefore) {
        m_columns->columns.SetSort(trueColumn, ascending != FALSE);
        UpdateSortArrow();
    }
    return TRUE;
}

BOOL CVaskListCtrl::SortItemsByColumn(int trueColumn) {
    return SortAndKeep(trueColumn, IsSortAscending(), FALSE);
}

BOOL CVaskListCtrl::SortItemsByDirection(int ascending) {
    return SortAndKeep(GetSortColumn(), ascending != 0, FALSE);
}

BOOL CVaskListCtrl::AutoSortItems() {
    return SortAndKeep(GetSortColumn(), IsSortAscending(), TRUE);
}

void CVaskListCtrl::OnDeleteSortColumn(int, int, int) {
    SortAndKeep(GetLeftToRightTrueColumn(0), TRUE, FALSE);
}

// Returns FALSE, so that the list-view, if it still exists, also notifies its parent.
BOOL CVaskListCtrl::OnHdnItemclick(UINT, NMHDR* header, LRESULT*) {
    const NMHEADERW& click = *reinterpret_cast<const NMHEADERW*>(header);
    const Watch watch(*this);
    if (header->hwndFrom == HeaderWindow() && click.iButton == 0 && !m_isHeaderSortBlocked) {
        const auto [trueColumn, isAscending] = m_columns->columns.SortOfHeaderClick(click.iItem);
        SortAndKeep(trueColumn, isAscending, FALSE);
    }
    return !watch.IsAlive();
}

// The header's keys and menu

BOOL CVaskListCtrl::PreTranslateMessage(MSG* message) {
    const bool isShiftTab = message->message == WM_KEYDOWN && message->wParam == VK_TAB &&
                            ::GetKeyState(VK_SHIFT) < 0 && ::GetKeyState(VK_CONTROL) >= 0;
    if (isShiftTab && message->hwnd == m_hWnd && CanFocusHeader()) {
        m_header->SetFocus();
        return TRUE;
    }
    if (isShiftTab && message->hwnd == HeaderWindow()) { // the dialog continues from the list
        SetFocus();
        message->hwnd = m_hWnd;
    }
    return CListCtrl::PreTranslateMessage(message);
}

bool CVaskListCtrl::CanFocusHeader() const {
    return HeaderWindow() != nullptr && m_header->IsWindowVisible() &&
           m_header->IsWindowEnabled() && GetInsertedColumnCount() > 0 &&
           (m_columns->columns.HasRecords() || !m_isHeaderSortBlocked);
}

// Some platforms send the header's message directly to its parent.
void CVaskListCtrl::OnContextMenu(CWnd* wnd, CPoint point) {
    if (HeaderWindow() != nullptr && wnd == m_header.get())
        m_header->SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(HeaderWindow()),
                              MAKELPARAM(point.x, point.y));
    else
        CListCtrl::OnContextMenu(wnd, point);
}

void CVaskListCtrl::OnHeaderContextMenu(int, UINT, CPoint point) {
    CMenu menu;
    if (!m_columns->columns.HasRecords() || !menu.LoadMenu(QUORVEL_MENU_COLUMNS))
        return;
    CMenu* const popup = menu.GetSubMenu(0);
    if (popup == nullptr) // missing in a language library
        return;
    for (const quorvel::HeaderMenuItem& item : m_columns->columns.GetHeaderMenu()) {
        const UINT flags = (item.isChecked ? MF_CHECKED : 0) | (item.isGreyed ? MF_GRAYED : 0);
        popup->InsertMenu(static_cast<UINT>(item.position), MF_BYPOSITION | flags, item.command,
                          item.text);
    }
    const Watch watch(*this);
    const HWND window = m_hWnd;
    m_isMenuOpen = true;
    const UINT command = static_cast<UINT>(
        popup->TrackPopupMenu(TPM_RIGHTBUTTON | TPM_RETURNCMD, point.x, point.y, this));
    if (!watch.IsAlive())
        return;
    m_isMenuOpen = false;
    if (m_hWnd != window) // destroyed while the menu was open
        return;
    if (command == QUORVEL_COMMAND_COLUMNS)
        EditColumns();
    else
        ChangeColumns([&](quorvel::Columns& columns) { return columns.Toggle(command); });
}

// State

BOOL CVaskListCtrl::SaveState(HKEY key, int closeKey) {
    return m_columns->columns.SaveState(key, closeKey);
}

BOOL CVaskListCtrl::LoadState(HKEY key, int closeKey) {
    return ChangeColumns(
        [&](quorvel::Columns& columns) { return columns.LoadState(key, closeKey); });
}

BOOL CVaskListCtrl::SaveState(const WCHAR* section) {
    return m_columns->columns.SaveState(section);
}

BOOL CVaskListCtrl::LoadState(const WCHAR* section) {
    return ChangeColumns([&](quorvel::Columns& columns) { return columns.LoadState(section); });
}

BOOL CVaskListCtrl::SaveState(const CRegistryPath& path) {
    return m_columns->columns.SaveState(path);
}

BOOL CVaskListCtrl::LoadState(const CRegistryPath& path) {
    return ChangeColumns([&](quorvel::Columns& columns) { return columns.LoadState(path); });
}
