// CHeaderCtrl: the header of a list. Windows only, on its window's thread. It has no data members,
// so the host needs no object of its own for the result of CListCtrl::GetHeaderCtrl.
#pragma once

#include <quorvel/framework/wnd.h>

class CImageList;

class QUORVEL_API CHeaderCtrl : public CWnd {
    DECLARE_DYNAMIC(CHeaderCtrl)
public:
    // As CWnd::Create, with the window class of the control.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CWnd::Create(WC_HEADERW, nullptr, style, rect, parent, id);
    }

    // Send the control's messages (HDM_...). Items count from 0; -1 means no item or failure.
    int GetItemCount() const { return static_cast<int>(SendMessage(HDM_GETITEMCOUNT)); }
    BOOL GetItem(int item, HDITEMW* description) const {
        return Send(HDM_GETITEMW, item, description);
    }
    BOOL SetItem(int item, const HDITEMW* description) {
        return Send(HDM_SETITEMW, item, description);
    }
    int InsertItem(int item, const HDITEMW* description) {
        return Send(HDM_INSERTITEMW, item, description);
    }
    BOOL DeleteItem(int item) { return Send(HDM_DELETEITEM, item); }
    BOOL GetItemRect(int item, RECT* rect) const { return Send(HDM_GETITEMRECT, item, rect); }
    int HitTest(HDHITTESTINFO* test) const { return Send(HDM_HITTEST, 0, test); }

    // The items from left to right. FALSE if `count` is not the number of items.
    int OrderToIndex(int order) const { return Send(HDM_ORDERTOINDEX, order); }
    BOOL GetOrderArray(int* items, int count) const {
        return Send(HDM_GETORDERARRAY, count, items);
    }
    BOOL SetOrderArray(int count, const int* items) {
        return Send(HDM_SETORDERARRAY, count, items);
    }
    CImageList* SetImageList(CImageList* images); // returns the old one

private:
    int Send(UINT message, int number, const void* record = nullptr) const {
        return static_cast<int>(
            SendMessage(message, static_cast<WPARAM>(number), reinterpret_cast<LPARAM>(record)));
    }
};
