#include <quorvel/controls/win/vask_list_ctrl_header_ctrl.h>

#include <quorvel/controls/win/vask_list_ctrl.h>

IMPLEMENT_DYNAMIC(CVaskListCtrlHeaderCtrl, CSortHeaderCtrl)

BEGIN_MESSAGE_MAP(CVaskListCtrlHeaderCtrl, CSortHeaderCtrl)
ON_WM_CONTEXTMENU()
END_MESSAGE_MAP()

CVaskListCtrlHeaderCtrl::CVaskListCtrlHeaderCtrl() = default;

CVaskListCtrlHeaderCtrl::~CVaskListCtrlHeaderCtrl() = default;

void CVaskListCtrlHeaderCtrl::OnContextMenu(CWnd*, CPoint point) {
    CWnd* const parent = GetParent();
    if (parent == nullptr || !parent->IsKindOf(RUNTIME_CLASS(CVaskListCtrl)))
        return;
    if (point == CPoint(-1, -1)) {
        CRect rect;
        GetWindowRect(rect);
        point = CPoint(rect.left, rect.bottom);
    }
    HDHITTESTINFO test = {};
    test.pt = point;
    ScreenToClient(&test.pt);
    const int column = HitTest(&test);
    static_cast<CVaskListCtrl*>(parent)->OnHeaderContextMenu(column, test.flags, point);
}
