// CVaskListCtrl: a report list. Users can hide, show, reorder, resize and sort by columns; the list
// saves this arrangement. Windows only, user-interface thread.
//
// A column has three numbers:
//   true column      the application's number of a column, shown or hidden; states are keyed by it;
//   inserted column  the index among the shown ones, which the platform's messages use;
//   display position the place on the screen from the left.
// Number true columns 0, 1, 2 and so on, without gaps. Numbers not below the number of records are
// not saved and have no item in the header's menu, which has room for 51. -1 means no column.
//
// Without column records the list is a plain list-view: true and inserted columns are the same, and
// only widths are saved. With records, the platform's messages change the records too:
// LVM_DELETECOLUMN removes a column's record, a column inserted by LVM_INSERTCOLUMN has the true
// column -1, and LVM_SETCOLUMN sets heading and alignment of the record.
//
// The list's parent must be a framework window, which reflects notifications to the list.
//
// Shift+Tab moves the focus from the list to its header, unless the header is hidden or useless
// (no records, and its clicks are blocked). See CVaskListCtrlHeaderCtrl for the keys of the
// header.
#pragma once

#include <quorvel/controls/win/vask_list_ctrl_header_ctrl.h>
#include <quorvel/framework/win/list_ctrl.h>
#include <quorvel/system/registry_path.h>

#include <memory>

class CColumnsDlg;
namespace quorvel {
struct ReportColumns;
} // namespace quorvel

struct VASKCOLUMN {
    int savedPosition = -1; // display position when last hidden; -1 if defined hidden
    int trueColumn = 0;     // the program's number of the column
    BOOL visible = TRUE;    // whether it is shown
    CString heading;        // of any length
    // As it was defined, with the text `heading` whatever the mask is. In a result of
    // GetVaskColumn, the text pointer belongs to the list and is valid until the column changes;
    // the width of a hidden column is its last width.
    LVCOLUMNW column = {};
};

class QUORVEL_API CVaskListCtrl : public CListCtrl {
    DECLARE_DYNAMIC(CVaskListCtrl)
public:
    CVaskListCtrl();
    ~CVaskListCtrl() override;

    // Defines a column and returns its inserted column; -1 for a hidden column, which is defined
    // too. Also returns -1, and defines no column, for a null heading, for a true column that is
    // negative or exists, and when the list-view refuses. Width and sub-item -1 mean unspecified:
    // when it is shown, a hidden column gets its default width, any other column the platform's.
    int InsertVaskColumn(int position, int trueColumn, int visible, const WCHAR* heading,
                         int format = LVCFMT_LEFT, int width = -1, int subItem = -1);
    int InsertVaskColumn(int position, const VASKCOLUMN* column);
    // Hiding stores the column's display position and width; showing restores them. A column that
    // was defined hidden is shown last. Returns FALSE for a column that does not exist and when the
    // list-view refuses. Hiding or deleting the sort column calls OnDeleteSortColumn.
    //
    // The platform loses the texts of a hidden column. This does not matter for a list that
    // provides its texts on request (LPSTR_TEXTCALLBACK, LVS_OWNERDATA). Other lists override
    // OnShowVaskColumn to set them again.
    BOOL ShowVaskColumn(int trueColumn, int show);
    BOOL DeleteVaskColumn(int trueColumn);

    // FALSE for a column without a record; GetVaskColumn also for a null record.
    BOOL DoesTrueColumnExist(int trueColumn) const; // whether it has a record
    BOOL IsVaskColumnVisible(int trueColumn) const;
    BOOL GetVaskColumn(int trueColumn, VASKCOLUMN* column) const;
    // For a hidden column its last or defined width; -1 if it was never set.
    int GetVaskColumnWidth(int trueColumn) const;
    BOOL SetVaskColumnWidth(int trueColumn, int width); // FALSE for a column that does not exist
    // The numbers of columns, and translations between the three numbers of one. -1 means that
    // there is no such column or that it is hidden.
    int GetTrueColumnCount() const;
    int GetInsertedColumnCount() const;
    int GetInsertedColumn(int trueColumn) const;
    int GetTrueColumn(int insertedColumn) const;
    int GetLeftToRightColumn(int displayPosition) const;
    int GetLeftToRightTrueColumn(int displayPosition) const;
    int GetColumnSortOrder(int insertedColumn) const;            // returns its display position
    BOOL IsColumnSortOrderPersisted() const;                     // whether there are records
    BOOL SetColumnAlignment(int insertedColumn, UINT alignment); // LVCFMT_LEFT, RIGHT or CENTER
    // Makes every column as wide as its longest text or, with `useHeader`, also its heading. Reads
    // the texts of all rows.
    BOOL AutoSetColumnWidths(int useHeader); // FALSE without columns
    // Shows all columns in true order with their default widths. FALSE without records.
    BOOL ResetColumns();
    // Shows the columns dialog and returns its result; IDCANCEL when the list is destroyed. Returns
    // -1 while the dialog is already open.
    INT_PTR EditColumns();

    // The sort state. The setters change it and the header's arrow, but do not sort. The column may
    // be defined later. FALSE for a column below -1.
    BOOL SetSortColumn(int trueColumn);
    BOOL SetSortAscending(BOOL ascending);
    int GetSortColumn() const;
    BOOL IsSortAscending() const;
    // Call SortItems and store column and direction if it returns TRUE. The first keeps the
    // direction, the second the column; the third sorts again by both. FALSE without a
    // column.
    BOOL SortItemsByColumn(int trueColumn);
    BOOL SortItemsByDirection(int ascending);
    BOOL AutoSortItems();
    using CListCtrl::SortItems; // otherwise hidden by the virtual one below
    // While this is blocked, clicks on the header do not sort.
    void BlockHeaderSort(BOOL block = TRUE) { m_isHeaderSortBlocked = block; }
    BOOL IsHeaderSortBlocked() const { return m_isHeaderSortBlocked; }

    // Save or load the arrangement of the columns (which are shown, order, widths, sort state), in
    // the key "Columns" below the given place. Return FALSE when a value could not be written, and
    // when there was no state to load; then columns get default widths. With `closeKey` the key is
    // always closed.
    //
    // Loading shows the columns that have a position in the state and hides the others, but never
    // all. It does not sort. A damaged state, or that of another list, leaves the list usable: a
    // sort column that does not exist becomes -1; widths above 32767 or below -1, and -1 for a
    // hidden column, are ignored.
    BOOL SaveState(HKEY key, int closeKey);
    BOOL LoadState(HKEY key, int closeKey);
    BOOL SaveState(const WCHAR* section); // in the application's profile
    BOOL LoadState(const WCHAR* section);
    BOOL SaveState(const CRegistryPath& path);
    BOOL LoadState(const CRegistryPath& path);

    // Items. Selecting an item also focuses it.
    BOOL SelectItem(int item, int select = TRUE);
    int GetSingleSelectionItem() const;     // -1 unless exactly one item is selected
    BOOL IsItemSelected(int item) const;    // FALSE for -1
    BOOL SelectAllItems();                  // the focus stays
    BOOL UnselectAllItems();                // the focus stays
    BOOL HasCheckedItem() const;            // with LVS_EX_CHECKBOXES
    BOOL HitTestOnItem(CPoint point) const; // a point of the client area
    // Whether exactly one item is selected and has a neighbour on that side.
    BOOL CanMoveSelectedItemUp() const;
    BOOL CanMoveSelectedItemDown() const;
    BOOL IsReportView() const; // by the window's style
    // While this is blocked, mouse clicks outside the items change neither selection nor focus.
    void SetBlockNonItemClicks(BOOL block = TRUE) { m_areNonItemClicksBlocked = block; }
    BOOL AreNonItemClicksBlocked() const { return m_areNonItemClicksBlocked; }

    // The text shown while the list is empty. The alignment is DT_LEFT, DT_CENTER or DT_RIGHT;
    // others are refused. Without a colour, or with CLR_DEFAULT, the text has the system's colour
    // for grey text at the time of drawing.
    BOOL SetEmptyText(const WCHAR* text); // "": no text; FALSE and no change for null
    CString GetEmptyText() const { return m_emptyText; }
    BOOL HasEmptyText() const { return !m_emptyText.IsEmpty(); }
    static BOOL IsValidEmptyTextAlignment(UINT alignment);
    BOOL SetEmptyTextAlignment(UINT alignment);
    UINT GetEmptyTextAlignment() const { return m_emptyTextAlignment; }
    void SetEmptyTextAlignmentLeft() { SetEmptyTextAlignment(DT_LEFT); }
    void SetEmptyTextAlignmentCenter() { SetEmptyTextAlignment(DT_CENTER); }
    void SetEmptyTextAlignmentRight() { SetEmptyTextAlignment(DT_RIGHT); }
    BOOL IsEmptyTextAlignmentLeft() const { return m_emptyTextAlignment == DT_LEFT; }
    BOOL IsEmptyTextAlignmentCenter() const { return m_emptyTextAlignment == DT_CENTER; }
    BOOL IsEmptyTextAlignmentRight() const { return m_emptyTextAlignment == DT_RIGHT; }
    void SetEmptyTextColor(COLORREF color);
    COLORREF GetEmptyTextColor() const;

    // Gives every second row a different background; by default, or with CLR_DEFAULT, a
    // colour between the system's window and window text. The parent then gets no
    // NM_CUSTOMDRAW.
    void SetRowsHighlighted(BOOL highlight = TRUE);
    BOOL AreRowsHighlighted() const { return m_areRowsHighlighted; }
    void SetRowHighlightColor(COLORREF color);
    COLORREF GetRowHighlightColor() const;
    // Sets the list's font on the header. Also called when the list's font is set.
    void UpdateFonts();

    BOOL PreTranslateMessage(MSG* message) override;

    virtual int GetDefaultColumnWidth(int trueColumn); // 100
    virtual void LoadDefaultColumnWidths();            // fits columns to their headings
    // Sorts the items. The default returns FALSE; an application sorts and returns TRUE. If `force`
    // is 0, it may skip items that are already sorted this way.
    virtual BOOL SortItems(int trueColumn, int ascending, int force);
    // Swap the only selected item with its neighbour. Return the new index, or -1 if there is no
    // neighbour or not exactly one item is selected.
    virtual int MoveSelectedItemUp();
    virtual int MoveSelectedItemDown();
    virtual BOOL CanVaskColumnBeHidden(int trueColumn); // default: if more than one is shown
    // Called for a right click at a screen point, on this inserted column (-1: outside all), with
    // the flags of HDM_HITTEST. With records, the default shows a menu of the columns; ampersands
    // in their headings are visible.
    virtual void OnHeaderContextMenu(int insertedColumn, UINT flags, CPoint point);
    // Called after the sort column was hidden or deleted, with its old numbers. The default sorts
    // ascending by the leftmost column.
    virtual void OnDeleteSortColumn(int trueColumn, int insertedColumn, int displayPosition);
    // Called when a hidden column is shown again, without texts. The default does nothing.
    virtual void OnShowVaskColumn(int trueColumn, int insertedColumn);

    // Also detach the header.
    HWND Detach();
    HWND UnsubclassWindow();

protected:
    // Creates the object for the list's header, once. It has no window yet.
    virtual std::unique_ptr<CVaskListCtrlHeaderCtrl> MakeHeaderCtrl();

    // Detects that the list object was destroyed during a call of host code. Such a call happens at
    // every notification.
    class Watch {
    public:
        // Any number may watch a list. A watch may outlive it.
        explicit Watch(const CVaskListCtrl& list) : m_life(list.m_life) {}
        bool IsAlive() const { return !m_life.expired(); }

    private:
        const std::weak_ptr<char> m_life;
    };

    // Suppresses drawing while many items change. The locks nest, unlike WM_SETREDRAW. If the host
    // has switched drawing off, it stays off.
    class QUORVEL_API RedrawLock {
    public:
        explicit RedrawLock(CVaskListCtrl& list); // the list may be destroyed meanwhile
        RedrawLock(const RedrawLock&) = delete;
        ~RedrawLock();

    private:
        CVaskListCtrl& m_list;
        const Watch m_watch;
    };

    BOOL IsRedrawn() const { return m_isRedrawn; } // the host's last WM_SETREDRAW
    void PreSubclassWindow() override;

    int OnCreate(CREATESTRUCTW* parameters);
    void OnDestroy();
    void OnPaint();
    void OnSize(UINT type, int width, int height);
    void OnSysColorChange();
    void OnContextMenu(CWnd* wnd, CPoint point);
    LRESULT OnMouseDown(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetRedraw(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetFont(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetColumn(WPARAM wParam, LPARAM lParam);
    LRESULT OnInsertColumn(WPARAM wParam, LPARAM lParam);
    LRESULT OnDeleteColumn(WPARAM wParam, LPARAM lParam);
    LRESULT OnRowsChange(WPARAM wParam, LPARAM lParam);
    BOOL OnHdnItemclick(UINT id, NMHDR* header, LRESULT* result);
    BOOL OnNMCustomdraw(NMHDR* header, LRESULT* result);
    DECLARE_MESSAGE_MAP()

private:
    friend class CColumnsDlg;
    friend struct quorvel::ReportColumns;

    void AttachHeader();
    bool CanFocusHeader() const;
    void DetachHeader();
    HWND HeaderWindow() const { return m_header != nullptr ? m_header->m_hWnd : nullptr; }
    template <class Act>
    auto ChangeColumns(Act act);
    BOOL SortAndKeep(int trueColumn, BOOL ascending, int force);
    void UpdateSortArrow();
    int MoveSelectedItem(int direction);
    void DrawEmptyText();

    std::unique_ptr<CVaskListCtrlHeaderCtrl> m_header;
    std::unique_ptr<quorvel::ReportColumns> m_columns;
    bool m_isMenuOpen = false;
    CColumnsDlg* m_columnsDlg = nullptr;                           // null unless it is open
    const std::shared_ptr<char> m_life = std::make_shared<char>(); // ends with this object
    BOOL m_isHeaderSortBlocked = FALSE;
    BOOL m_areNonItemClicksBlocked = FALSE;
    CString m_emptyText;
    UINT m_emptyTextAlignment = DT_LEFT;
    COLORREF m_emptyTextColor = CLR_DEFAULT;
    bool m_isEmptyTextDrawn = false;
    BOOL m_areRowsHighlighted = FALSE;
    COLORREF m_rowHighlightColor = CLR_DEFAULT;
    int m_redrawLocks = 0;
    bool m_isRedrawn = true;
};
