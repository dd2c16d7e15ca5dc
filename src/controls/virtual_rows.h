// The rows of a list that stores them itself: pointers to items in display order, the selected
// rows, and the row that has the focus.
//
// Selection and focus belong to rows, not to indexes: they move with them when rows are sorted,
// moved, inserted or deleted. A list view without data only knows indexes, so a control compares
// the selection before and after a change (GetSelectedRuns) and sends what PlanSelection returns.
//
// Rows are stored in blocks, so that inserting and deleting costs about the square root of their
// number; finding an item visits all rows. Items are not owned. One thread at a time. Lack of
// memory throws std::bad_alloc and changes nothing.
#pragma once

#include <quorvel/controls/virtual_list_ctrl_item.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace quorvel {

// Whether the first item comes before the second. It must be a strict weak order.
typedef bool (*VirtualRowOrder)(CVirtualListCtrlItem* const&, CVirtualListCtrlItem* const&);

struct RowRun {
    int first;
    int last;
    friend bool operator==(const RowRun&, const RowRun&) = default;
};

// One message to a list view, for one row or for all.
struct SelectionMessage {
    static constexpr int kAllRows = -1;
    int row;
    bool isSelected;
    friend bool operator==(const SelectionMessage&, const SelectionMessage&) = default;
};

// The cheapest messages that change one selection to another: for the single rows that differ, or
// first for all rows and then for the exceptions. Runs are in ascending order and do not touch.
// Rows of `shown` from the count on are ignored, because a list view drops them when its count
// shrinks.
std::vector<SelectionMessage> PlanSelection(const std::vector<RowRun>& shown,
                                            const std::vector<RowRun>& wanted, int rowCount);

class VirtualRows {
public:
    int GetCount() const { return m_count; }
    bool IsRow(int row) const { return row >= 0 && row < m_count; }
    CVirtualListCtrlItem* GetItem(int row) const;       // null for an unknown row
    int GetRow(const CVirtualListCtrlItem* item) const; // the first; -1 if not found
    std::vector<CVirtualListCtrlItem*> GetItems() const;

    // The new row, which is not selected; -1 for a null item and a row outside 0 to the count.
    int Add(CVirtualListCtrlItem* item);
    int Insert(int row, CVirtualListCtrlItem* item);
    // Returns the item, which the caller deletes; null for an unknown row. The focus of a deleted
    // row moves to the row that is then at its index, or to the last one.
    CVirtualListCtrlItem* Remove(int row);
    // Removes several rows in linear time. They may be in any order; repeated and unknown rows are
    // ignored. Returns the items in the order of their rows.
    std::vector<CVirtualListCtrlItem*> Remove(std::vector<int> rows);
    std::vector<CVirtualListCtrlItem*> RemoveAll();
    void Clear();
    // Replaces all rows by these items, each once; ignores null. Items that were there keep
    // selection and focus. Returns the items that are no longer there, in any order.
    std::vector<CVirtualListCtrlItem*> Replace(const std::vector<CVirtualListCtrlItem*>& items);
    // The row to select after a deletion if the first deleted row was selected: the row that is now
    // at its index, or the last one. -1 to select nothing.
    int GetRowToSelect(int removedRow, bool wasSelected) const;

    // Rows that compare equal keep their order. A null order changes nothing. If the order throws,
    // the rows do not change.
    void Sort(VirtualRowOrder order);
    void SortBy(const std::function<bool(CVirtualListCtrlItem* const&,
                                         CVirtualListCtrlItem* const&)>& order);
    // Exchanges the only selected row with its neighbour and returns its new index. Returns -1
    // without a neighbour, and unless exactly one row is selected.
    int MoveSelectedUp() { return MoveSelected(-1); }
    int MoveSelectedDown() { return MoveSelected(1); }
    bool CanMoveSelectedUp() const { return IsRow(GetOnlySelectedRow() - 1); }
    bool CanMoveSelectedDown() const;

    // Like a list view reports it: one row, a range, or all rows. Ignores unknown rows.
    void Select(int first, int last, bool isSelected);
    void Select(std::vector<CVirtualListCtrlItem*> items, bool isSelected); // in all their rows
    void SelectAll(bool isSelected) { Select(0, m_count - 1, isSelected); }
    bool IsSelected(int row) const;
    int GetSelectedCount() const { return m_selectedCount; }
    int GetFirstSelectedRow() const; // -1 if no row is
    // The next row after `after` (-1: from the first) that is selected or has the focus, as
    // required; -1 if there is none.
    int GetNextRow(int after, bool isSelected, bool isFocused) const;
    int GetOnlySelectedRow() const { return m_selectedCount == 1 ? GetFirstSelectedRow() : -1; }
    // Costs little more than the number of selected rows, unless a block has few of them.
    std::vector<RowRun> GetSelectedRuns() const;

    // -1 removes the focus; so does an unknown row.
    void SetFocusedRow(int row) { m_focusedRow = IsRow(row) ? row : -1; }
    int GetFocusedRow() const { return m_focusedRow; }

    void SetSearchColumn(int trueColumn) { m_searchColumn = trueColumn; } // 0 at first
    // The first row from `start` on whose text in the search column equals the text or begins with
    // it. Ignores letter case. With `wraps` the rows before `start` follow, and `start` may then
    // equal the number of rows. Returns -1 if there is none, for an empty or null text, and for any
    // other invalid `start`, except that -1 counts as 0.
    int Find(const WCHAR* text, int start, bool isWholeText, bool wraps) const;
    // The row for typed letters: the focused row while it begins with them, otherwise the next row
    // that does. A single letter, or a repeated one while no row begins with the repetition, moves
    // from each row to the next one that begins with it.
    int FindTyped(const WCHAR* typed, int focusedRow) const;

    // The selected rows, one on each line, with the texts of these columns in this order, separated
    // by tabs. Tabs and line breaks in a text become blanks. Can also throw CMemoryException.
    CString GetSelectedText(const std::vector<int>& columns) const;

private:
    // An item's address; the lowest bit is set if the row is selected.
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
    int m_searchColumn = 0;
    // The block located last and its first row. Often the next request is for a neighbour.
    mutable std::size_t m_knownBlock = 0;
    mutable int m_knownFirst = 0;
};

} // namespace quorvel
