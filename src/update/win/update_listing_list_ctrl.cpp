#include <quorvel/update/win/update_listing_list_ctrl.h>

#include <quorvel/framework/win/dc.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/update/win/update_listing_list_ctrl_header_ctrl.h>
#include <quorvel/util/calendar/date_text.h>

#include "update/update_listing_order.h"
#include "update/win/priority_marks.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CUpdateListingListCtrl, CVirtualListCtrl)

BEGIN_MESSAGE_MAP(CUpdateListingListCtrl, CVirtualListCtrl)
ON_NOTIFY_REFLECT_EX(NM_CUSTOMDRAW, &CUpdateListingListCtrl::OnNMCustomdraw)
ON_WM_SYSCOLORCHANGE()
END_MESSAGE_MAP()

CUpdateListingListCtrl::CUpdateListingListCtrl() {
    SetSearchColumn(COLUMN_TITLE); // the first has no texts
}

CUpdateListingListCtrl::~CUpdateListingListCtrl() = default;

std::unique_ptr<CVaskListCtrlHeaderCtrl> CUpdateListingListCtrl::MakeHeaderCtrl() {
    return std::make_unique<CUpdateListingListCtrlHeaderCtrl>();
}

BOOL CUpdateListingListCtrl::InsertColumns() {
    if (m_hWnd == nullptr || GetInsertedColumnCount() > 0)
        return FALSE;
    const UINT headings[NUM_COLUMNS] = {quorvel::kTextColumnPriority, quorvel::kTextColumnTitle,
                                        quorvel::kTextColumnDate};
    for (int column = 0; column < NUM_COLUMNS; ++column) {
        CString heading;
        heading.LoadString(headings[column]);
        InsertVaskColumn(column, column, TRUE, heading, LVCFMT_LEFT, GetDefaultColumnWidth(column));
    }
    SetSortColumn(COLUMN_DATE);
    SetSortAscending(FALSE);
    return TRUE;
}

void CUpdateListingListCtrl::ShowItems(std::vector<CVirtualListCtrlItem*> items) {
    ReplaceItemsSorted(items);
}

CUpdateListingItem* CUpdateListingListCtrl::GetUpdateListingItem(int index) const {
    return dynamic_cast<CUpdateListingItem*>(GetItem(index));
}

CUpdateListingItem* CUpdateListingListCtrl::GetSelectedUpdateListingItem() const {
    return dynamic_cast<CUpdateListingItem*>(GetSelectedItem());
}

int CUpdateListingListCtrl::GetDefaultColumnWidth(int trueColumn) {
    if (m_hWnd == nullptr)
        return CVirtualListCtrl::GetDefaultColumnWidth(trueColumn);
    const int priorityWidth = 3 * quorvel::SideOfPriorityMarks(); // includes the sort arrow
    if (trueColumn == COLUMN_PRIORITY)
        return priorityWidth;
    CString widest = AfxGetLocaleShortDate(COleDateTime(2000, 12, 30, 0, 0, 0));
    const auto widthOf = [this](const CString& text) {
        return static_cast<int>(
            SendMessage(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text.GetString())));
    };
    const int dateWidth = widthOf(widest) + widthOf(_T("00000"));
    if (trueColumn == COLUMN_DATE)
        return dateWidth;
    CRect client;
    GetClientRect(client);
    const int rest = client.Width() - priorityWidth - dateWidth - ::GetSystemMetrics(SM_CXVSCROLL);
    return std::max(rest, dateWidth);
}

void CUpdateListingListCtrl::LoadDefaultColumnWidths() {
    for (int column = 0; column < NUM_COLUMNS; ++column)
        SetVaskColumnWidth(column, GetDefaultColumnWidth(column));
}

CVirtualListCtrl::SortingFunction CUpdateListingListCtrl::GetSortingFunction(int column,
                                                                             int ascending) {
    return quorvel::UpdateListingOrder(column, ascending != 0);
}

#define QUORVEL_UPDATE_LISTING_ORDER(name)                                                         \
    bool CUpdateListingListCtrl::name(CVirtualListCtrlItem* const& first,                          \
                                      CVirtualListCtrlItem* const& second) {                       \
        return quorvel::name(first, second);                                                       \
    }
QUORVEL_UPDATE_LISTING_ORDER(swoTitleAscending)
QUORVEL_UPDATE_LISTING_ORDER(swoTitleDescending)
QUORVEL_UPDATE_LISTING_ORDER(swoDescriptionAscending)
QUORVEL_UPDATE_LISTING_ORDER(swoDescriptionDescending)
QUORVEL_UPDATE_LISTING_ORDER(swoPriorityAscending)
QUORVEL_UPDATE_LISTING_ORDER(swoPriorityDescending)
QUORVEL_UPDATE_LISTING_ORDER(swoLinkAscending)
QUORVEL_UPDATE_LISTING_ORDER(swoLinkDescending)
QUORVEL_UPDATE_LISTING_ORDER(swoNewAscending)
QUORVEL_UPDATE_LISTING_ORDER(swoNewDescending)
QUORVEL_UPDATE_LISTING_ORDER(swoDateAscending)
QUORVEL_UPDATE_LISTING_ORDER(swoDateDescending)
#undef QUORVEL_UPDATE_LISTING_ORDER

// Drawing

void CUpdateListingListCtrl::OnSysColorChange() {
    CVirtualListCtrl::OnSysColorChange();
    m_imageList.DeleteImageList();
}

CImageList& CUpdateListingListCtrl::Marks() {
    if (m_imageList.GetSafeHandle() == nullptr)
        quorvel::MakePriorityMarks(m_imageList);
    return m_imageList;
}

// Draws the mark in the centre.
void CUpdateListingListCtrl::DrawMark(CDC& dc, int mark, const CRect& rect) {
    const int side = quorvel::SideOfPriorityMarks();
    const CPoint place((rect.left + rect.right - side) / 2, (rect.top + rect.bottom - side) / 2);
    const int saved = dc.SaveDC();
    dc.IntersectClipRect(rect);
    Marks().Draw(&dc, mark, place, ILD_TRANSPARENT);
    dc.RestoreDC(saved);
}

// Draws after the row itself, because the platform has icons only in the first column.
void CUpdateListingListCtrl::DrawPriority(CDC& dc, int row) {
    const CUpdateListingItem* const item = GetUpdateListingItem(row);
    const int column = GetInsertedColumn(COLUMN_PRIORITY);
    CHeaderCtrl* const header = GetHeaderCtrl();
    CRect rect;
    CRect heading; // the first column's own rectangle is the whole row
    if (item == nullptr || column < 0 || header == nullptr ||
        !GetItemRect(row, rect, LVIR_BOUNDS) || !header->GetItemRect(column, heading))
        return;
    header->MapWindowPoints(this, heading);
    rect.left = heading.left;
    rect.right = heading.right;
    const bool isOnHighlight = IsItemSelected(row) && GetFocus() == this;
    DrawMark(dc, item->GetPriority() + (isOnHighlight ? int{quorvel::kMarkOfSelected} : 0), rect);
}

BOOL CUpdateListingListCtrl::OnNMCustomdraw(NMHDR* header, LRESULT* result) {
    *result = CDRF_DODEFAULT;
    CVirtualListCtrl::OnNMCustomdraw(header, result); // draws highlighted rows
    const NMCUSTOMDRAW& draw = *reinterpret_cast<const NMCUSTOMDRAW*>(header);
    const int row = static_cast<int>(draw.dwItemSpec);
    switch (draw.dwDrawStage) {
    case CDDS_PREPAINT: {
        LOGFONTW description;
        const CFont* const font = GetFont();
        m_boldFont.DeleteObject();
        if (font != nullptr && font->GetLogFont(&description)) {
            description.lfWeight = FW_BOLD;
            m_boldFont.CreateFontIndirect(&description);
        }
        *result |= CDRF_NOTIFYITEMDRAW;
        break;
    }
    case CDDS_ITEMPREPAINT: {
        const CUpdateListingItem* const item = GetUpdateListingItem(row);
        *result |= CDRF_NOTIFYPOSTPAINT;
        if (item != nullptr && item->IsNew() && m_boldFont.GetSafeHandle() != nullptr) {
            ::SelectObject(draw.hdc, m_boldFont);
            *result |= CDRF_NEWFONT;
        }
        break;
    }
    case CDDS_ITEMPOSTPAINT:
        DrawPriority(*CDC::FromHandle(draw.hdc), row);
        break;
    default:
        break;
    }
    return TRUE;
}
