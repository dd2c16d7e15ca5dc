// CListBox: a list box. Windows only, on its window's thread. It has no data members, so a result
// of CWnd::GetDlgItem may be cast to it. Rows count from 0; -1 (LB_ERR): no row, or failure.
#pragma once

#include <quorvel/framework/wnd.h>

class QUORVEL_API CListBox : public CWnd {
    DECLARE_DYNAMIC(CListBox)
public:
    // As CWnd::Create, with the window class of the control.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CWnd::Create(_T("ListBox"), nullptr, style, rect, parent, id);
    }

    // Rows. Each member sends the control's message of its name (LB_...).
    int GetCount() const { return Send(LB_GETCOUNT); }
    int AddString(const WCHAR* text) { return Send(LB_ADDSTRING, 0, text); }
    int InsertString(int row, const WCHAR* text) { return Send(LB_INSERTSTRING, row, text); }
    int DeleteString(UINT row) { return Send(LB_DELETESTRING, static_cast<int>(row)); }
    void ResetContent() { Send(LB_RESETCONTENT); }
    void GetText(int row, CString& text) const; // empty for an invalid row
    int GetTextLen(int row) const { return Send(LB_GETTEXTLEN, row); }
    DWORD_PTR GetItemData(int row) const {
        return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(row)));
    }
    int SetItemData(int row, DWORD_PTR data) {
        return static_cast<int>(
            SendMessage(LB_SETITEMDATA, static_cast<WPARAM>(row), static_cast<LPARAM>(data)));
    }
    void* GetItemDataPtr(int row) const { return reinterpret_cast<void*>(GetItemData(row)); }
    int SetItemDataPtr(int row, void* data) {
        return SetItemData(row, reinterpret_cast<DWORD_PTR>(data));
    }
    // The first row after `after` that begins with the text, or (Exact) equals it. Ignores case.
    int FindString(int after, const WCHAR* text) const { return Send(LB_FINDSTRING, after, text); }
    int FindStringExact(int after, const WCHAR* text) const {
        return Send(LB_FINDSTRINGEXACT, after, text);
    }

    // The selection of a list with single selection; -1 selects no row.
    int GetCurSel() const { return Send(LB_GETCURSEL); }
    int SetCurSel(int row) { return Send(LB_SETCURSEL, row); }
    int SelectString(int after, const WCHAR* text) { return Send(LB_SELECTSTRING, after, text); }
    // For a list with multiple selection. Row -1 of SetSel means all rows.
    int GetSel(int row) const { return Send(LB_GETSEL, row); }
    int SetSel(int row, BOOL select = TRUE) {
        return static_cast<int>(SendMessage(LB_SETSEL, static_cast<WPARAM>(select), row));
    }
    int GetSelCount() const { return Send(LB_GETSELCOUNT); }
    int GetSelItems(int maxRows, int* rows) const {
        return static_cast<int>(SendMessage(LB_GETSELITEMS, static_cast<WPARAM>(maxRows),
                                            reinterpret_cast<LPARAM>(rows)));
    }
    int GetCaretIndex() const { return Send(LB_GETCARETINDEX); }

    // Place, in pixels of the client area.
    int GetTopIndex() const { return Send(LB_GETTOPINDEX); }
    int SetTopIndex(int row) { return Send(LB_SETTOPINDEX, row); }
    int GetItemHeight(int row) const { return Send(LB_GETITEMHEIGHT, row); }
    int SetItemHeight(int row, UINT height) {
        return static_cast<int>(
            SendMessage(LB_SETITEMHEIGHT, static_cast<WPARAM>(row), static_cast<LPARAM>(height)));
    }
    int GetItemRect(int row, RECT* rect) const {
        return static_cast<int>(
            SendMessage(LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(rect)));
    }
    // The row nearest to a point of the client area, and whether the point is outside that area.
    UINT ItemFromPoint(CPoint point, BOOL& outside) const {
        const DWORD found =
            static_cast<DWORD>(SendMessage(LB_ITEMFROMPOINT, 0, MAKELPARAM(point.x, point.y)));
        outside = HIWORD(found) != 0;
        return LOWORD(found);
    }
    // The width in pixels that can be scrolled to; the control does not measure its texts.
    void SetHorizontalExtent(int width) { Send(LB_SETHORIZONTALEXTENT, width); }

private:
    int Send(UINT message, int row = 0, const WCHAR* text = nullptr) const {
        return static_cast<int>(
            SendMessage(message, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text)));
    }
};
