// VirtualRows stores the rows and their selection. The list-view has a copy of the count and of the
// selection by index.
//
// A selection by users or programs in the list-view arrives as notifications and is copied to the
// rows. A change of rows is copied the other way: the selection moves with its rows, and the
// list-view gets the difference.
//
// During some notifications the list-view is iterating over its rows, and its count must not
// shrink. Changes at such a time are sent when it has finished. Until then the rows answer requests
// to the list-view. While the host has disabled redrawing, all changes are sent together before the
// next message to the list-view. Any notification may destroy the list.
#include <quorvel/controls/win/virtual_list_ctrl.h>

#include <quorvel/framework/win/wait_cursor.h>

#include "controls/virtual_rows.h"
#include "util/clipboard/win/opened_clipboard.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

using quorvel::RowRun;
using quorvel::SelectionMessage;
using quorvel::VirtualRows;

IMPLEMENT_DYNAMIC(CVirtualListCtrl, CVaskListCtrl)

BEGIN_MESSAGE_MAP(CVirtualListCtrl, CVaskListCtrl)
ON_NOTIFY_REFLECT(LVN_GETDISPINFOW, &CVirtualListCtrl::OnLvnGetdispinfo)
ON_NOTIFY_REFLECT(LVN_ODFINDITEMW, &CVirtualListCtrl::OnLvnOdfinditem)
ON_WM_CREATE()
ON_WM_CHAR()
ON_MESSAGE(LVM_FINDITEMW, &CVirtualListCtrl::OnFindItem)
ON_MESSAGE(LVM_SETITEMCOUNT, &CVirtualListCtrl::OnSetItemCount)
ON_MESSAGE(LVM_INSERTITEMW, &CVirtualListCtrl::OnInsertItem)
ON_MESSAGE(LVM_INSERTITEMA, &CVirtualListCtrl::OnInsertItem)
ON_MESSAGE(LVM_DELETEITEM, &CVirtualListCtrl::OnDeleteItem)
ON_MESSAGE(LVM_DELETEALLITEMS, &CVirtualListCtrl::OnDeleteAllItems)
END_MESSAGE_MAP()

namespace {

constexpr UINT kCtrlA = 1; // the characters of these two keys
constexpr UINT kCtrlC = 3;

// Limits a host that changes rows whenever it is notified of a selection.
constexpr int kMaxSendings = 16;

constexpr int kUnknownFocus = -2;

// In these the list-view is iterating over its rows, or uses a row's index afterwards.
constexpr UINT kWalkingNotifications[] = {
    LVN_GETDISPINFOW, LVN_GETDISPINFOA, LVN_ITEMCHANGING, LVN_ITEMCHANGED, LVN_ODSTATECHANGED,
    LVN_ODCACHEHINT,  LVN_ODFINDITEMW,  LVN_ODFINDITEMA,  NM_CUSTOMDRAW,
};

bool IsWalkingNotification(UINT code) {
    return std::ranges::count(kWalkingNotifications, code) > 0;
}

// For a parent that does not reflect the notifications: these messages iterate from their start.
bool IsWalkingMessage(UINT message) {
    return message == WM_PAINT || (message >= LVM_FIRST && message < LVM_FIRST + 0x100);
}

} // namespace

// One change of the rows: first copies the selection of the list-view to the rows, then sends it
// the differences.
class CVirtualListCtrl::Change {
public:
    explicit Change(CVirtualListCtrl& list) : m_list(list), m_generation(list.m_generation) {
        if (m_list.m_hWnd == nullptr)
            return;
        const bool isListed = m_list.m_unsent == Unsent::All && !m_list.m_listed.empty();
        if ((m_list.m_isWalking || m_list.m_isSending) && !isListed)
            m_list.m_listed = m_list.m_rows->GetItems();
        if (!m_list.IsListViewCurrent())
            return;
        m_list.ReadSelection();
        if (m_list.IsDeferring())
            return;
        m_shown = m_list.m_rows->GetSelectedRuns();
        m_shownFocus = m_list.m_rows->GetFocusedRow();
    }
    Change(const Change&) = delete;

    void Send() {
        if (m_list.m_hWnd == nullptr)
            return;
        if (m_list.IsDeferring())
            m_list.m_unsent = Unsent::All;
        else if (m_generation == m_list.m_generation)
            m_list.Send(std::move(m_shown), m_shownFocus);
        else // the host's code has changed rows in the meantime
            m_list.Send(m_list.ReadSelectedRuns(), kUnknownFocus);
    }

private:
    CVirtualListCtrl& m_list;
    const unsigned m_generation;
    std::vector<RowRun> m_shown;
    int m_shownFocus = -1;
};

// Sets a member to true during its lifetime.
class CVirtualListCtrl::Flagged {
public:
    Flagged(CVirtualListCtrl& list, bool CVirtualListCtrl::*flag)
        : m_watch(list), m_list(list), m_flag(flag) {
        m_list.*m_flag = true;
    }
    Flagged(const Flagged&) = delete;
    ~Flagged() {
        if (m_watch.IsAlive())
            m_list.*m_flag = false;
    }

private:
    const Watch m_watch;
    CVirtualListCtrl& m_list;
    bool CVirtualListCtrl::*const m_flag;
};

// Draws the list anew after a change of all its rows. If few rows were selected, the list-view gets
// few messages, and a lock would only make it draw its scroll bars twice more.
class CVirtualListCtrl::WholeChange {
public:
    explicit WholeChange(CVirtualListCtrl& list) : m_watch(list), m_list(list) {
        if (m_list.m_rows->GetSelectedCount() > kFewRows)
            m_lock.emplace(m_list);
    }
    WholeChange(const WholeChange&) = delete;
    ~WholeChange() {
        if (m_watch.IsAlive() && m_list.m_hWnd != nullptr && m_list.IsRedrawn())
            m_list.Invalidate();
    }

private:
    static constexpr int kFewRows = 16;

    const Watch m_watch;
    CVirtualListCtrl& m_list;
    std::optional<RedrawLock> m_lock;
};

CVirtualListCtrl::CVirtualListCtrl() : m_rows(std::make_unique<VirtualRows>()) {}

CVirtualListCtrl::~CVirtualListCtrl() {
    if (m_hWnd != nullptr)
        CVirtualListCtrl::DestroyWindow(); // while it may still request the rows
    Drop(m_rows->RemoveAll(), m_areItemsAutoDeleted);
}

// A new window does not know the rows or the selection of a former window.
void CVirtualListCtrl::TakeWindow() {
    m_rows->SelectAll(false);
    m_rows->SetFocusedRow(-1);
    MarkSent();
    m_itemToShow = nullptr;
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
    if (!IsDeferring())
        SendCount();
    else if (m_isWalking || m_isSending || m_isSorting)
        m_unsent = Unsent::All;
    else if (m_unsent == Unsent::Nothing)
        m_unsent = Unsent::Count;
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
    SendAndDrop(change, {item});
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
    SendAndDrop(change, items);
    return static_cast<int>(items.size());
}

BOOL CVirtualListCtrl::DeleteAllItems() {
    const WholeChange whole(*this);
    Change change(*this);
    std::vector<CVirtualListCtrlItem*> items;
    if (m_areItemsAutoDeleted)
        items = m_rows->RemoveAll();
    else
        m_rows->Clear(); // saves listing a million items
    SendAndDrop(change, items);
    return TRUE;
}

void CVirtualListCtrl::ReplaceItems(const std::vector<CVirtualListCtrlItem*>& items) {
    const WholeChange whole(*this);
    Change change(*this);
    SendAndDrop(change, m_rows->Replace(items));
}

void CVirtualListCtrl::ReplaceItemsSorted(const std::vector<CVirtualListCtrlItem*>& items) {
    const Watch watch(*this);
    const WholeChange whole(*this);
    Change change(*this);
    const int focusedRow = m_rows->GetFocusedRow();
    CVirtualListCtrlItem* const focused = GetItem(focusedRow);
    const std::vector<CVirtualListCtrlItem*> removed = m_rows->Replace(items);
    const auto send = [&] {
        if (!watch.IsAlive())
            return;
        if (std::ranges::find(removed, focused) != removed.end()) // its place keeps the focus
            m_rows->SetFocusedRow(std::min(focusedRow, m_rows->GetCount() - 1));
        SendAndDrop(change, removed);
    };
    try {
        const CWaitCursor cursor;
        const Flagged sorting(*this, &CVirtualListCtrl::m_isSorting);
        if (GetSortColumn() >= 0)
            DoSortItems(GetSortColumn(), IsSortAscending());
    } catch (...) { // the order is the host's
        send();
        throw;
    }
    send();
}

void CVirtualListCtrl::SelectInsteadOf(int removedRow, bool wasSelected) {
    const int row = m_hWnd != nullptr ? m_rows->GetRowToSelect(removedRow, wasSelected) : -1;
    if (row >= 0)
        m_rows->Select(row, row, true);
}

// The list-view must drop the items before they are deleted.
void CVirtualListCtrl::SendAndDrop(Change& change,
                                   const std::vector<CVirtualListCtrlItem*>& items) {
    const BOOL areDeleted = m_areItemsAutoDeleted;
    change.Send(); // a handler may destroy this list
    Drop(items, areDeleted);
}

void CVirtualListCtrl::Drop(const std::vector<CVirtualListCtrlItem*>& items, BOOL areDeleted) {
    for (CVirtualListCtrlItem* const item : items) {
        if (areDeleted)
            delete item;
    }
}

void CVirtualListCtrl::SetSearchColumn(int trueColumn) {
    m_rows->SetSearchColumn(trueColumn);
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
    if (m_isSorting)
        return nullptr;
    if (m_hWnd != nullptr && IsListViewCurrent())
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
    const Watch watch(*this);
    Change change(*this);
    const int row = direction < 0 ? m_rows->MoveSelectedUp() : m_rows->MoveSelectedDown();
    if (row < 0)
        return -1;
    change.Send();
    if (!watch.IsAlive() || m_hWnd == nullptr)
        return row;
    const int other = row - direction;
    if (m_unsent == Unsent::Nothing)
        RedrawItems(std::min(row, other), std::max(row, other));
    ShowRow(row);
    return row;
}

BOOL CVirtualListCtrl::SortItems(int column, int ascending, int force) {
    const BOOL isAscending = ascending != 0;
    if (!force && column == GetSortColumn() && isAscending == IsSortAscending())
        return FALSE;
    const CWaitCursor cursor;
    const Watch watch(*this);
    const RedrawLock lock(*this);
    Change change(*this);
    {
        // In the meantime no row counts as selected. The list-view is not notified: unselecting and
        // selecting 1,000,000 rows would take it seconds.
        const Flagged sorting(*this, &CVirtualListCtrl::m_isSorting);
        DoSortItems(column, isAscending);
        if (watch.IsAlive())
            SetSortColumn(column); // its header notifies the host
        if (watch.IsAlive())
            SetSortAscending(isAscending);
    }
    if (!watch.IsAlive())
        return TRUE;
    change.Send();
    if (watch.IsAlive())
        ShowRow(m_rows->GetFocusedRow());
    return TRUE;
}

void CVirtualListCtrl::DoSortItems(int column, int ascending) {
    m_rows->Sort(GetSortingFunction(column, ascending));
}

CVirtualListCtrl::SortingFunction CVirtualListCtrl::GetSortingFunction(int, int) {
    return nullptr;
}

void CVirtualListCtrl::SortRows(const RowOrder& isBefore) {
    const RedrawLock lock(*this);
    Change change(*this);
    m_rows->SortBy(isBefore);
    change.Send();
}

void CVirtualListCtrl::ShowRow(int row) {
    if (row < 0 || m_hWnd == nullptr)
        return;
    if (m_unsent == Unsent::Nothing)
        EnsureVisible(row, FALSE);
    else
        m_itemToShow = GetItem(row);
}

// The list-view's copy of count and selection

bool CVirtualListCtrl::IsDeferring() const {
    return m_isWalking || m_isSending || m_isSorting || !IsRedrawn();
}

bool CVirtualListCtrl::IsListViewCurrent() const {
    return !m_isWalking && !m_isSending && !m_isSorting && m_unsent == Unsent::Nothing;
}

LRESULT CVirtualListCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (m_isSorting || (m_isWalking && m_unsent != Unsent::Nothing)) {
        LRESULT answer = 0;
        if (AnswerFromRows(message, wParam, lParam, answer))
            return answer;
    } else if (m_unsent != Unsent::Nothing && !m_isSending) {
        const Watch watch(*this);
        SendUnsent(); // before a message can read it
        if (!watch.IsAlive())
            return 0;
    }
    return CVaskListCtrl::WindowProc(message, wParam, lParam);
}

LRESULT CVirtualListCtrl::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const Watch watch(*this);
    const bool wasWalking = m_isWalking;
    const bool wasWalkingOutside = std::exchange(m_isWalkingOutside, wasWalking);
    m_isWalking = wasWalking || IsWalkingMessage(message);
    ++m_messageDepth;
    const LRESULT result = CVaskListCtrl::DefWindowProc(message, wParam, lParam);
    if (!watch.IsAlive())
        return result;
    --m_messageDepth;
    m_isWalking = wasWalking;
    m_isWalkingOutside = wasWalkingOutside;
    SendWhenPossible();
    return result;
}

// Called before any handler of this class, of a derived one or of the parent.
BOOL CVirtualListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_NOTIFY) {
        const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
        TakeOver(header);
        if (m_messageDepth > 0)
            m_isWalking = m_isWalkingOutside || IsWalkingNotification(header.code);
        const Watch watch(*this);
        SendWhenPossible(); // changes made in an earlier notification of the same message
        if (!watch.IsAlive())
            return TRUE;
    }
    return CVaskListCtrl::OnChildNotify(message, wParam, lParam, result);
}

// A row is made visible last: a list with redrawing disabled does not scroll.
void CVirtualListCtrl::SendWhenPossible() {
    if (m_hWnd == nullptr || IsDeferring())
        return;
    const Watch watch(*this);
    const CVirtualListCtrlItem* const shown = std::exchange(m_itemToShow, nullptr);
    if (m_unsent == Unsent::All)
        SendUnsent();
    if (watch.IsAlive() && shown != nullptr)
        ShowRow(m_rows->GetRow(shown));
}

// Answers from the rows if the list-view does not have the current data yet.
bool CVirtualListCtrl::AnswerFromRows(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& answer) {
    const int row = static_cast<int>(wParam);
    const UINT word = static_cast<UINT>(lParam);
    switch (message) {
    case LVM_GETITEMCOUNT:
        answer = m_rows->GetCount();
        return true;
    case LVM_GETSELECTEDCOUNT:
        answer = m_isSorting ? 0 : m_rows->GetSelectedCount();
        return true;
    case LVM_GETNEXTITEM:
        if ((word & ~UINT{LVNI_SELECTED | LVNI_FOCUSED}) != 0) // asks for a place on the screen
            return false;
        answer =
            m_isSorting && (word & LVNI_SELECTED) != 0
                ? -1
                : m_rows->GetNextRow(row, (word & LVNI_SELECTED) != 0, (word & LVNI_FOCUSED) != 0);
        return true;
    case LVM_GETITEMSTATE:
        answer = (!m_isSorting && m_rows->IsSelected(row) ? word & LVIS_SELECTED : 0) |
                 (row == m_rows->GetFocusedRow() && row >= 0 ? word & LVIS_FOCUSED : 0);
        return true;
    case LVM_SETITEMSTATE:
        answer = SetStateOfRows(row, *reinterpret_cast<const LVITEMW*>(lParam));
        return true;
    case LVM_ENSUREVISIBLE:
        answer = m_rows->IsRow(row);
        m_itemToShow = answer != FALSE ? GetItem(row) : m_itemToShow;
        return true;
    default:
        return false;
    }
}

BOOL CVirtualListCtrl::SetStateOfRows(int row, const LVITEMW& item) {
    const bool isForAll = row == -1;
    const bool isSelected = (item.state & LVIS_SELECTED) != 0;
    const bool isSingle = (GetStyle() & LVS_SINGLESEL) != 0;
    if (!m_rows->IsRow(row) && !isForAll)
        return FALSE;
    if ((item.stateMask & LVIS_SELECTED) != 0) {
        if (isSelected && isSingle && isForAll)
            return FALSE;
        if (isForAll || (isSelected && isSingle))
            m_rows->SelectAll(isSelected && isForAll);
        m_rows->Select(row, row, isSelected);
    }
    if ((item.stateMask & LVIS_FOCUSED) != 0 && !isForAll) {
        if ((item.state & LVIS_FOCUSED) != 0)
            m_rows->SetFocusedRow(row);
        else if (m_rows->GetFocusedRow() == row)
            m_rows->SetFocusedRow(-1);
    }
    return TRUE;
}

// Sends a message, because the window may not have this object's procedure yet.
void CVirtualListCtrl::SendCount() {
    MarkSent();
    ::SendMessageW(m_hWnd, LVM_SETITEMCOUNT, static_cast<WPARAM>(m_rows->GetCount()),
                   LVSICF_NOINVALIDATEALL);
}

void CVirtualListCtrl::SendUnsent() {
    if (m_unsent == Unsent::Count) {
        SendCount();
        return;
    }
    const RedrawLock lock(*this);
    Send(ReadSelectedRuns(), kUnknownFocus);
}

// Reads the list-view's own data, without the answers from the rows.
LRESULT CVirtualListCtrl::Ask(UINT message, int row, LPARAM lParam) const {
    return const_cast<CVirtualListCtrl*>(this)->CVaskListCtrl::DefWindowProc(
        message, static_cast<WPARAM>(row), lParam);
}

// Reads the selection from the list-view. A parent may not reflect the notifications, and a
// shrinking count drops selected rows without one.
void CVirtualListCtrl::ReadSelection() const {
    const auto isSelected = [this](int row) {
        return Ask(LVM_GETITEMSTATE, row, LVIS_SELECTED) != 0;
    };
    const int focusedRow = m_rows->GetFocusedRow();
    const std::vector<RowRun> runs = m_rows->GetSelectedRuns();
    if (Ask(LVM_GETSELECTEDCOUNT, 0, 0) != m_rows->GetSelectedCount() ||
        (focusedRow >= 0 && Ask(LVM_GETITEMSTATE, focusedRow, LVIS_FOCUSED) == 0) ||
        !std::ranges::all_of(
            runs, [&](const RowRun& run) { return isSelected(run.first) && isSelected(run.last); }))
        TakeSelection();
}

void CVirtualListCtrl::TakeSelection() const {
    m_rows->SelectAll(false);
    for (const RowRun& run : ReadSelectedRuns())
        TakeOverSelection(run.first, run.last, true);
    m_rows->SetFocusedRow(GetCurrentRow(static_cast<int>(Ask(LVM_GETNEXTITEM, -1, LVNI_FOCUSED))));
}

// The list-view counts the rows as they were before the changes that it does not have yet.
int CVirtualListCtrl::GetCurrentRow(int listedRow) const {
    if (m_unsent != Unsent::All || m_listed.empty())
        return listedRow;
    const auto index = static_cast<std::size_t>(listedRow);
    return index < m_listed.size() ? m_rows->GetRow(m_listed[index]) : -1;
}

void CVirtualListCtrl::TakeOverSelection(int first, int last, bool isSelected) const {
    const int count = m_unsent == Unsent::All ? static_cast<int>(m_listed.size()) : 0;
    if (count == 0)
        m_rows->Select(first, last, isSelected);
    else if (first >= 0 && first <= last && first < count)
        m_rows->Select({m_listed.begin() + first, m_listed.begin() + std::min(last + 1, count)},
                       isSelected);
}

void CVirtualListCtrl::MarkSent() {
    m_unsent = Unsent::Nothing;
    m_listed.clear();
}

// LVM_GETNEXTITEM visits all rows up to the next selected one, after the last one all.
std::vector<RowRun> CVirtualListCtrl::ReadSelectedRuns() const {
    std::vector<RowRun> runs;
    const int count = static_cast<int>(Ask(LVM_GETITEMCOUNT, 0, 0));
    int left = static_cast<int>(Ask(LVM_GETSELECTEDCOUNT, 0, 0));
    if (left > 0 && left >= count)
        return {{0, count - 1}};
    int row = -1;
    for (; left > 0; --left) {
        row = static_cast<int>(Ask(LVM_GETNEXTITEM, row, LVNI_SELECTED));
        if (row < 0)
            break;
        if (!runs.empty() && runs.back().last + 1 == row)
            runs.back().last = row;
        else
            runs.push_back({row, row});
    }
    return runs;
}

// Starts again if the rows change while it is sending.
void CVirtualListCtrl::Send(std::vector<RowRun> shown, int shownFocus) {
    ++m_generation;
    const Watch watch(*this);
    {
        const Flagged sending(*this, &CVirtualListCtrl::m_isSending);
        for (int i = 0; i == 0 || (m_unsent != Unsent::Nothing && i < kMaxSendings); ++i) {
            MarkSent(); // first: handlers may change rows while the count is sent
            if (Ask(LVM_GETITEMCOUNT, 0, 0) != m_rows->GetCount()) // it draws the scroll bars
                SendCount();
            if (i > 0)
                shown = ReadSelectedRuns();
            SendDifference(shown, i > 0 ? kUnknownFocus : shownFocus);
            if (!watch.IsAlive() || m_hWnd == nullptr)
                return;
        }
    }
    if (m_unsent != Unsent::Nothing) {
        SendCount();
        TakeSelection();
    }
}

void CVirtualListCtrl::SendDifference(const std::vector<RowRun>& shown, int shownFocus) {
    const Watch watch(*this);
    for (const SelectionMessage& message :
         quorvel::PlanSelection(shown, m_rows->GetSelectedRuns(), GetItemCount())) {
        m_isSendingAll = message.row == SelectionMessage::kAllRows;
        SetItemState(message.row, message.isSelected ? LVIS_SELECTED : 0, LVIS_SELECTED);
        if (!watch.IsAlive())
            return;
        m_isSendingAll = false;
        if (m_unsent != Unsent::Nothing || m_hWnd == nullptr)
            return;
    }
    const int row = m_rows->GetFocusedRow();
    if (row < 0 || row == shownFocus)
        return;
    SetSelectionMark(row);
    SetItemState(row, LVIS_FOCUSED, LVIS_FOCUSED);
}

void CVirtualListCtrl::TakeOver(const NMHDR& header) {
    if (header.code == LVN_ITEMCHANGED) {
        const NMLISTVIEW& change = reinterpret_cast<const NMLISTVIEW&>(header);
        TakeOverItem(change.iItem, change.uNewState, change.uNewState ^ change.uOldState);
    } else if (header.code == LVN_ODSTATECHANGED) {
        const NMLVODSTATECHANGE& change = reinterpret_cast<const NMLVODSTATECHANGE&>(header);
        if (((change.uNewState ^ change.uOldState) & LVIS_SELECTED) != 0)
            TakeOverSelection(change.iFrom, change.iTo, (change.uNewState & LVIS_SELECTED) != 0);
    }
}

void CVirtualListCtrl::TakeOverItem(int row, UINT state, UINT changed) {
    if (row < 0) { // all rows, but only some of them may have changed
        if (!m_isSendingAll)
            TakeSelection();
        return;
    }
    if ((changed & LVIS_SELECTED) != 0)
        TakeOverSelection(row, row, (state & LVIS_SELECTED) != 0);
    if ((changed & LVIS_FOCUSED) != 0) {
        const int currentRow = GetCurrentRow(row);
        if ((state & LVIS_FOCUSED) != 0)
            m_rows->SetFocusedRow(currentRow);
        else if (currentRow >= 0 && m_rows->GetFocusedRow() == currentRow)
            m_rows->SetFocusedRow(-1);
    }
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
    // Last, because this is the host's code, which may delete the row. The list-view counts only
    // the shown columns, the host counts all columns.
    const int trueColumn = GetTrueColumn(asked.iSubItem);
    const CString text = item->GetSubItemText(trueColumn >= 0 ? trueColumn : asked.iSubItem);
    ::lstrcpynW(asked.pszText, text, asked.cchTextMax);
}

// Only typed letters arrive here. Their start row depends on the platform's version.
void CVirtualListCtrl::OnLvnOdfinditem(NMHDR* header, LRESULT* result) {
    const NMLVFINDITEMW& find = *reinterpret_cast<const NMLVFINDITEMW*>(header);
    *result = m_rows->FindTyped(find.lvfi.psz, m_rows->GetFocusedRow());
}

// A search by the program.
LRESULT CVirtualListCtrl::OnFindItem(WPARAM wParam, LPARAM lParam) {
    const LVFINDINFOW* const find = reinterpret_cast<const LVFINDINFOW*>(lParam);
    if (find == nullptr)
        return -1;
    const bool isPart = (find->flags & LVFI_PARTIAL) != 0;
    if (!isPart && (find->flags & LVFI_STRING) == 0)
        return Default();
    return m_rows->Find(find->psz, static_cast<int>(wParam) + 1, !isPart,
                        (find->flags & LVFI_WRAP) != 0);
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
    if (columns.empty()) // not in report view
        columns.push_back(0);
    const CString text = m_rows->GetSelectedText(columns);
    quorvel::PlaceOnClipboard(m_hWnd, CF_UNICODETEXT, text.GetString(),
                              (static_cast<SIZE_T>(text.GetLength()) + 1) * sizeof(WCHAR));
}

// The platform's messages that would change the number of rows without the rows.

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
