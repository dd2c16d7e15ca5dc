// The data that the columns dialog shows and edits. It has a row for each column of a list, with a
// check for its visibility, an order and a width. Only Save changes the list.
//
// Calls for an unknown row fail and change nothing. Used on the user-interface thread.
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
        bool isLocked; // checked, and the list refuses to hide its column
    };

    // Shown columns from left to right, then hidden ones in true order.
    ColumnsDialogList(Columns& columns, const ColumnView& view);

    const std::vector<Row>& Rows() const { return m_rows; }
    bool Check(int row, bool isChecked); // a locked row stays checked

    // The text of the width edit for a row. Empty for an unknown row.
    CString GetWidthText(int row) const;
    // Sets the width. Limits numbers to 0 to 9999; other text means 0. The same text as
    // GetWidthText gave for this row changes nothing: a width above 9999 stays until a user edits
    // it.
    bool SetWidthText(int row, const WCHAR* text);

    // Moves a row by one place.
    bool CanMoveUp(int row) const { return row > 0 && IsRow(row); }
    bool CanMoveDown(int row) const { return row >= 0 && IsRow(row + 1); }
    bool MoveUp(int row);
    bool MoveDown(int row) { return CanMoveDown(row) && MoveUp(row + 1); }

    // Puts every column in true order, checked, with its default width.
    bool CanReset() const { return !m_rows.empty(); }
    void Reset();

    // Whether at least one row is checked. Otherwise the dialog does not close.
    bool IsValid() const;
    // Keeps at least one column shown at any time, so that the list can sort by another column when
    // the sort column is hidden.
    void Save();

private:
    bool IsRow(int row) const { return row >= 0 && row < static_cast<int>(m_rows.size()); }
    Row& At(int row) { return m_rows[static_cast<std::size_t>(row)]; }

    Columns& m_columns;
    const ColumnView& m_view;
    std::vector<Row> m_rows;
};

} // namespace quorvel
