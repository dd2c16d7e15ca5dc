// CVirtualListCtrl: a report list that keeps its rows itself, as pointers to items. Windows only,
// user-interface thread.
//
// The window must have the style LVS_OWNERDATA, which Create adds. A dialog's template must give
// it: the platform takes it from nobody later. Rows count from 0 in the order shown. Selection and
// focus belong to items: they move along when rows are sorted, moved, inserted and deleted.
//
// Rows may be changed without a window and within notifications of the list, whose members then
// answer by the new rows. Change many rows while WM_SETREDRAW is off: the list-view is then sent
// the changes once. A notification may also destroy the list.
//
// Letters that are typed find the row whose first text begins with them. Ctrl+A selects all rows.
// Ctrl+C copies the selected ones, a line each, with the texts of the shown columns between tabs.
//
// The platform's own messages that would change the number of rows (LVM_DELETEITEM and so on) act
// on the rows here, or are refused.
#pragma once

#include <quorvel/controls/virtual_list_ctrl_item.h>
#include <quorvel/controls/win/vask_list_ctrl.h>

#include <functional>
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

    typedef std::function<bool(CVirtualListCtrlItem* const&, CVirtualListCtrlItem* const&)>
        RowOrder;

    CVirtualListCtrl();
    ~CVirtualListCtrl() override; // drops the rows
    // Adds LVS_OWNERDATA.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CVaskListCtrl::Create(style | LVS_OWNERDATA, rect, parent, id);
    }

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
    CVirtualListCtrlItem* GetSelectedItem() const; // in the first selected row, or null

    int MoveSelectedItemUp() override;
    int MoveSelectedItemDown() override;
    // FALSE, and nothing changed, when `force` is 0 and the list is sorted like this already.
    // Otherwise TRUE; the focused row is in view afterwards. Items stay selected; while
    // DoSortItems runs, none counts as selected.
    BOOL SortItems(int column, int ascending, int force) override;
    using CVaskListCtrl::SortItems;

    // Orders the rows by GetSortingFunction. A derived class that needs more than a function, such
    // as a collation or what the user chose, overrides it and calls SortRows.
    virtual void DoSortItems(int column, int ascending);
    virtual SortingFunction GetSortingFunction(int column, int ascending); // here null: no sorting

protected:
    // Orders the rows; those that compare equal keep their order. An empty function changes
    // nothing.
    void SortRows(const RowOrder& isBefore);
    // Puts these items, each once, in the place of all rows, such as those that a filter leaves.
    // Null ones are passed over. Items that were there keep selection and focus; those that are
    // left out are dropped.
    void ReplaceItems(const std::vector<CVirtualListCtrlItem*>& items);

    void PreSubclassWindow() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    int OnCreate(CREATESTRUCTW* parameters);
    void OnChar(UINT character, UINT repeats, UINT flags);
    LRESULT OnFindItem(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetItemCount(WPARAM wParam, LPARAM lParam);
    LRESULT OnInsertItem(WPARAM wParam, LPARAM lParam);
    LRESULT OnDeleteItem(WPARAM wParam, LPARAM lParam);
    LRESULT OnDeleteAllItems(WPARAM wParam, LPARAM lParam);
    void OnLvnGetdispinfo(NMHDR* header, LRESULT* result);
    void OnLvnOdfinditem(NMHDR* header, LRESULT* result);
    DECLARE_MESSAGE_MAP()

private:
    class Change;
    class Flagged;
    enum class Unsent { Nothing, Count, All };

    void TakeWindow();
    void SelectInsteadOf(int removedRow, bool wasSelected);
    void SendAndDrop(Change& change, const std::vector<CVirtualListCtrlItem*>& items);
    static void Drop(const std::vector<CVirtualListCtrlItem*>& items, BOOL areDeleted);
    int MoveSelected(int direction);
    bool IsDeferring() const;
    bool IsListViewCurrent() const;
    void SendWhenPossible();
    void SendUnsent();
    void SendCount();
    bool AnswerFromRows(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& answer);
    BOOL SetStateOfRows(int row, const LVITEMW& item);
    LRESULT Ask(UINT message, int row, LPARAM lParam) const;
    void ReadSelection() const;
    void TakeSelection() const;
    std::vector<quorvel::RowRun> ReadSelectedRuns() const;
    void Send(std::vector<quorvel::RowRun> shown, int shownFocus);
    void SendDifference(const std::vector<quorvel::RowRun>& shown, int shownFocus);
    void TakeOver(const NMHDR& header);
    void TakeOverItem(int row, UINT state, UINT changed);
    void ShowRow(int row);
    void CopySelectedRows();

    std::unique_ptr<quorvel::VirtualRows> m_rows;
    BOOL m_areItemsAutoDeleted = FALSE;
    Unsent m_unsent = Unsent::Nothing;            // what the list-view does not have yet
    CVirtualListCtrlItem* m_itemToShow = nullptr; // as soon as it has; maybe deleted meanwhile
    int m_messageDepth = 0;                       // of messages that the list-view is handling
    bool m_isWalking = false;                     // over its rows, in one of them
    bool m_isWalkingOutside = false;              // in one but the innermost
    bool m_isSorting = false;
    bool m_isSending = false;
    bool m_isSendingAll = false; // one message for all rows
    unsigned m_generation = 0;   // counts the sendings
};
