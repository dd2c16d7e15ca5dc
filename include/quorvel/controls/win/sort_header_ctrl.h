// CSortHeaderCtrl: a header with an arrow that shows by which column a list is sorted. Windows
// only, user-interface thread.
//
// Columns are inserted columns, that is, indexes of the header. The platform's header draws the
// arrow if it can; common controls before version 6 cannot, and this class then draws it.
#pragma once

#include <quorvel/framework/win/header_ctrl.h>
#include <quorvel/framework/win/message_map.h>

class QUORVEL_API CSortHeaderCtrl : public CHeaderCtrl {
    DECLARE_DYNAMIC(CSortHeaderCtrl)
public:
    CSortHeaderCtrl();
    ~CSortHeaderCtrl() override;

    // Shows the arrow on this column only; -1 shows no arrow. Call it again after setting a
    // column's text or format, because the platform then removes its arrow.
    void SetSort(int insertedColumn, BOOL ascending, BOOL redraw = TRUE);
    int GetSortColumn() const { return m_column; }
    BOOL IsSortAscending() const { return m_isAscending; }

    // Whether this class draws the arrow. The default is TRUE where the platform cannot draw it.
    void SetOwnArrow(BOOL isOwn);
    BOOL HasOwnArrow() const { return m_hasOwnArrow; }

protected:
    void OnPaint();
    DECLARE_MESSAGE_MAP()

private:
    void DrawArrow();

    int m_column = -1;
    BOOL m_isAscending = TRUE;
    BOOL m_hasOwnArrow;
};
