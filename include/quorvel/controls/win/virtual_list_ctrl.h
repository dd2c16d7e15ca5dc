// CVirtualListCtrl: a report list whose rows are pointers to the program's items. Windows only,
// user-interface thread.
//
// The window must have the style LVS_OWNERDATA. Create adds it; a dialog template must contain it,
// since the platform does not accept it later. Rows count from 0 in display order. Selection and
// focus belong to items: they follow an item when rows are sorted, moved, inserted or deleted.
//
// Rows may be changed without a window, and inside notifications of the list, whose members then
// use the new rows. Switch WM_SETREDRAW off to change many rows: the list-view is then updated
// once. A notification may also destroy the list.
//
// Typed letters find the row whose text in the search column begins with them. Ctrl+A selects all
// rows. Ctrl+C copies the selected rows, one line each, with tabs between the texts of the shown
// columns.
//
// The platform's own messages that change the number of rows (LVM_DELETEITEM and so on) change the
// rows of this object, or are refused.
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
    // Whether the first item comes before the second. Must be a strict weak order.
    typedef bool (*SortingFunction)(CVirtualListCtrlItem* const& first,
                                    CVirtualListCtrlItem* const& second);

    // The same as an object, for an order that needs data. Called only during SortRows.
    typedef std::function<bool(CVirtualListCtrlItem* const&, CVirtualListCtrlItem* const&)>
        RowOrder;

    CVirtualListCtrl();
    ~CVirtualListCtrl() override; // drops all rows
    // Creates the window with LVS_OWNERDATA added.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CVaskListCtrl::Create(style | LVS_OWNERDATA, rect, parent, id);
    }

    // Whether the list deletes items that it drops. FALSE, the default: the caller owns
    // them.
    void SetAutoDeleteItems(BOOL autoDelete = TRUE) { m_areItemsAutoDeleted = autoDelete; }
    BOOL AreItemsAutoDeleted() const { return m_areItemsAutoDeleted; }

    // The new row; -1, with the item still the caller's, for null or a row outside 0 to the count.
    int AddItem(CVirtualListCtrlItem* item);
    int InsertItem(int index, CVirtualListCtrlItem* item);
    // Returns FALSE for a row that does not exist. If the last selected row is deleted, the row
    // that now has its index is selected, or else the last row.
    BOOL DeleteItem(int index);
    BOOL DeleteItem(CVirtualListCtrlItem* item);
    // Deletes rows given in any order, in one pass over all rows. Returns the number deleted.
    int DeleteItems(std::vector<int> indexes);
    BOOL DeleteAllItems(); // returns TRUE

    // The rows of this object; the window may show them later. An item without a row has row -1.
    int GetItemCount() const;
    BOOL IsValidItemIndex(int index) const;
    CVirtualListCtrlItem* GetItem(int index) const; // null for an invalid row
    int GetItemIndex(CVirtualListCtrlItem* item) const;
    CVirtualListCtrlItem* GetSelectedItem() const; // the first selected one, or null

    int MoveSelectedItemUp() override;
    int MoveSelectedItemDown() override;
    // If `force` is 0 and the list is already sorted this way, returns FALSE and changes nothing.
    // Otherwise returns TRUE and scrolls the focused row into view. Items stay selected, but while
    // DoSortItems runs no item counts as selected.
    BOOL SortItems(int column, int ascending, int force) override;
    using CVaskListCtrl::SortItems;

    // Sorts the rows with GetSortingFunction. A derived class that needs more than a function
    // pointer, such as a collation or a user's choice, overrides it and calls SortRows.
    virtual void DoSortItems(int column, int ascending);
    virtual SortingFunction GetSortingFunction(int column, int ascending); // null: no sorting

protected:
    // The column whose texts typed letters and LVM_FINDITEM look at; 0 at first.
    void SetSearchColumn(int trueColumn);
    // Sorts the rows; equal rows keep their order. An empty function changes
    // nothing.
    void SortRows(const RowOrder& isBefore);
    // Replaces all rows by these items, each once; for example, the result of a filter. Null
    // pointers are skipped. Remaining items keep selection and focus; all other old items are
    // dropped.
    void ReplaceItems(const std::vector<CVirtualListCtrlItem*>& items);
    // The same, and sorts them by the sort column, if there is one. The list-view gets them once.
    void ReplaceItemsSorted(const std::vector<CVirtualListCtrlItem*>& items);

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
    class WholeChange;
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
    void TakeOverSelection(int first, int last, bool isSelected) const;
    int GetCurrentRow(int listedRow) const;
    void MarkSent();
    void ShowRow(int row);
    void CopySelectedRows();

    std::unique_ptr<quorvel::VirtualRows> m_rows;
    BOOL m_areItemsAutoDeleted = FALSE;
    Unsent m_unsent = Unsent::Nothing;            // changes the list-view does not have yet
    std::vector<CVirtualListCtrlItem*> m_listed;  // the list-view's rows before these changes
    CVirtualListCtrlItem* m_itemToShow = nullptr; // after it has them; may be deleted by then
    int m_messageDepth = 0;                       // nested messages in the list-view
    bool m_isWalking = false;                     // one of them walks over its rows
    bool m_isWalkingOutside = false;              // one that is not the innermost does
    bool m_isSorting = false;
    bool m_isSending = false;
    bool m_isSendingAll = false; // with one message for all rows
    unsigned m_generation = 0;   // counts the updates sent
};
