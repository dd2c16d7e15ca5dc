// CListCtrl: a list-view. Windows only, on its window's thread. It has no data members, so a result
// of CWnd::GetDlgItem may be cast to it. Items count from 0; -1 means no item or failure.
//
// Changing many items is slow while the list is drawn: call SetRedraw(FALSE) before, and
// SetRedraw() and Invalidate() after.
#pragma once

#include <quorvel/framework/map.h>
#include <quorvel/framework/win/header_ctrl.h>
#include <quorvel/framework/win/message_map.h>
#include <quorvel/framework/wnd.h>

class CEdit;
class CImageList;
class CToolTipCtrl;

class QUORVEL_API CListCtrl : public CWnd {
    DECLARE_DYNAMIC(CListCtrl)
public:
    // As CWnd::Create, with the window class of the control.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CWnd::Create(WC_LISTVIEWW, nullptr, style, rect, parent, id);
    }

    // The header's permanent object, or else a temporary one. Null for a list without a header.
    CHeaderCtrl* GetHeaderCtrl() const;
    // Changes the LVS_EX_ style bits in `mask` (0: all). Returns the old style.
    DWORD SetExtendedStyle(DWORD style, DWORD mask = 0) {
        return static_cast<DWORD>(
            SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, mask, static_cast<LPARAM>(style)));
    }
    // The extended style and the image lists (LVSIL_...).
    DWORD GetExtendedStyle() const {
        return static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE));
    }
    CImageList* SetImageList(CImageList* images, int which); // returns the old one
    CImageList* GetImageList(int which) const;

    // Columns
    int InsertColumn(int column, const LVCOLUMNW* description) {
        return Send(LVM_INSERTCOLUMNW, column, description);
    }
    // Width -1: the platform's default. Sub-item -1: that of the column.
    int InsertColumn(int column, const WCHAR* heading, int format = LVCFMT_LEFT, int width = -1,
                     int subItem = -1);
    BOOL DeleteColumn(int column) { return Send(LVM_DELETECOLUMN, column); }
    BOOL GetColumn(int column, LVCOLUMNW* description) const {
        return Send(LVM_GETCOLUMNW, column, description);
    }
    BOOL SetColumn(int column, const LVCOLUMNW* description) {
        return Send(LVM_SETCOLUMNW, column, description);
    }
    int GetColumnWidth(int column) const { return Send(LVM_GETCOLUMNWIDTH, column); }
    BOOL SetColumnWidth(int column, int width) {
        return static_cast<BOOL>(
            SendMessage(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(width, 0)));
    }
    // The columns from left to right; count -1: all. FALSE if the count is not the number of
    // columns, and for a list without a header. Set only permutations: for any other order the
    // platform uses an order of its own.
    BOOL GetColumnOrderArray(int* columns, int count = -1) const;
    BOOL SetColumnOrderArray(int count, const int* columns) {
        return Send(LVM_SETCOLUMNORDERARRAY, count, columns);
    }

    // Items, by the control's messages (LVM_...). InsertItem returns the position, or -1.
    int GetItemCount() const { return Send(LVM_GETITEMCOUNT); }
    void SetItemCount(int count) { Send(LVM_SETITEMCOUNT, count); }
    BOOL SetItemCountEx(int count, DWORD flags = LVSICF_NOINVALIDATEALL) { // of an owner-data list
        return static_cast<BOOL>(
            SendMessage(LVM_SETITEMCOUNT, static_cast<WPARAM>(count), static_cast<LPARAM>(flags)));
    }
    int InsertItem(const LVITEMW* item) { return Send(LVM_INSERTITEMW, 0, item); }
    int InsertItem(int item, const WCHAR* text, int image = -1, LPARAM data = 0);
    int InsertItem(UINT mask, int item, const WCHAR* text, UINT state, UINT stateMask, int image,
                   LPARAM data);
    BOOL DeleteItem(int item) { return Send(LVM_DELETEITEM, item); }
    BOOL DeleteAllItems() { return Send(LVM_DELETEALLITEMS, 0); }
    BOOL GetItem(LVITEMW* item) const { return Send(LVM_GETITEMW, 0, item); }
    BOOL SetItem(const LVITEMW* item) { return Send(LVM_SETITEMW, 0, item); }
    BOOL SetItem(int item, int subItem, UINT mask, const WCHAR* text, int image, UINT state,
                 UINT stateMask, LPARAM data, int indent = 0);
    CString GetItemText(int item, int subItem) const; // of any length
    // Copies as much as fits. Returns the number of characters, without the terminator.
    int GetItemText(int item, int subItem, WCHAR* buffer, int size) const;
    // The text and the data of one item. GetItemData returns 0 for an item that does not exist.
    BOOL SetItemText(int item, int subItem, const WCHAR* text);
    DWORD_PTR GetItemData(int item) const;
    BOOL SetItemData(int item, DWORD_PTR data);
    // Sends LVM_SORTITEMS: `compare` gets the data of two items. Not for owner-data lists.
    BOOL SortItems(PFNLVCOMPARE compare, DWORD_PTR parameter) {
        return static_cast<BOOL>(
            SendMessage(LVM_SORTITEMS, parameter, reinterpret_cast<LPARAM>(compare)));
    }

    // Selection and state. Item -1 of SetItemState means all items.
    UINT GetItemState(int item, UINT mask) const {
        return static_cast<UINT>(
            SendMessage(LVM_GETITEMSTATE, static_cast<WPARAM>(item), static_cast<LPARAM>(mask)));
    }
    BOOL SetItemState(int item, UINT state, UINT mask);
    BOOL SetItemState(int item, const LVITEMW* state) {
        return Send(LVM_SETITEMSTATE, item, state);
    }
    int GetNextItem(int after, int flags) const {
        return static_cast<int>(
            SendMessage(LVM_GETNEXTITEM, static_cast<WPARAM>(after), MAKELPARAM(flags, 0)));
    }
    // Visits the selected items one by one. The position is null after the last one.
    POSITION GetFirstSelectedItemPosition() const;
    int GetNextSelectedItem(POSITION& position) const;
    // The number of selected items, and the item at which a range selection begins.
    UINT GetSelectedCount() const { return static_cast<UINT>(SendMessage(LVM_GETSELECTEDCOUNT)); }
    int GetSelectionMark() const { return Send(LVM_GETSELECTIONMARK, 0); }
    int SetSelectionMark(int item) {
        return static_cast<int>(SendMessage(LVM_SETSELECTIONMARK, 0, item));
    }
    // The check boxes of LVS_EX_CHECKBOXES.
    BOOL GetCheck(int item) const {
        return static_cast<BOOL>((GetItemState(item, LVIS_STATEIMAGEMASK) >> 12) == 2);
    }
    BOOL SetCheck(int item, BOOL check = TRUE) {
        return SetItemState(item, INDEXTOSTATEIMAGEMASK(check ? 2u : 1u), LVIS_STATEIMAGEMASK);
    }

    // Place, by the control's messages. Widths are in pixels.
    BOOL EnsureVisible(int item, BOOL partialIsEnough) {
        return static_cast<BOOL>(
            SendMessage(LVM_ENSUREVISIBLE, static_cast<WPARAM>(item), partialIsEnough));
    }
    int GetTopIndex() const { return Send(LVM_GETTOPINDEX, 0); }
    int GetCountPerPage() const { return Send(LVM_GETCOUNTPERPAGE, 0); }
    int GetStringWidth(const WCHAR* text) const { return Send(LVM_GETSTRINGWIDTHW, 0, text); }
    // LV_VIEW_DETAILS and so on. SetView returns 1, or -1 for an invalid view.
    DWORD GetView() const { return static_cast<DWORD>(SendMessage(LVM_GETVIEW)); }
    int SetView(int view) { return Send(LVM_SETVIEW, view); }
    CToolTipCtrl* GetToolTips() const; // null without tool tips
    // Place, in pixels of the client area. HitTest returns -1 when the point is on no item.
    BOOL GetItemPosition(int item, POINT* point) const {
        return Send(LVM_GETITEMPOSITION, item, point);
    }
    BOOL GetItemRect(int item, RECT* rect, UINT part) const {
        rect->left = static_cast<LONG>(part);
        return Send(LVM_GETITEMRECT, item, rect);
    }
    BOOL GetSubItemRect(int item, int subItem, int part, RECT& rect) const {
        rect.top = subItem;
        rect.left = part;
        return Send(LVM_GETSUBITEMRECT, item, &rect);
    }
    int HitTest(LVHITTESTINFO* test) const { return Send(LVM_HITTEST, 0, test); }
    int HitTest(CPoint point, UINT* flags = nullptr) const {
        LVHITTESTINFO test = {};
        test.pt = point;
        const int item = HitTest(&test);
        if (flags != nullptr)
            *flags = test.flags;
        return item;
    }
    int SubItemHitTest(LVHITTESTINFO* test) const { return Send(LVM_SUBITEMHITTEST, 0, test); }
    // Drawing, by the control's messages. FALSE means failure.
    BOOL RedrawItems(int first, int last) {
        return static_cast<BOOL>(SendMessage(LVM_REDRAWITEMS, static_cast<WPARAM>(first), last));
    }
    BOOL Update(int item) { return Send(LVM_UPDATE, item); }
    BOOL Scroll(CSize by) {
        return static_cast<BOOL>(SendMessage(LVM_SCROLL, static_cast<WPARAM>(by.cx), by.cy));
    }
    COLORREF GetBkColor() const { return static_cast<COLORREF>(SendMessage(LVM_GETBKCOLOR)); }
    BOOL SetBkColor(COLORREF color) { return SetColor(LVM_SETBKCOLOR, color); }
    COLORREF GetTextColor() const { return static_cast<COLORREF>(SendMessage(LVM_GETTEXTCOLOR)); }
    BOOL SetTextColor(COLORREF color) { return SetColor(LVM_SETTEXTCOLOR, color); }
    COLORREF GetTextBkColor() const {
        return static_cast<COLORREF>(SendMessage(LVM_GETTEXTBKCOLOR));
    }
    BOOL SetTextBkColor(COLORREF color) { return SetColor(LVM_SETTEXTBKCOLOR, color); }

    // The first item after `after` that matches; -1: from the start, or no item.
    int FindItem(const LVFINDINFOW* what, int after = -1) const {
        return Send(LVM_FINDITEMW, after, what);
    }
    CEdit* EditLabel(int item); // null if it cannot be edited

protected:
    // Draws an item of a list with LVS_OWNERDRAWFIXED. The default draws nothing.
    virtual void DrawItem(DRAWITEMSTRUCT* item);
    DECLARE_MESSAGE_MAP()

private:
    BOOL SetColor(UINT message, COLORREF color) {
        return static_cast<BOOL>(SendMessage(message, 0, static_cast<LPARAM>(color)));
    }
    int Send(UINT message, int number = 0, const void* record = nullptr) const {
        return static_cast<int>(
            SendMessage(message, static_cast<WPARAM>(number), reinterpret_cast<LPARAM>(record)));
    }
};
