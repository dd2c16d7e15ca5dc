// CUpdateListingListCtrlHeaderCtrl: the header of a CUpdateListingListCtrl. It draws a mark
// instead of a word for the priority column, which is narrow. Windows only, user-interface
// thread.
#pragma once

#include <quorvel/controls/win/vask_list_ctrl_header_ctrl.h>

class QUORVEL_API CUpdateListingListCtrlHeaderCtrl : public CVaskListCtrlHeaderCtrl {
    DECLARE_DYNAMIC(CUpdateListingListCtrlHeaderCtrl)
public:
    CUpdateListingListCtrlHeaderCtrl();
    ~CUpdateListingListCtrlHeaderCtrl() override;

protected:
    BOOL OnNMCustomdraw(NMHDR* header, LRESULT* result);
    DECLARE_MESSAGE_MAP()
};
