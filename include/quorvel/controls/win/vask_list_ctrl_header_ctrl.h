// CVaskListCtrlHeaderCtrl: the header of a CVaskListCtrl, which its list subclasses. Windows only,
// user-interface thread.
#pragma once

#include <quorvel/controls/win/sort_header_ctrl.h>

class QUORVEL_API CVaskListCtrlHeaderCtrl : public CSortHeaderCtrl {
    DECLARE_DYNAMIC(CVaskListCtrlHeaderCtrl)
public:
    CVaskListCtrlHeaderCtrl();
    ~CVaskListCtrlHeaderCtrl() override;

protected:
    // Calls OnHeaderContextMenu of the list. From the keyboard the menu opens below the header.
    void OnContextMenu(CWnd* wnd, CPoint point);
    DECLARE_MESSAGE_MAP()
};
