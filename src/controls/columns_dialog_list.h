// What the columns dialog shows and edits: a row for each column of a list, with a check for its
// visibility, an order and a width. The list itself changes with Save alone.
//
// A row that does not exist is refused, and nothing changes. Used on the user-interface thread.
#pragma once

#include "controls/columns.h"

namespace quorvel {

class ColumnsDialogList {
public:
    static constexpr int kMaxWidth = 9999;

    struct Row {
        int trueColumn;
        CString heading;
        bool isChecked;
        int width;     // in pixels
        bool isLocked; // checked, and the list does not let its column be hidden
    };

    // Shown columns from left to right, then hidden ones in true order.
    ColumnsDialogList(Columns& columns, const ColumnView& view);

    const std::vector<Row>& Rows() const { return m_rows; }
    bool Check(int row, bool isChecked); // a locked row stays checked

    // The text of the width edit for a row. Empty for a row that does not exist.
    CString GetWidthText(int row) const;
    // Takes the width as 0 to 9999, the nearer end for other numbers, 0 for what is not a number.
    // The text that the edit was given for this row changes nothing: a width above 9999 stays
    // until a user edits it.
    bool SetWidthText(int row, const WCHAR* text);

    // By one place.
    bool CanMoveUp(int row) const { return row > 0 && IsRow(row); }
    bool CanMoveDown(int row) const { return row >= 0 && IsRow(row + 1); }
    bool MoveUp(int row);
    bool MoveDown(int row) { return CanMoveDown(row) && MoveUp(row + 1); }

    // Every column in true order, checked, with its default width.
    bool CanReset() const { return !m_rows.empty(); }
    void Reset();

    // Whether a row is checked, without which the dialog does not end.
    bool IsValid() const;
    // The list is not without columns meanwhile: that the sort column is hidden then means that the
    // list is sorted by another one.
    void Save();

private:
    bool IsRow(int row) const { return row >= 0 && row < static_cast<int>(m_rows.size()); }
    Row& At(int row) { return m_rows[static_cast<std::size_t>(row)]; }

    Columns& m_columns;
    const ColumnView& m_view;
    std::vector<Row> m_rows;
};

} // namespace quorvel
