#include <quorvel/keyboard/win/keyboard_shortcut_list_ctrl.h>

#include <quorvel/framework/win/wait_cursor.h>
#include <quorvel/keyboard/win/capture_shortcut_key_dlg.h>
#include <quorvel/res/message_ids.h>

#include "keyboard/shortcut_list.h"

#include <algorithm>

using quorvel::ShortcutList;

IMPLEMENT_DYNAMIC(CKeyboardShortcutListCtrl, CVirtualListCtrl)

BEGIN_MESSAGE_MAP(CKeyboardShortcutListCtrl, CVirtualListCtrl)
ON_WM_CREATE()
ON_MESSAGE(WM_INPUTLANGCHANGE, &CKeyboardShortcutListCtrl::OnInputLanguageChange)
END_MESSAGE_MAP()

static_assert(CKeyboardShortcutListCtrl::COLUMN_COMMAND == ShortcutList::kCommandColumn &&
              CKeyboardShortcutListCtrl::COLUMN_SHORTCUT_KEY == ShortcutList::kKeyColumn);

CKeyboardShortcutListCtrl::CKeyboardShortcutListCtrl() : m_list(std::make_unique<ShortcutList>()) {}

CKeyboardShortcutListCtrl::~CKeyboardShortcutListCtrl() {
    if (m_hWnd != nullptr)
        CKeyboardShortcutListCtrl::DestroyWindow(); // while it may still request the rows
    ShowNoRows();                                   // the base class must not delete them
}

BOOL CKeyboardShortcutListCtrl::PreCreateWindow(CREATESTRUCTW& parameters) {
    parameters.style = (parameters.style & ~LVS_TYPEMASK) | LVS_REPORT | LVS_OWNERDATA;
    return CVirtualListCtrl::PreCreateWindow(parameters);
}

void CKeyboardShortcutListCtrl::PreSubclassWindow() {
    CVirtualListCtrl::PreSubclassWindow();
    ModifyStyle(LVS_TYPEMASK, LVS_REPORT);
    InsertColumns();
}

int CKeyboardShortcutListCtrl::OnCreate(CREATESTRUCTW* parameters) {
    const int result = CVirtualListCtrl::OnCreate(parameters);
    InsertColumns();
    return result;
}

// A list that is being created gets its header only after WM_CREATE.
void CKeyboardShortcutListCtrl::InsertColumns() {
    if (GetHeaderCtrl() == nullptr || GetTrueColumnCount() > 0)
        return;
    static constexpr UINT kHeadings[NUM_COLUMNS] = {quorvel::kTextColumnCommand,
                                                    quorvel::kTextColumnShortcutKey};
    for (int column = 0; column < NUM_COLUMNS; ++column) {
        CString heading;
        heading.LoadString(kHeadings[column]);
        InsertVaskColumn(column, column, TRUE, heading);
    }
    LoadDefaultColumnWidths();
}

void CKeyboardShortcutListCtrl::LoadDefaultColumnWidths() {
    CRect client;
    GetClientRect(client);
    // Leaves room for a scroll bar.
    const int width = client.right - ::GetSystemMetrics(SM_CXVSCROLL);
    constexpr int kSmallest = 50;
    const int command = std::max(width * 3 / 5, kSmallest);
    SetVaskColumnWidth(COLUMN_COMMAND, command);
    SetVaskColumnWidth(COLUMN_SHORTCUT_KEY, std::max(width - command, kSmallest));
}

// Rows

// The model's own orders sort faster than functions, but a derived class may supply a function.
quorvel::ShortcutSort CKeyboardShortcutListCtrl::SortOf(int column, int ascending) {
    const bool isAscending = ascending != 0;
    const SortingFunction order = GetSortingFunction(column, ascending);
    const bool isOwn = order == CKeyboardShortcutListCtrl::GetSortingFunction(column, ascending);
    return {column, isAscending, isOwn ? ShortcutList::OrderOf(column, isAscending) : order};
}

// The host may have changed the sort through the base class.
void CKeyboardShortcutListCtrl::TakeSort() {
    m_list->SetSort(SortOf(GetSortColumn(), IsSortAscending()));
}

// The host may also have moved or sorted rows by the base class.
void CKeyboardShortcutListCtrl::TakeOrder() const {
    std::vector<ShortcutList::Row*> rows;
    for (int row = 0; row < GetItemCount(); ++row)
        rows.push_back(GetKeyboardShortcutVirtualListCtrlItem(row));
    if (rows == m_list->GetRows())
        return;
    const auto sorted = [](std::vector<ShortcutList::Row*> all) {
        std::ranges::sort(all);
        return all;
    };
    if (sorted(rows) == sorted(m_list->GetRows()))
        m_list->SetOrder(std::move(rows));
}

// Redraws the rows too. The notifications of a moved selection may destroy the list.
void CKeyboardShortcutListCtrl::ShowRows() {
    const auto& rows = m_list->GetRows();
    ReplaceItems({rows.begin(), rows.end()});
}

// For changed keys: their rows may have moved. The list may be destroyed when this returns.
void CKeyboardShortcutListCtrl::ShowKeys() {
    if (m_list->GetSort().column == COLUMN_SHORTCUT_KEY)
        ShowRows();
    else if (m_hWnd != nullptr) // a null window would mean the whole screen
        Invalidate();
}

void CKeyboardShortcutListCtrl::RedrawKey(int row) {
    const int column = GetInsertedColumn(COLUMN_SHORTCUT_KEY); // -1 while it is hidden
    CRect cell;
    if (row >= 0 && column >= 0 && m_hWnd != nullptr &&
        GetSubItemRect(row, column, LVIR_BOUNDS, cell))
        InvalidateRect(cell);
}

// Schemes

int CKeyboardShortcutListCtrl::AddKeyboardMappingScheme(const CKeyboardMappingScheme* scheme) {
    return InsertKeyboardMappingScheme(GetKeyboardMappingSchemeCount(), scheme);
}

int CKeyboardShortcutListCtrl::InsertKeyboardMappingScheme(int index,
                                                           const CKeyboardMappingScheme* scheme) {
    return m_list->InsertScheme(index, scheme);
}

BOOL CKeyboardShortcutListCtrl::SetKeyboardMappingScheme(int index,
                                                         const CKeyboardMappingScheme* scheme) {
    const Watch watch(*this);
    if (scheme != nullptr && index >= 0 && index == GetActiveKeyboardMappingSchemeIndex())
        ShowNoRows(); // while the rows exist
    return !watch.IsAlive() || m_list->SetScheme(index, scheme);
}

BOOL CKeyboardShortcutListCtrl::RemoveKeyboardMappingScheme(int index) {
    const Watch watch(*this);
    if (index >= 0 && index == GetActiveKeyboardMappingSchemeIndex())
        ShowNoRows();
    return !watch.IsAlive() || m_list->RemoveScheme(index);
}

int CKeyboardShortcutListCtrl::GetKeyboardMappingSchemeCount() const {
    return m_list->GetSchemeCount();
}

BOOL CKeyboardShortcutListCtrl::IsValidKeyboardMappingSchemeIndex(int index) const {
    return m_list->IsScheme(index);
}

BOOL CKeyboardShortcutListCtrl::GetKeyboardMappingScheme(int index, SchemeRows& out) const {
    if (!m_list->IsScheme(index))
        return FALSE;
    const ShortcutList::Scheme& scheme = m_list->GetScheme(index);
    out = {scheme.scheme, scheme.rows};
    return TRUE;
}

BOOL CKeyboardShortcutListCtrl::GetEditedKeyboardMappingScheme(int index,
                                                               CKeyboardMappingScheme& out) const {
    if (!m_list->IsScheme(index))
        return FALSE;
    std::vector<CKeyboardShortcut> shortcuts;
    for (const auto& row : m_list->GetScheme(index).rows)
        shortcuts.push_back(row->GetKeyboardShortcut());
    out = *m_list->GetScheme(index).scheme;
    out.SetKeyboardShortcuts(shortcuts);
    return TRUE;
}

int CKeyboardShortcutListCtrl::GetActiveKeyboardMappingSchemeIndex() const {
    return m_list->GetActiveScheme();
}

BOOL CKeyboardShortcutListCtrl::LoadKeyboardMappingScheme(int index) {
    if (index != -1 && !m_list->IsScheme(index))
        return FALSE;
    const Watch watch(*this);
    const RedrawLock lock(*this);
    ShowNoRows(); // a new scheme starts without a selection
    if (!watch.IsAlive())
        return TRUE;
    TakeSort();
    m_list->Load(index);
    ShowRows();
    return TRUE;
}

// Keys

BOOL CKeyboardShortcutListCtrl::SetShortcutKey(int row, const CShortcutKey& key) {
    TakeSort();
    TakeOrder();
    int formerRow;
    if (!m_list->SetKey(row, key, formerRow))
        return FALSE;
    if (m_list->GetSort().column == COLUMN_SHORTCUT_KEY) {
        ShowRows();
        return TRUE;
    }
    RedrawKey(row);
    RedrawKey(formerRow);
    return TRUE;
}

int CKeyboardShortcutListCtrl::ClearShortcutKey(const CShortcutKey& key) {
    TakeOrder();
    const int row = m_list->ClearKey(key);
    RedrawKey(row);
    return row;
}

BOOL CKeyboardShortcutListCtrl::ClearShortcutKey(int row, int resort) {
    TakeOrder();
    if (!m_list->ClearKey(row))
        return FALSE;
    TakeSort();
    if (resort != 0 && m_list->SortByKey())
        ShowRows();
    else
        RedrawKey(row);
    return TRUE;
}

std::vector<int> CKeyboardShortcutListCtrl::GetSelectedRows() const {
    std::vector<int> rows;
    int left = m_hWnd != nullptr ? static_cast<int>(GetSelectedCount()) : 0;
    for (int row = -1; left > 0 && (row = GetNextItem(row, LVNI_SELECTED)) >= 0; --left)
        rows.push_back(row);
    return rows;
}

void CKeyboardShortcutListCtrl::ClearSelectedShortcutKeys() {
    const RedrawLock lock(*this);
    TakeOrder();
    for (const int row : GetSelectedRows())
        m_list->ClearKey(row);
    TakeSort();
    m_list->SortByKey();
    ShowKeys();
}

int CKeyboardShortcutListCtrl::GetSelectedItemsAssignedShortcutKeyCount() const {
    int count = 0;
    for (const int row : GetSelectedRows())
        if (const auto* const item = GetKeyboardShortcutVirtualListCtrlItem(row))
            count += item->GetKeyboardShortcut().IsShortcutKeySet();
    return count;
}

BOOL CKeyboardShortcutListCtrl::ResetShortcutKey(int row) {
    TakeSort();
    TakeOrder();
    int formerRow;
    if (!m_list->ResetKey(row, formerRow))
        return FALSE;
    ShowKeys();
    return TRUE;
}

void CKeyboardShortcutListCtrl::ResetAllKeyboardShortcuts() {
    const CWaitCursor cursor;
    const RedrawLock lock(*this);
    TakeSort();
    m_list->ResetAllKeys();
    ShowKeys();
}

int CKeyboardShortcutListCtrl::FindShortcutKey(const CShortcutKey& key) const {
    TakeOrder();
    return m_list->FindKey(key);
}

int CKeyboardShortcutListCtrl::FindByPressingKey() {
    const Watch watch(*this);
    CCaptureShortcutKeyDlg dialog(this);
    if (dialog.DoModal() != IDOK || !watch.IsAlive())
        return -1;
    // The keyboard sends the extended bit, but keys from an accelerator table do not have it.
    CShortcutKey key = dialog.GetShortcutKey();
    int row = FindShortcutKey(key);
    if (row < 0) {
        key.SetModifiers(key.GetModifiers() ^ CShortcutKey::MODIFIER_EXTENDED);
        row = FindShortcutKey(key);
    }
    if (row < 0 || m_hWnd == nullptr)
        return -1;
    UnselectAllItems();
    if (watch.IsAlive())
        SelectItem(row);
    if (watch.IsAlive())
        EnsureVisible(row, FALSE);
    return row;
}

// Filtering and sorting

BOOL CKeyboardShortcutListCtrl::Filter(const WCHAR* text) {
    if (text == nullptr)
        return FALSE;
    TakeSort();
    TakeOrder();
    if (!m_list->Filter(text))
        return TRUE;
    const RedrawLock lock(*this);
    SetSortColumn(m_list->GetSort().column);
    SetSortAscending(m_list->GetSort().isAscending);
    ShowRows();
    return TRUE;
}

BOOL CKeyboardShortcutListCtrl::IsFiltered() const {
    return m_list->IsFiltered();
}

CString CKeyboardShortcutListCtrl::GetFilter() const {
    return m_list->GetFilter();
}

int CKeyboardShortcutListCtrl::GetFilteredItemCount() const {
    return IsFiltered() ? static_cast<int>(m_list->GetRows().size()) : 0;
}

BOOL CKeyboardShortcutListCtrl::IsValidFilteredItemIndex(int index) const {
    return index >= 0 && index < GetFilteredItemCount();
}

CKeyboardShortcutVirtualListCtrlItem* CKeyboardShortcutListCtrl::GetFilteredItem(int index) const {
    return IsFiltered() ? GetKeyboardShortcutVirtualListCtrlItem(index) : nullptr;
}

CKeyboardShortcutVirtualListCtrlItem*
CKeyboardShortcutListCtrl::GetKeyboardShortcutVirtualListCtrlItem(int row) const {
    return dynamic_cast<CKeyboardShortcutVirtualListCtrlItem*>(GetItem(row));
}

void CKeyboardShortcutListCtrl::DoSortItems(int column, int ascending) {
    m_list->Sort(SortOf(column, ascending));
    ShowRows();
}

CVirtualListCtrl::SortingFunction CKeyboardShortcutListCtrl::GetSortingFunction(int column,
                                                                                int ascending) {
    switch (column) {
    case COLUMN_COMMAND:
        return ascending != 0 ? swoCommandAscending : swoCommandDescending;
    case COLUMN_SHORTCUT_KEY:
        return ascending != 0 ? swoShortcutKeyAscending : swoShortcutKeyDescending;
    default:
        return nullptr;
    }
}

bool CKeyboardShortcutListCtrl::swoCommandAscending(CVirtualListCtrlItem* const& first,
                                                    CVirtualListCtrlItem* const& second) {
    return quorvel::IsCommandBefore(first, second);
}

bool CKeyboardShortcutListCtrl::swoCommandDescending(CVirtualListCtrlItem* const& first,
                                                     CVirtualListCtrlItem* const& second) {
    return quorvel::IsCommandAfter(first, second);
}

bool CKeyboardShortcutListCtrl::swoShortcutKeyAscending(CVirtualListCtrlItem* const& first,
                                                        CVirtualListCtrlItem* const& second) {
    return quorvel::IsKeyBefore(first, second);
}

bool CKeyboardShortcutListCtrl::swoShortcutKeyDescending(CVirtualListCtrlItem* const& first,
                                                         CVirtualListCtrlItem* const& second) {
    return quorvel::IsKeyAfter(first, second);
}

LRESULT CKeyboardShortcutListCtrl::OnInputLanguageChange(WPARAM, LPARAM) {
    const Watch watch(*this);
    const LRESULT result = Default();
    if (!watch.IsAlive())
        return result;
    m_list->ForgetKeyNames();
    TakeSort();
    m_list->SortByKey();
    ShowKeys();
    return result;
}
