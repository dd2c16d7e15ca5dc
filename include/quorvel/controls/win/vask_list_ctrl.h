// CVaskListCtrl: a report list whose columns users hide, show, reorder, size and sort by, and which
// keeps that arrangement. Windows only, user-interface thread.
//
// Columns have three numbers:
//   true column      the application's number of a column, shown or hidden; states are keyed by it;
//   inserted column  the index among the shown ones, which the platform's messages use;
//   display position the place on the screen from the left.
// Number true columns 0, 1, 2 and so on, without gaps: those from the number of records on are not
// saved and have no item in the header's menu, which has room for 51. -1 stands for no column.
//
// A list without column records is a plain list-view: its true and inserted columns are the same,
// and only widths are kept. In a list with records the platform's messages act on the records too:
// a column that LVM_DELETECOLUMN deletes has none any more, one that LVM_INSERTCOLUMN inserts has
// the true column -1, and LVM_SETCOLUMN gives the record a new heading and alignment.
//
// The list's parent must be a window of the framework, which passes notifications back to the list.
//
// Shift+Tab leads from the list to its header, unless that is hidden or can do nothing: there are
// no records and its clicks are blocked. The keys of the header are those of
// CVaskListCtrlHeaderCtrl.
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
    int savedPosition = -1; // the display position when last hidden; -1 when it was defined hidden
    int trueColumn = 0;
    BOOL visible = TRUE;
    CString heading;
    // As it was given. Whatever the mask is, the text is `heading`. In what GetVaskColumn returns
    // the text pointer is the list's own and valid until the column changes, and the width of a
    // hidden column is the one that it had.
    LVCOLUMNW column = {};
};

class QUORVEL_API CVaskListCtrl : public CListCtrl {
    DECLARE_DYNAMIC(CVaskListCtrl)
public:
    CVaskListCtrl();
    ~CVaskListCtrl() override;

    // Defines a column. The result is its inserted column: -1 for a hidden column, which is kept
    // too. Also -1, and nothing is kept, for a null heading, a negative true column, one that
    // exists, and when the list-view refuses. Width and sub-item -1: not given. A hidden column
    // without a width gets its default width when it is shown, a shown one the platform's.
    int InsertVaskColumn(int position, int trueColumn, int visible, const WCHAR* heading,
                         int format = LVCFMT_LEFT, int width = -1, int subItem = -1);
    int InsertVaskColumn(int position, const VASKCOLUMN* column);
    // Hiding remembers the column's display position and width. Showing puts it back there; one
    // that was defined hidden comes last. FALSE for a column that does not exist and when the
    // list-view refuses. Hiding or deleting the sort column ends in OnDeleteSortColumn.
    //
    // The platform drops the texts of a hidden column. A list that asks for its texts
    // (LPSTR_TEXTCALLBACK, or with LVS_OWNERDATA) is not concerned; others override
    // OnShowVaskColumn and set them again.
    BOOL ShowVaskColumn(int trueColumn, int show);
    BOOL DeleteVaskColumn(int trueColumn);

    BOOL DoesTrueColumnExist(int trueColumn) const; // whether it has a record
    BOOL IsVaskColumnVisible(int trueColumn) const;
    BOOL GetVaskColumn(int trueColumn, VASKCOLUMN* column) const;
    // The width of a hidden column is the one that it was given or had; -1 when it was given none.
    int GetVaskColumnWidth(int trueColumn) const;
    BOOL SetVaskColumnWidth(int trueColumn, int width); // FALSE for a column that does not exist
    int GetTrueColumnCount() const;
    int GetInsertedColumnCount() const;
    int GetInsertedColumn(int trueColumn) const;
    int GetTrueColumn(int insertedColumn) const;
    int GetLeftToRightColumn(int displayPosition) const;
    int GetLeftToRightTrueColumn(int displayPosition) const;
    int GetColumnSortOrder(int insertedColumn) const;            // its display position
    BOOL IsColumnSortOrderPersisted() const;                     // whether there are records
    BOOL SetColumnAlignment(int insertedColumn, UINT alignment); // LVCFMT_LEFT, RIGHT or CENTER
    // Every column as wide as its longest text, or with `useHeader` also as its heading. That asks
    // for the texts of all rows.
    BOOL AutoSetColumnWidths(int useHeader); // FALSE without columns
    // All shown, in true order, with their default widths. FALSE without records.
    BOOL ResetColumns();
    // The result of the columns dialog, which ends with IDCANCEL when the list is destroyed. -1
    // while it is open already.
    INT_PTR EditColumns();

    // The sort state. The setters change it and the header's arrow without sorting; the column may
    // be one that is defined later. FALSE below -1.
    BOOL SetSortColumn(int trueColumn);
    BOOL SetSortAscending(BOOL ascending);
    int GetSortColumn() const;
    BOOL IsSortAscending() const;
    // Call SortItems and, when it returns TRUE, keep the column and the direction. The first keeps
    // the direction, the second the column; the third sorts anew as the list is sorted. FALSE
    // without a column.
    BOOL SortItemsByColumn(int trueColumn);
    BOOL SortItemsByDirection(int ascending);
    BOOL AutoSortItems();
    using CListCtrl::SortItems; // which the virtual one below would hide
    // While it is blocked, clicks on the header do not sort.
    void BlockHeaderSort(BOOL block = TRUE) { m_isHeaderSortBlocked = block; }
    BOOL IsHeaderSortBlocked() const { return m_isHeaderSortBlocked; }

    // The arrangement of the columns, in the key "Columns" below the given place: which are shown,
    // their order and widths, and the sort state. FALSE when a value could not be written, and when
    // there was nothing to load, which gives default widths. With `closeKey` the key is closed in
    // any case.
    //
    // Loading shows the columns that have a place in the state and hides the others, but not all.
    // It does not sort. A state that belongs to another list, or is damaged, leaves the list
    // usable: a sort column that does not exist becomes -1, and widths above 32767 or below -1, or
    // -1 for a hidden column, are passed over.
    BOOL SaveState(HKEY key, int closeKey);
    BOOL LoadState(HKEY key, int closeKey);
    BOOL SaveState(const WCHAR* section); // in the application's profile
    BOOL LoadState(const WCHAR* section);
    BOOL SaveState(const CRegistryPath& path);
    BOOL LoadState(const CRegistryPath& path);

    // Items. A selected item gets the focus too.
    BOOL SelectItem(int item, int select = TRUE);
    int GetSingleSelectionItem() const; // -1 unless exactly one item is selected
    BOOL IsItemSelected(int item) const;
    BOOL SelectAllItems();
    BOOL UnselectAllItems();
    BOOL HasCheckedItem() const;
    BOOL HitTestOnItem(CPoint point) const; // a point of the client area
    BOOL CanMoveSelectedItemUp() const;
    BOOL CanMoveSelectedItemDown() const;
    BOOL IsReportView() const;
    // While they are blocked, mouse clicks outside the items change neither selection nor focus.
    void SetBlockNonItemClicks(BOOL block = TRUE) { m_areNonItemClicksBlocked = block; }
    BOOL AreNonItemClicksBlocked() const { return m_areNonItemClicksBlocked; }

    // What a list without items shows. The alignment is DT_LEFT, DT_CENTER or DT_RIGHT; others are
    // refused. Without a colour of its own, or with CLR_DEFAULT, the text has the system's for grey
    // text, which is read when it is drawn.
    BOOL SetEmptyText(const WCHAR* text); // empty: nothing; FALSE for null, and nothing changed
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

    // Highlighting gives every second row a background of its own: without a colour, or with
    // CLR_DEFAULT, one between the system's window and window text. The parent gets no
    // NM_CUSTOMDRAW then.
    void SetRowsHighlighted(BOOL highlight = TRUE);
    BOOL AreRowsHighlighted() const { return m_areRowsHighlighted; }
    void SetRowHighlightColor(COLORREF color);
    COLORREF GetRowHighlightColor() const;
    // Gives the header the list's font. Also called when the list gets one.
    void UpdateFonts();

    BOOL PreTranslateMessage(MSG* message) override;

    virtual int GetDefaultColumnWidth(int trueColumn); // 100
    virtual void LoadDefaultColumnWidths();            // fits every column to its heading
    // Sorts the items; here FALSE. An application sorts and returns TRUE. With `force` 0 it may
    // leave items alone that are sorted like this already.
    virtual BOOL SortItems(int trueColumn, int ascending, int force);
    // Exchange the one selected item with its neighbour. The new index; -1 when there is no
    // neighbour, and unless exactly one item is selected.
    virtual int MoveSelectedItemUp();
    virtual int MoveSelectedItemDown();
    virtual BOOL CanVaskColumnBeHidden(int trueColumn); // while more than one is shown
    // A right click at a point of the screen, on this inserted column (-1: outside them), with the
    // flags of HDM_HITTEST. With records, shows a menu of the columns, whose headings it shows with
    // their ampersands.
    virtual void OnHeaderContextMenu(int insertedColumn, UINT flags, CPoint point);
    // The column that the list is sorted by was hidden or deleted; these were its numbers. Sorts
    // ascending by the leftmost column.
    virtual void OnDeleteSortColumn(int trueColumn, int insertedColumn, int displayPosition);
    // A hidden column is shown again, without texts; here nothing.
    virtual void OnShowVaskColumn(int trueColumn, int insertedColumn);

    // Give the header back to the platform too.
    HWND Detach();
    HWND UnsubclassWindow();

protected:
    // The object for the list's header, made once. It has no window yet.
    virtual std::unique_ptr<CVaskListCtrlHeaderCtrl> MakeHeaderCtrl();

    // Finds out whether the list object is destroyed while it lives: by code of the host, which is
    // called for every notification.
    class Watch {
    public:
        explicit Watch(const CVaskListCtrl& list) : m_life(list.m_life) {}
        bool IsAlive() const { return !m_life.expired(); }

    private:
        const std::weak_ptr<char> m_life;
    };

    // Keeps the list from drawing while many items change; these locks nest, which the platform's
    // WM_SETREDRAW does not. A list that the host keeps from drawing stays so.
    class QUORVEL_API RedrawLock {
    public:
        explicit RedrawLock(CVaskListCtrl& list);
        RedrawLock(const RedrawLock&) = delete;
        ~RedrawLock();

    private:
        CVaskListCtrl& m_list;
        const Watch m_watch;
    };

    BOOL IsRedrawn() const { return m_isRedrawn; } // as the host last said by WM_SETREDRAW
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
    CColumnsDlg* m_columnsDlg = nullptr;                           // while it is open
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
