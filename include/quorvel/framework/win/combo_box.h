// CComboBox: a combo box. Windows only, on its window's thread. It has no data members, so a result
// of CWnd::GetDlgItem may be cast to it. Rows count from 0; -1 (CB_ERR): no row, or failure.
#pragma once

#include <quorvel/framework/wnd.h>

class QUORVEL_API CComboBox : public CWnd {
    DECLARE_DYNAMIC(CComboBox)
public:
    // As CWnd::Create, with the window class of the control.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CWnd::Create(_T("ComboBox"), nullptr, style, rect, parent, id);
    }

    // Rows. Each member sends the control's message of its name (CB_...).
    int GetCount() const { return Send(CB_GETCOUNT); }
    int AddString(const WCHAR* text) { return Send(CB_ADDSTRING, 0, text); }
    int InsertString(int row, const WCHAR* text) { return Send(CB_INSERTSTRING, row, text); }
    int DeleteString(int row) { return Send(CB_DELETESTRING, row); }
    void ResetContent() { Send(CB_RESETCONTENT); }
    void GetLBText(int row, CString& text) const; // empty for an invalid row
    int GetLBTextLen(int row) const { return Send(CB_GETLBTEXTLEN, row); }
    DWORD_PTR GetItemData(int row) const {
        return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(row)));
    }
    int SetItemData(int row, DWORD_PTR data) {
        return static_cast<int>(
            SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(row), static_cast<LPARAM>(data)));
    }
    void* GetItemDataPtr(int row) const { return reinterpret_cast<void*>(GetItemData(row)); }
    int SetItemDataPtr(int row, void* data) {
        return SetItemData(row, reinterpret_cast<DWORD_PTR>(data));
    }
    // The first row after `after` that begins with the text, or (Exact) equals it. Ignores case.
    int FindString(int after, const WCHAR* text) const { return Send(CB_FINDSTRING, after, text); }
    int FindStringExact(int after, const WCHAR* text) const {
        return Send(CB_FINDSTRINGEXACT, after, text);
    }

    // The selection, by the messages CB_...; -1 selects no row.
    int GetCurSel() const { return Send(CB_GETCURSEL); }
    int SetCurSel(int row) { return Send(CB_SETCURSEL, row); }
    int SelectString(int after, const WCHAR* text) { return Send(CB_SELECTSTRING, after, text); }

    // The edit field; positions count characters.
    BOOL SetEditSel(int first, int last) {
        return static_cast<BOOL>(SendMessage(CB_SETEDITSEL, 0, MAKELPARAM(first, last)));
    }
    BOOL LimitText(int maxChars) { return Send(CB_LIMITTEXT, maxChars); }

    // The drop-down list; widths and heights are in pixels.
    void ShowDropDown(BOOL show = TRUE) { Send(CB_SHOWDROPDOWN, show); }
    BOOL GetDroppedState() const { return Send(CB_GETDROPPEDSTATE); }
    int SetDroppedWidth(UINT width) { return Send(CB_SETDROPPEDWIDTH, static_cast<int>(width)); }
    int SetItemHeight(int row, UINT height) { // row -1: the field
        return static_cast<int>(
            SendMessage(CB_SETITEMHEIGHT, static_cast<WPARAM>(row), static_cast<LPARAM>(height)));
    }

private:
    int Send(UINT message, int row = 0, const WCHAR* text = nullptr) const {
        return static_cast<int>(
            SendMessage(message, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text)));
    }
};
