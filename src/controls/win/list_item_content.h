// The whole content of a list-view item, to copy it to another item.
#pragma once

#include <quorvel/framework/win/list_ctrl.h>

#include <vector>

namespace quorvel {

class ListItemContent {
public:
    // The list has this number of columns and is not an owner-data list.
    ListItemContent(const CListCtrl& list, int item, int columnCount);

    // Overwrites another item's content, including its state.
    void PutInto(CListCtrl& list, int item) const;

private:
    struct Cell {
        CString text;
        bool isAskedFor = false; // the parent supplies the text on demand
        int image = 0;
    };

    std::vector<Cell> m_cells;
    int m_indent = 0;
    LPARAM m_data = 0;
    UINT m_state = 0;
};

} // namespace quorvel
