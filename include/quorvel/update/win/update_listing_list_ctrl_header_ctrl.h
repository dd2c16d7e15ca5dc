// CUpdateListingListCtrlHeaderCtrl: the header of a CUpdateListingListCtrl. It shows the column of
// the priority by a mark instead of a word, since that column is narrow. Windows only,
// user-interface thread.
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
