// The rows and their selection are VirtualRows; the list-view has a copy of count and selection, by
// index.
//
// What users and programs select in the list-view arrives as notifications and is taken over. A
// change of rows goes the other way: the rows carry their selection along, and the list-view is
// sent the difference. Rows may change while the list-view is handling a message, in the parent's
// answer to a notification. The list-view goes on with its former count then, which must not shrink
// under it: the difference is sent when it has finished.
#include <quorvel/controls/win/virtual_list_ctrl.h>

#include <quorvel/framework/win/wait_cursor.h>

#include "controls/virtual_rows.h"
#include "util/clipboard/win/opened_clipboard.h"

#include <algorithm>
#include <utility>

using quorvel::RowRun;
using quorvel::SelectionMessage;
using quorvel::VirtualRows;

IMPLEMENT_DYNAMIC(CVirtualListCtrl, CVaskListCtrl)

BEGIN_MESSAGE_MAP(CVirtualListCtrl, CVaskListCtrl)
ON_NOTIFY_REFLECT(LVN_GETDISPINFOW, &CVirtualListCtrl::OnLvnGetdispinfo)
ON_NOTIFY_REFLECT(LVN_ODFINDITEMW, &CVirtualListCtrl::OnLvnOdfinditem)
ON_NOTIFY_REFLECT_EX(LVN_ITEMCHANGED, &CVirtualListCtrl::OnLvnItemchanged)
ON_NOTIFY_REFLECT_EX(LVN_ODSTATECHANGED, &CVirtualListCtrl::OnLvnOdstatechanged)
ON_WM_CREATE()
ON_WM_CHAR()
ON_MESSAGE(LVM_SETITEMCOUNT, &CVirtualListCtrl::OnSetItemCount)
ON_MESSAGE(LVM_INSERTITEMW, &CVirtualListCtrl::OnInsertItem)
ON_MESSAGE(LVM_INSERTITEMA, &CVirtualListCtrl::OnInsertItem)
ON_MESSAGE(LVM_DELETEITEM, &CVirtualListCtrl::OnDeleteItem)
ON_MESSAGE(LVM_DELETEALLITEMS, &CVirtualListCtrl::OnDeleteAllItems)
END_MESSAGE_MAP()

namespace {

constexpr UINT kCtrlA = 1; // the characters of these keys
constexpr UINT kCtrlC = 3;

// A host that changes rows each time it is notified of a selection would keep the list busy.
constexpr int kMaxSendings = 16;

constexpr int kUnknownFocus = -2;

// True while it lives.
class Flagged {
public:
    explicit Flagged(bool& flag) : m_flag(flag) { m_flag = true; }
    Flagged(const Flagged&) = delete;
    ~Flagged() { m_flag = false; }

private:
    bool& m_flag;
};

} // namespace

// One change of the rows: takes over what the list-view has selected, and sends it what has
// changed.
class CVirtualListCtrl::Change {
public:
    explicit Change(CVirtualListCtrl& list) : m_list(list), m_generation(list.m_generation) {
        if (m_list.m_hWnd == nullptr || m_list.m_messageDepth > 0)
            return;
        m_list.ReadSelection();
        m_shown = m_list.m_rows->GetSelectedRuns();
        m_shownFocus = m_list.m_rows->GetFocusedRow();
    }
    Change(const Change&) = delete;

    void Send() {
        if (m_list.m_hWnd == nullptr)
            return;
        if (m_list.m_messageDepth > 0)
            m_list.m_isSendPending = true;
        else if (m_generation == m_list.m_generation)
            m_list.Send(std::move(m_shown), m_shownFocus);
        else // code of the host has changed rows meanwhile
            m_list.Send(m_list.ReadSelectedRuns(), kUnknownFocus);
    }

private:
    CVirtualListCtrl& m_list;
    const unsigned m_generation;
    std::vector<RowRun> m_shown;
    int m_shownFocus = -1;
};

CVirtualListCtrl::CVirtualListCtrl() : m_rows(std::make_unique<VirtualRows>()) {}

CVirtualListCtrl::~CVirtualListCtrl() {
    if (m_hWnd != nullptr)
        CVirtualListCtrl::DestroyWindow(); // while it may still ask for the rows
    for (CVirtualListCtrlItem* const item : m_rows->RemoveAll())
        Drop(item);
}

// A new window knows nothing of the rows, and of the selection in a former one.
void CVirtualListCtrl::TakeWindow() {
    m_rows->SelectAll(false);
    m_rows->SetFocusedRow(-1);
    if (m_rows->GetCount() > 0)
        SendCount();
}

void CVirtualListCtrl::PreSubclassWindow() {
    CVaskListCtrl::PreSubclassWindow();
    TakeWindow();
}

int CVirtualListCtrl::OnCreate(CREATESTRUCTW* parameters) {
    const int result = CVaskListCtrl::OnCreate(parameters);
    TakeWindow();
    return result;
}

// Rows

int CVirtualListCtrl::AddItem(CVirtualListCtrlItem* item) {
    const int row = m_rows->Add(item);
    if (row < 0 || m_hWnd == nullptr)
        return row;
    if (m_messageDepth > 0)
        m_isSendPending = true;
    else if (IsRedrawn())
        SendCount();
    else
        m_isCountUnsent = true;
    return row;
}

int CVirtualListCtrl::InsertItem(int index, CVirtualListCtrlItem* item) {
    if (index == GetItemCount())
        return AddItem(item);
    const RedrawLock lock(*this);
    Change change(*this);
    const int row = m_rows->Insert(index, item);
    if (row >= 0)
        change.Send();
    return row;
}

BOOL CVirtualListCtrl::DeleteItem(int index) {
    if (!m_rows->IsRow(index))
        return FALSE;
    const RedrawLock lock(*this);
    Change change(*this);
    const bool wasSelected = m_rows->IsSelected(index);
    CVirtualListCtrlItem* const item = m_rows->Remove(index);
    SelectInsteadOf(index, wasSelected);
    change.Send();
    Drop(item);
    return TRUE;
}

BOOL CVirtualListCtrl::DeleteItem(CVirtualListCtrlItem* item) {
    return DeleteItem(GetItemIndex(item));
}

int CVirtualListCtrl::DeleteItems(std::vector<int> indexes) {
    const RedrawLock lock(*this);
    Change change(*this);
    int first = GetItemCount();
    bool wasSelected = false;
    for (const int index : indexes) {
        if (!m_rows->IsRow(index))
            continue;
        first = std::min(first, index);
        wasSelected = wasSelected || m_rows->IsSelected(index);
    }
    const std::vector<CVirtualListCtrlItem*> items = m_rows->Remove(std::move(indexes));
    if (items.empty())
        return 0;
    SelectInsteadOf(first, wasSelected);
    change.Send();
    for (CVirtualListCtrlItem* const item : items)
        Drop(item);
    return static_cast<int>(items.size());
}

BOOL CVirtualListCtrl::DeleteAllItems() {
    const RedrawLock lock(*this);
    Change change(*this);
    const std::vector<CVirtualListCtrlItem*> items = m_rows->RemoveAll();
    change.Send();
    for (CVirtualListCtrlItem* const item : items)
        Drop(item);
    return TRUE;
}

void CVirtualListCtrl::ReplaceItems(const std::vector<CVirtualListCtrlItem*>& items) {
    const RedrawLock lock(*this);
    Change change(*this);
    m_rows->Replace(items);
    change.Send();
}

void CVirtualListCtrl::SelectInsteadOf(int removedRow, bool wasSelected) {
    const int row = m_hWnd != nullptr ? m_rows->GetRowToSelect(removedRow, wasSelected) : -1;
    if (row >= 0)
        m_rows->Select(row, row, true);
}

void CVirtualListCtrl::Drop(CVirtualListCtrlItem* item) {
    if (m_areItemsAutoDeleted)
        delete item;
}

int CVirtualListCtrl::GetItemCount() const {
    return m_rows->GetCount();
}

BOOL CVirtualListCtrl::IsValidItemIndex(int index) const {
    return m_rows->IsRow(index);
}

CVirtualListCtrlItem* CVirtualListCtrl::GetItem(int index) const {
    return m_rows->GetItem(index);
}

int CVirtualListCtrl::GetItemIndex(CVirtualListCtrlItem* item) const {
    return item != nullptr ? m_rows->GetRow(item) : -1;
}

CVirtualListCtrlItem* CVirtualListCtrl::GetSelectedItem() const {
    if (m_hWnd != nullptr && m_messageDepth == 0)
        ReadSelection();
    return m_rows->GetItem(m_rows->GetFirstSelectedRow());
}

int CVirtualListCtrl::MoveSelectedItemUp() {
    return MoveSelected(-1);
}

int CVirtualListCtrl::MoveSelectedItemDown() {
    return MoveSelected(1);
}

int CVirtualListCtrl::MoveSelected(int direction) {
    Change change(*this);
    const int row = direction < 0 ? m_rows->MoveSelectedUp() : m_rows->MoveSelectedDown();
    if (row < 0)
        return -1;
    change.Send();
    const int other = row - direction;
    RedrawItems(std::min(row, other), std::max(row, other));
    ShowRow(row);
    return row;
}

BOOL CVirtualListCtrl::SortItems(int column, int ascending, int force) {
    const BOOL isAscending = ascending != 0;
    if (!force && column == GetSortColumn() && isAscending == IsSortAscending())
        return FALSE;
    const CWaitCursor cursor;
    const RedrawLock lock(*this);
    Change change(*this);
    DoSortItems(column, isAscending);
    SetSortColumn(column);
    SetSortAscending(isAscending);
    change.Send();
    ShowRow(m_rows->GetFocusedRow());
    return TRUE;
}

void CVirtualListCtrl::DoSortItems(int column, int ascending) {
    m_rows->Sort(GetSortingFunction(column, ascending));
}

CVirtualListCtrl::SortingFunction CVirtualListCtrl::GetSortingFunction(int, int) {
    return nullptr;
}

void CVirtualListCtrl::ShowRow(int row) {
    if (row >= 0 && m_hWnd != nullptr && !m_isSendPending)
        EnsureVisible(row, FALSE);
}

// The list-view's copy of count and selection

// Before anything can ask for it.
LRESULT CVirtualListCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (m_isCountUnsent)
        SendCount();
    return CVaskListCtrl::WindowProc(message, wParam, lParam);
}

LRESULT CVirtualListCtrl::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    ++m_messageDepth;
    const LRESULT result = CVaskListCtrl::DefWindowProc(message, wParam, lParam);
    if (--m_messageDepth == 0 && m_isSendPending && !m_isSending && m_hWnd != nullptr) {
        Send(ReadSelectedRuns(), kUnknownFocus);
        Invalidate();
    }
    return result;
}

// Past this class's own handler, which keeps the count from being changed otherwise.
void CVirtualListCtrl::SendCount() {
    m_isCountUnsent = false;
    DefWindowProc(LVM_SETITEMCOUNT, static_cast<WPARAM>(m_rows->GetCount()),
                  LVSICF_NOINVALIDATEALL);
}

// A parent that is exchanging its data gets no notifications, and a count that shrinks drops
// selected rows silently: then the numbers of selected rows differ.
void CVirtualListCtrl::ReadSelection() const {
    if (static_cast<int>(GetSelectedCount()) != m_rows->GetSelectedCount())
        TakeSelection();
}

void CVirtualListCtrl::TakeSelection() const {
    m_rows->SelectAll(false);
    for (const RowRun& run : ReadSelectedRuns())
        m_rows->Select(run.first, run.last, true);
}

// LVM_GETNEXTITEM walks over the rows in between: all of them after the last selected one.
std::vector<RowRun> CVirtualListCtrl::ReadSelectedRuns() const {
    std::vector<RowRun> runs;
    int left = static_cast<int>(GetSelectedCount());
    if (left > 0 && left >= GetItemCount())
        return {{0, GetItemCount() - 1}};
    for (int row = -1; left > 0 && (row = GetNextItem(row, LVNI_SELECTED)) >= 0; --left) {
        if (!runs.empty() && runs.back().last + 1 == row)
            runs.back().last = row;
        else
            runs.push_back({row, row});
    }
    return runs;
}

// Starts over when the rows change while it is sending.
void CVirtualListCtrl::Send(std::vector<RowRun> shown, int shownFocus) {
    ++m_generation;
    const Flagged sending(m_isSending);
    for (int i = 0; i < kMaxSendings; ++i) {
        m_isSendPending = false;
        SendCount();
        if (i > 0)
            shown = ReadSelectedRuns();
        SendDifference(shown, i > 0 ? kUnknownFocus : shownFocus);
        if (!m_isSendPending || m_hWnd == nullptr)
            return;
    }
    m_isSendPending = false;
    SendCount();
    TakeSelection();
}

void CVirtualListCtrl::SendDifference(const std::vector<RowRun>& shown, int shownFocus) {
    for (const SelectionMessage& message :
         quorvel::PlanSelection(shown, m_rows->GetSelectedRuns(), GetItemCount())) {
        m_isSendingAll = message.row == SelectionMessage::kAllRows;
        SetItemState(message.row, message.isSelected ? LVIS_SELECTED : 0, LVIS_SELECTED);
        m_isSendingAll = false;
        if (m_isSendPending || m_hWnd == nullptr)
            return;
    }
    const int row = m_rows->GetFocusedRow();
    if (row < 0 || row == shownFocus)
        return;
    SetSelectionMark(row);
    SetItemState(row, LVIS_FOCUSED, LVIS_FOCUSED);
}

// FALSE from these two: the parent is notified too.

BOOL CVirtualListCtrl::OnLvnItemchanged(NMHDR* header, LRESULT*) {
    const NMLISTVIEW& change = *reinterpret_cast<const NMLISTVIEW*>(header);
    const UINT changed = change.uNewState ^ change.uOldState;
    if (change.iItem < 0) { // all rows, and only some of them may have changed
        if (!m_isSendingAll)
            TakeSelection();
        return FALSE;
    }
    if ((changed & LVIS_SELECTED) != 0)
        m_rows->Select(change.iItem, change.iItem, (change.uNewState & LVIS_SELECTED) != 0);
    if ((changed & LVIS_FOCUSED) != 0) {
        if ((change.uNewState & LVIS_FOCUSED) != 0)
            m_rows->SetFocusedRow(change.iItem);
        else if (m_rows->GetFocusedRow() == change.iItem)
            m_rows->SetFocusedRow(-1);
    }
    return FALSE;
}

BOOL CVirtualListCtrl::OnLvnOdstatechanged(NMHDR* header, LRESULT*) {
    const NMLVODSTATECHANGE& change = *reinterpret_cast<const NMLVODSTATECHANGE*>(header);
    if (((change.uNewState ^ change.uOldState) & LVIS_SELECTED) != 0)
        m_rows->Select(change.iFrom, change.iTo, (change.uNewState & LVIS_SELECTED) != 0);
    return FALSE;
}

// What the list-view asks for

void CVirtualListCtrl::OnLvnGetdispinfo(NMHDR* header, LRESULT*) {
    LVITEMW& asked = reinterpret_cast<NMLVDISPINFOW*>(header)->item;
    CVirtualListCtrlItem* const item = GetItem(asked.iItem);
    if (item == nullptr)
        return;
    if ((asked.mask & LVIF_IMAGE) != 0)
        asked.iImage = item->GetImage();
    if ((asked.mask & LVIF_INDENT) != 0)
        asked.iIndent = item->GetIndent();
    if ((asked.mask & LVIF_PARAM) != 0)
        asked.lParam = item->GetLParam();
    if ((asked.mask & LVIF_TEXT) == 0 || asked.pszText == nullptr || asked.cchTextMax <= 0)
        return;
    // Last, for it is the host's code, which may delete the row. The list-view counts the shown
    // columns alone, the host all of them.
    const int trueColumn = GetTrueColumn(asked.iSubItem);
    const CString text = item->GetSubItemText(trueColumn >= 0 ? trueColumn : asked.iSubItem);
    ::lstrcpynW(asked.pszText, text, asked.cchTextMax);
}

// Typed letters come with both flags; where they start depends on the platform's version. A search
// of the program's starts after the row that it names.
void CVirtualListCtrl::OnLvnOdfinditem(NMHDR* header, LRESULT* result) {
    const NMLVFINDITEMW& find = *reinterpret_cast<const NMLVFINDITEMW*>(header);
    const UINT flags = find.lvfi.flags;
    const bool wraps = (flags & LVFI_WRAP) != 0;
    const bool isPart = (flags & LVFI_PARTIAL) != 0;
    *result = -1;
    if (wraps && isPart)
        *result = m_rows->FindTyped(find.lvfi.psz, m_rows->GetFocusedRow());
    else if ((flags & (LVFI_STRING | LVFI_PARTIAL)) != 0)
        *result = m_rows->Find(find.lvfi.psz, find.iStart + 1, !isPart, wraps);
}

void CVirtualListCtrl::OnChar(UINT character, UINT repeats, UINT flags) {
    if (character == kCtrlC)
        CopySelectedRows();
    else if (character != kCtrlA)
        CVaskListCtrl::OnChar(character, repeats, flags);
    else if ((GetStyle() & LVS_SINGLESEL) == 0)
        SelectAllItems();
}

void CVirtualListCtrl::CopySelectedRows() {
    ReadSelection();
    if (m_rows->GetSelectedCount() == 0)
        return;
    const CWaitCursor cursor;
    std::vector<int> columns;
    const int count = GetInsertedColumnCount();
    for (int position = 0; position < count; ++position)
        columns.push_back(GetLeftToRightTrueColumn(position));
    if (columns.empty()) // not a report
        columns.push_back(0);
    const CString text = m_rows->GetSelectedText(columns);
    quorvel::PlaceOnClipboard(m_hWnd, CF_UNICODETEXT, text.GetString(),
                              (static_cast<SIZE_T>(text.GetLength()) + 1) * sizeof(WCHAR));
}

// The platform's messages about the number of rows, which it would change without the rows.

LRESULT CVirtualListCtrl::OnSetItemCount(WPARAM wParam, LPARAM) {
    return static_cast<int>(wParam) == GetItemCount() ? Default() : FALSE;
}

LRESULT CVirtualListCtrl::OnInsertItem(WPARAM, LPARAM) {
    return -1;
}

LRESULT CVirtualListCtrl::OnDeleteItem(WPARAM wParam, LPARAM) {
    return DeleteItem(static_cast<int>(wParam));
}

LRESULT CVirtualListCtrl::OnDeleteAllItems(WPARAM, LPARAM) {
    return DeleteAllItems();
}
