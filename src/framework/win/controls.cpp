// Members of the control classes that do not only forward.
#include <quorvel/framework/win/combo_box.h>
#include <quorvel/framework/win/edit.h>
#include <quorvel/framework/win/image_list.h>
#include <quorvel/framework/win/list_box.h>
#include <quorvel/framework/win/list_ctrl.h>
#include <quorvel/framework/win/progress_ctrl.h>
#include <quorvel/framework/win/scroll_bar.h>
#include <quorvel/framework/win/spin_button_ctrl.h>
#include <quorvel/framework/win/tool_tip_ctrl.h>

#include "framework/common_controls.h"

IMPLEMENT_DYNAMIC(CComboBox, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CHeaderCtrl, CWnd)
IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CListCtrl, CWnd)
IMPLEMENT_DYNAMIC(CProgressCtrl, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)
IMPLEMENT_DYNAMIC(CSpinButtonCtrl, CWnd)
IMPLEMENT_DYNAMIC(CToolTipCtrl, CWnd)

BEGIN_MESSAGE_MAP(CListCtrl, CWnd)
ON_WM_DRAWITEM_REFLECT()
END_MESSAGE_MAP()

namespace {

// Reads a row's text from a list box or combo box with their messages.
void ReadRow(const CWnd& list, UINT lengthMessage, UINT textMessage, int row, CString& text) {
    text.Empty();
    const LRESULT length = list.SendMessage(lengthMessage, static_cast<WPARAM>(row));
    if (length <= 0) // -1: no such row
        return;
    WCHAR* const buffer = text.GetBuffer(static_cast<int>(length));
    list.SendMessage(textMessage, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(buffer));
    text.ReleaseBuffer();
}

LPARAM HandleOfImages(const CImageList* images) {
    return reinterpret_cast<LPARAM>(images != nullptr ? images->m_hImageList : nullptr);
}

LVITEMW ItemOf(UINT mask, int item, int subItem, const WCHAR* text, UINT state, UINT stateMask,
               int image, LPARAM data) {
    LVITEMW description = {};
    description.mask = mask;
    description.iItem = item;
    description.iSubItem = subItem;
    description.state = state;
    description.stateMask = stateMask;
    description.pszText = const_cast<LPWSTR>(text); // it is only read
    description.iImage = image;
    description.lParam = data;
    return description;
}

CImageList* ImagesOf(LRESULT list) {
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(list));
}

} // namespace

void quorvel::RegisterCommonControls() {
    static const bool s_registered = [] {
        const INITCOMMONCONTROLSEX classes = {
            sizeof classes, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES | ICC_DATE_CLASSES};
        return ::InitCommonControlsEx(&classes) != FALSE;
    }();
    static_cast<void>(s_registered); // if it fails, creating a control fails too
}

void CComboBox::GetLBText(int row, CString& text) const {
    ReadRow(*this, CB_GETLBTEXTLEN, CB_GETLBTEXT, row, text);
}

void CListBox::GetText(int row, CString& text) const {
    ReadRow(*this, LB_GETTEXTLEN, LB_GETTEXT, row, text);
}

CImageList* CHeaderCtrl::SetImageList(CImageList* images) {
    return ImagesOf(SendMessage(HDM_SETIMAGELIST, 0, HandleOfImages(images)));
}

CHeaderCtrl* CListCtrl::GetHeaderCtrl() const {
    return static_cast<CHeaderCtrl*>(
        FromHandle(reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER))));
}

CImageList* CListCtrl::SetImageList(CImageList* images, int which) {
    return ImagesOf(
        SendMessage(LVM_SETIMAGELIST, static_cast<WPARAM>(which), HandleOfImages(images)));
}

CImageList* CListCtrl::GetImageList(int which) const {
    return ImagesOf(SendMessage(LVM_GETIMAGELIST, static_cast<WPARAM>(which)));
}

int CListCtrl::InsertColumn(int column, const WCHAR* heading, int format, int width, int subItem) {
    LVCOLUMNW description = {};
    description.mask = LVCF_TEXT | LVCF_FMT | (width != -1 ? UINT{LVCF_WIDTH} : 0u) |
                       (subItem != -1 ? UINT{LVCF_SUBITEM} : 0u);
    description.pszText = const_cast<LPWSTR>(heading);
    description.fmt = format;
    description.cx = width;
    description.iSubItem = subItem;
    return InsertColumn(column, &description);
}

BOOL CListCtrl::GetColumnOrderArray(int* columns, int count) const {
    const CHeaderCtrl* const header = GetHeaderCtrl();
    if (header == nullptr)
        return FALSE;
    if (count == -1)
        count = header->GetItemCount();
    return static_cast<BOOL>(SendMessage(LVM_GETCOLUMNORDERARRAY, static_cast<WPARAM>(count),
                                         reinterpret_cast<LPARAM>(columns)));
}

int CListCtrl::InsertItem(int item, const WCHAR* text, int image, LPARAM data) {
    const UINT mask = LVIF_TEXT | LVIF_PARAM | (image != -1 ? UINT{LVIF_IMAGE} : 0u);
    return InsertItem(mask, item, text, 0, 0, image, data);
}

int CListCtrl::InsertItem(UINT mask, int item, const WCHAR* text, UINT state, UINT stateMask,
                          int image, LPARAM data) {
    const LVITEMW description = ItemOf(mask, item, 0, text, state, stateMask, image, data);
    return InsertItem(&description);
}

BOOL CListCtrl::SetItem(int item, int subItem, UINT mask, const WCHAR* text, int image, UINT state,
                        UINT stateMask, LPARAM data, int indent) {
    LVITEMW description = ItemOf(mask, item, subItem, text, state, stateMask, image, data);
    description.iIndent = indent;
    return SetItem(&description);
}

CString CListCtrl::GetItemText(int item, int subItem) const {
    constexpr int kFirstSize = 128;
    CString text;
    LVITEMW description = {};
    description.iSubItem = subItem;
    for (int size = kFirstSize;; size *= 2) {
        // The list may replace the pointer by its own text, so the result limits the buffer.
        description.pszText = text.GetBuffer(size);
        description.cchTextMax = size;
        const int length = static_cast<int>(SendMessage(LVM_GETITEMTEXTW, static_cast<WPARAM>(item),
                                                        reinterpret_cast<LPARAM>(&description)));
        if (length < size - 1) {
            text.ReleaseBuffer(length);
            return text;
        }
    }
}

int CListCtrl::GetItemText(int item, int subItem, WCHAR* buffer, int size) const {
    if (buffer == nullptr || size <= 0)
        return 0;
    LVITEMW description = {};
    description.iSubItem = subItem;
    description.pszText = buffer;
    description.cchTextMax = size;
    *buffer = 0; // stays for an item that does not exist
    return Send(LVM_GETITEMTEXTW, item, &description);
}

BOOL CListCtrl::SetItemText(int item, int subItem, const WCHAR* text) {
    LVITEMW description = {};
    description.iSubItem = subItem;
    description.pszText = const_cast<LPWSTR>(text);
    return Send(LVM_SETITEMTEXTW, item, &description);
}

DWORD_PTR CListCtrl::GetItemData(int item) const {
    LVITEMW description = {};
    description.mask = LVIF_PARAM;
    description.iItem = item;
    GetItem(&description);
    return static_cast<DWORD_PTR>(description.lParam);
}

BOOL CListCtrl::SetItemData(int item, DWORD_PTR data) {
    LVITEMW description = {};
    description.mask = LVIF_PARAM;
    description.iItem = item;
    description.lParam = static_cast<LPARAM>(data);
    return SetItem(&description);
}

BOOL CListCtrl::SetItemState(int item, UINT state, UINT mask) {
    LVITEMW description = {};
    description.state = state;
    description.stateMask = mask;
    return Send(LVM_SETITEMSTATE, item, &description);
}

// A position is the item's number plus one, so that it is never null.
POSITION CListCtrl::GetFirstSelectedItemPosition() const {
    return reinterpret_cast<POSITION>(static_cast<INT_PTR>(GetNextItem(-1, LVNI_SELECTED) + 1));
}

int CListCtrl::GetNextSelectedItem(POSITION& position) const {
    const int item = static_cast<int>(reinterpret_cast<INT_PTR>(position)) - 1;
    position =
        reinterpret_cast<POSITION>(static_cast<INT_PTR>(GetNextItem(item, LVNI_SELECTED) + 1));
    return item;
}

CToolTipCtrl* CListCtrl::GetToolTips() const {
    return static_cast<CToolTipCtrl*>(
        FromHandle(reinterpret_cast<HWND>(SendMessage(LVM_GETTOOLTIPS))));
}

void CListCtrl::DrawItem(DRAWITEMSTRUCT*) {}

CEdit* CListCtrl::EditLabel(int item) {
    return static_cast<CEdit*>(
        FromHandle(reinterpret_cast<HWND>(SendMessage(LVM_EDITLABELW, static_cast<WPARAM>(item)))));
}
