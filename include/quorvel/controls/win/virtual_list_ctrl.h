// CVirtualListCtrl: a report list that keeps its rows itself, as pointers to items. Windows only,
// user-interface thread.
//
// The window must have the style LVS_OWNERDATA. Rows count from 0 in the order shown. Selection and
// focus belong to items: they move along when rows are sorted, moved, inserted and deleted. Rows
// may be changed within notifications of the list and without a window. Add many rows while
// WM_SETREDRAW is off: the list-view is then sent their number once.
//
// Letters that are typed find the row whose first text begins with them. Ctrl+A selects all rows.
// Ctrl+C copies the selected ones, a line each, with the texts of the shown columns between tabs.
//
// The platform's own messages that would change the number of rows (LVM_DELETEITEM and so on) act
// on the rows here, or are refused.
#pragma once

#include <quorvel/controls/virtual_list_ctrl_item.h>
#include <quorvel/controls/win/vask_list_ctrl.h>

#include <memory>
#include <vector>

namespace quorvel {
class VirtualRows;
struct RowRun;
} // namespace quorvel

class QUORVEL_API CVirtualListCtrl : public CVaskListCtrl {
    DECLARE_DYNAMIC(CVirtualListCtrl)
public:
    // Whether the first item comes before the second: a strict weak order.
    typedef bool (*SortingFunction)(CVirtualListCtrlItem* const& first,
                                    CVirtualListCtrlItem* const& second);

    CVirtualListCtrl();
    ~CVirtualListCtrl() override; // drops the rows

    // Whether the list deletes the items that it drops, which are the caller's otherwise. FALSE at
    // first.
    void SetAutoDeleteItems(BOOL autoDelete = TRUE) { m_areItemsAutoDeleted = autoDelete; }
    BOOL AreItemsAutoDeleted() const { return m_areItemsAutoDeleted; }

    // The new row; -1, and the item stays the caller's, for null and outside 0 to the row count.
    int AddItem(CVirtualListCtrlItem* item);
    int InsertItem(int index, CVirtualListCtrlItem* item);
    // FALSE for a row that does not exist. When the last selected row is deleted, the row that is
    // now at its index is selected, or the last row.
    BOOL DeleteItem(int index);
    BOOL DeleteItem(CVirtualListCtrlItem* item);
    // Several rows in any order, in the time of a walk over all. The number of rows deleted.
    int DeleteItems(std::vector<int> indexes);
    BOOL DeleteAllItems();

    int GetItemCount() const;
    BOOL IsValidItemIndex(int index) const;
    CVirtualListCtrlItem* GetItem(int index) const; // null for no row
    int GetItemIndex(CVirtualListCtrlItem* item) const;
    CVirtualListCtrlItem* GetSelectedItem() const; // of the first selected row; null for none

    int MoveSelectedItemUp() override;
    int MoveSelectedItemDown() override;
    // FALSE, and nothing changed, when `force` is 0 and the list is sorted like this already.
    // Otherwise TRUE; the focused row is in view afterwards.
    BOOL SortItems(int column, int ascending, int force) override;

    // Orders the rows by GetSortingFunction; those that compare equal keep their order.
    virtual void DoSortItems(int column, int ascending);
    virtual SortingFunction GetSortingFunction(int column, int ascending); // here null: no sorting

protected:
    // Shows these items, none of them null, instead of all that are there. The latter are dropped,
    // never deleted. Selection and focus stay with items that were there.
    void ReplaceItems(const std::vector<CVirtualListCtrlItem*>& items);

    void PreSubclassWindow() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    int OnCreate(CREATESTRUCTW* parameters);
    void OnChar(UINT character, UINT repeats, UINT flags);
    LRESULT OnSetItemCount(WPARAM wParam, LPARAM lParam);
    LRESULT OnInsertItem(WPARAM wParam, LPARAM lParam);
    LRESULT OnDeleteItem(WPARAM wParam, LPARAM lParam);
    LRESULT OnDeleteAllItems(WPARAM wParam, LPARAM lParam);
    void OnLvnGetdispinfo(NMHDR* header, LRESULT* result);
    void OnLvnOdfinditem(NMHDR* header, LRESULT* result);
    BOOL OnLvnItemchanged(NMHDR* header, LRESULT* result);
    BOOL OnLvnOdstatechanged(NMHDR* header, LRESULT* result);
    DECLARE_MESSAGE_MAP()

private:
    class Change;

    void TakeWindow();
    void SelectInsteadOf(int removedRow, bool wasSelected);
    void Drop(CVirtualListCtrlItem* item);
    int MoveSelected(int direction);
    void SendCount();
    void ReadSelection() const;
    void TakeSelection() const;
    std::vector<quorvel::RowRun> ReadSelectedRuns() const;
    void Send(std::vector<quorvel::RowRun> shown, int shownFocus);
    void SendDifference(const std::vector<quorvel::RowRun>& shown, int shownFocus);
    void ShowRow(int row);
    void CopySelectedRows();

    std::unique_ptr<quorvel::VirtualRows> m_rows;
    BOOL m_areItemsAutoDeleted = FALSE;
    bool m_isCountUnsent = false; // rows were added while the list was not redrawn
    int m_messageDepth = 0;       // of messages that the list-view is handling
    bool m_isSendPending = false; // rows have changed meanwhile
    bool m_isSending = false;
    bool m_isSendingAll = false; // one message for all rows
    unsigned m_generation = 0;   // counts the sendings
};
