// All that an item of a list-view holds, to be put into another item.
#pragma once

#include <quorvel/framework/win/list_ctrl.h>

#include <vector>

namespace quorvel {

class ListItemContent {
public:
    // Of a list with so many columns, which is no owner-data list.
    ListItemContent(const CListCtrl& list, int item, int columnCount);

    // Writes it over another item's content, state included.
    void PutInto(CListCtrl& list, int item) const;

private:
    struct Cell {
        CString text;
        bool isAskedFor = false; // the parent is asked for the text when it is shown
        int image = 0;
    };

    std::vector<Cell> m_cells;
    int m_indent = 0;
    LPARAM m_data = 0;
    UINT m_state = 0;
};

} // namespace quorvel
