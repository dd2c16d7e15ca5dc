#include <quorvel/update/win/update_listing_list_ctrl_header_ctrl.h>

#include <quorvel/framework/win/dc.h>
#include <quorvel/update/win/update_listing_list_ctrl.h>

#include "update/win/priority_marks.h"

#include <uxtheme.h>
#include <vssym32.h>

IMPLEMENT_DYNAMIC(CUpdateListingListCtrlHeaderCtrl, CVaskListCtrlHeaderCtrl)

BEGIN_MESSAGE_MAP(CUpdateListingListCtrlHeaderCtrl, CVaskListCtrlHeaderCtrl)
ON_NOTIFY_REFLECT_EX(NM_CUSTOMDRAW, &CUpdateListingListCtrlHeaderCtrl::OnNMCustomdraw)
END_MESSAGE_MAP()

namespace {

// Draws like the platform for an item without text: with the theme, if the header has one.
void DrawItemBackground(CWnd& header, CDC& dc, CRect rect, UINT state) {
    const HTHEME theme =
        ::GetWindowTheme(header.m_hWnd) != nullptr ? ::OpenThemeData(nullptr, L"HEADER") : nullptr;
    if (theme == nullptr) {
        dc.FillSolidRect(rect, ::GetSysColor(COLOR_BTNFACE));
        dc.DrawEdge(rect, (state & CDIS_SELECTED) != 0 ? BDR_SUNKENOUTER : BDR_RAISEDINNER,
                    BF_RECT | BF_SOFT);
        return;
    }
    const int part = (state & CDIS_SELECTED) != 0 ? HIS_PRESSED
                     : (state & CDIS_HOT) != 0    ? HIS_HOT
                                                  : HIS_NORMAL;
    ::DrawThemeBackground(theme, dc, HP_HEADERITEM, part, rect, nullptr);
    ::CloseThemeData(theme);
}

} // namespace

// The platform's arrow belongs to the drawing that this class replaces.
CUpdateListingListCtrlHeaderCtrl::CUpdateListingListCtrlHeaderCtrl() {
    SetOwnArrow(TRUE);
}

CUpdateListingListCtrlHeaderCtrl::~CUpdateListingListCtrlHeaderCtrl() = default;

BOOL CUpdateListingListCtrlHeaderCtrl::OnNMCustomdraw(NMHDR* header, LRESULT* result) {
    const NMCUSTOMDRAW& draw = *reinterpret_cast<const NMCUSTOMDRAW*>(header);
    auto* const list = dynamic_cast<CUpdateListingListCtrl*>(GetParent());
    const int column =
        list != nullptr ? list->GetInsertedColumn(CUpdateListingListCtrl::COLUMN_PRIORITY) : -1;
    if (draw.dwDrawStage == CDDS_PREPAINT) {
        *result = CDRF_NOTIFYITEMDRAW;
    } else if (draw.dwDrawStage == CDDS_ITEMPREPAINT && column >= 0 &&
               static_cast<int>(draw.dwItemSpec) == column) {
        CDC& dc = *CDC::FromHandle(draw.hdc);
        DrawItemBackground(*this, dc, draw.rc, draw.uItemState);
        list->DrawMark(dc, quorvel::kMarkOfHeader, draw.rc);
        *result = CDRF_SKIPDEFAULT;
    } else {
        *result = CDRF_DODEFAULT;
    }
    return TRUE;
}
