// CSortHeaderCtrl: a header that shows by an arrow which column a list is sorted by. Windows only,
// user-interface thread.
//
// Columns are inserted columns, the header's own indexes. Where the platform's header draws arrows
// it is asked to; common controls before version 6 draw none, and the header draws its own then.
#pragma once

#include <quorvel/framework/win/header_ctrl.h>
#include <quorvel/framework/win/message_map.h>

class QUORVEL_API CSortHeaderCtrl : public CHeaderCtrl {
    DECLARE_DYNAMIC(CSortHeaderCtrl)
public:
    CSortHeaderCtrl();
    ~CSortHeaderCtrl() override;

    // Shows the arrow on this column and on no other; -1: on none. Call it again after a column's
    // text or format was set: the platform drops its arrow then.
    void SetSort(int insertedColumn, BOOL ascending, BOOL redraw = TRUE);
    int GetSortColumn() const { return m_column; }
    BOOL IsSortAscending() const { return m_isAscending; }

    // Whether the header draws the arrow, as it does at first where the platform does not.
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
