// The rows of a list that keeps them itself: pointers to items in the order they are shown, each
// selected or not, and the row that has the focus.
//
// Selection and focus belong to rows, not to indexes: they move along when rows are sorted, moved,
// inserted and deleted. A list view without data knows indexes only, so a control compares the
// selection before and after a change (GetSelectedRuns) and sends what PlanSelection says.
//
// Rows lie in blocks, so that inserting and deleting one costs about the square root of their
// number; finding an item costs a walk over all. Items are not owned. Used on one thread at a time.
// Lack of memory throws std::bad_alloc, and nothing has changed then.
#pragma once

#include <quorvel/controls/virtual_list_ctrl_item.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace quorvel {

// Whether the first item comes before the second: a strict weak order.
typedef bool (*VirtualRowOrder)(CVirtualListCtrlItem* const&, CVirtualListCtrlItem* const&);

struct RowRun {
    int first;
    int last;
    friend bool operator==(const RowRun&, const RowRun&) = default;
};

// One message to a list view: a row, or all of them.
struct SelectionMessage {
    static constexpr int kAllRows = -1;
    int row;
    bool isSelected;
    friend bool operator==(const SelectionMessage&, const SelectionMessage&) = default;
};

// The cheapest messages that lead from one selection to another: for the single rows that differ,
// or for all rows first and then for the exceptions. Runs are in ascending order and do not touch.
// Rows of `shown` from the count on are passed over, as a list view drops them when its count
// shrinks.
std::vector<SelectionMessage> PlanSelection(const std::vector<RowRun>& shown,
                                            const std::vector<RowRun>& wanted, int rowCount);

class VirtualRows {
public:
    int GetCount() const { return m_count; }
    bool IsRow(int row) const { return row >= 0 && row < m_count; }
    CVirtualListCtrlItem* GetItem(int row) const;       // null for no row
    int GetRow(const CVirtualListCtrlItem* item) const; // the first; -1 when there is none

    // The new row, which is not selected; -1 for a null item and outside 0 to the number of rows.
    int Add(CVirtualListCtrlItem* item) { return Insert(m_count, item); }
    int Insert(int row, CVirtualListCtrlItem* item);
    // The item, for the caller to delete; null for no row. The focus of a deleted row is then at
    // the same index, or at the last row.
    CVirtualListCtrlItem* Remove(int row);
    // Several at once in linear time. Rows in any order; those that are named twice or not there
    // are passed over. The items are in the order of their rows.
    std::vector<CVirtualListCtrlItem*> Remove(std::vector<int> rows);
    std::vector<CVirtualListCtrlItem*> RemoveAll();
    // Puts these items, each once, in the place of all rows; null ones are passed over. Items that
    // were there keep selection and focus. The items that are not there any more, in any order.
    std::vector<CVirtualListCtrlItem*> Replace(const std::vector<CVirtualListCtrlItem*>& items);
    // The row to select after a deletion, whose first row was selected or not: the one that is at
    // its index now, or the last. -1 when nothing is to be selected.
    int GetRowToSelect(int removedRow, bool wasSelected) const;

    // Rows that compare equal keep their order. A null order leaves all as it is. An exception of
    // the order leaves the rows as they were.
    void Sort(VirtualRowOrder order);
    void SortBy(const std::function<bool(CVirtualListCtrlItem* const&,
                                         CVirtualListCtrlItem* const&)>& order);
    // Exchanges the one selected row with its neighbour. Its new index; -1 when there is no
    // neighbour, and unless exactly one row is selected.
    int MoveSelectedUp() { return MoveSelected(-1); }
    int MoveSelectedDown() { return MoveSelected(1); }
    bool CanMoveSelectedUp() const { return IsRow(GetOnlySelectedRow() - 1); }
    bool CanMoveSelectedDown() const;

    // As a list view reports it: one row, a range, or all. Rows that are not there are passed over.
    void Select(int first, int last, bool isSelected);
    void SelectAll(bool isSelected) { Select(0, m_count - 1, isSelected); }
    bool IsSelected(int row) const;
    int GetSelectedCount() const { return m_selectedCount; }
    int GetFirstSelectedRow() const; // -1 when there is none
    // The next after a row (-1: the first) that is selected and has the focus, as far as is asked;
    // -1 when there is none.
    int GetNextRow(int after, bool isSelected, bool isFocused) const;
    int GetOnlySelectedRow() const { return m_selectedCount == 1 ? GetFirstSelectedRow() : -1; }
    // Costs little more than the number of selected rows, unless few rows of a block are.
    std::vector<RowRun> GetSelectedRuns() const;

    // -1 when no row has the focus, or the row is not there.
    void SetFocusedRow(int row) { m_focusedRow = IsRow(row) ? row : -1; }
    int GetFocusedRow() const { return m_focusedRow; }

    // The first row from `start` on whose text in column 0 is the text or begins with it, without
    // regard to letter case; with `wraps` the rows before `start` follow, which may be the number
    // of rows then. -1 when there is none, for an empty or null text and for another start that is
    // not there, which counts as 0 when it is -1.
    int Find(const WCHAR* text, int start, bool isWholeText, bool wraps) const;
    // What typed letters lead to from the focused row: the row itself while it begins with them,
    // otherwise the next one. A single letter, and one that is repeated while nothing begins with
    // the repetition, leads from each row to the next that begins with it.
    int FindTyped(const WCHAR* typed, int focusedRow) const;

    // The selected rows, a line each, with the texts of these columns in this order between tabs.
    // Tabs and line breaks within a text become blanks. Throws CMemoryException too.
    CString GetSelectedText(const std::vector<int>& columns) const;

private:
    // An item's address, with the lowest bit set when the row is selected.
    typedef std::uintptr_t Slot;
    struct Block {
        std::vector<Slot> slots;
        int selectedCount = 0;
    };
    struct Place {
        std::size_t block;
        std::size_t slot;
    };

    Place Locate(int row) const;
    template <class Order>
    void SortRows(Order order);
    int MoveSelected(int direction);
    void Split(std::size_t block, std::size_t kept);
    std::vector<Slot> Flattened() const;
    void Fill(const std::vector<Slot>& slots);

    std::vector<Block> m_blocks;
    int m_count = 0;
    int m_selectedCount = 0;
    int m_focusedRow = -1;
    // The block that was located last and its first row: neighbours are often asked for.
    mutable std::size_t m_knownBlock = 0;
    mutable int m_knownFirst = 0;
};

} // namespace quorvel
