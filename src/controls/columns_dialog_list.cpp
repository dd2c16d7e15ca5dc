#include "controls/columns_dialog_list.h"

#include <algorithm>

namespace quorvel {

namespace {

int WidthOf(const CString& text) {
    CString digits = text;
    digits.Trim();
    const bool isNegative = digits.GetLength() > 1 && digits[0] == '-';
    if (isNegative || digits.IsEmpty() || digits.SpanIncluding(_T("0123456789")) != digits)
        return 0;
    int width = 0;
    for (int i = 0; i < digits.GetLength() && width <= ColumnsDialogList::kMaxWidth; ++i)
        width = 10 * width + (digits[i] - '0');
    return std::min(width, ColumnsDialogList::kMaxWidth);
}

} // namespace

ColumnsDialogList::ColumnsDialogList(Columns& columns, const ColumnView& view)
    : m_columns(columns), m_view(view) {
    const auto add = [this](int trueColumn, bool isShown) {
        const ColumnRecord* const column = m_columns.Find(trueColumn);
        if (column == nullptr || column->isVisible != isShown)
            return;
        // The only shown column may be hidden as soon as another one is checked.
        const bool isLocked = isShown && m_view.GetCount() > 1 && !m_view.CanBeHidden(trueColumn);
        m_rows.push_back({trueColumn, column->heading, isShown,
                          m_columns.GetWidthWhenShown(trueColumn), isLocked});
    };
    for (const int trueColumn : m_columns.GetLeftToRightTrueColumns())
        add(trueColumn, true);
    for (const auto& [trueColumn, column] : m_columns.Records())
        add(trueColumn, false);
}

bool ColumnsDialogList::Check(int row, bool isChecked) {
    if (!IsRow(row) || (At(row).isLocked && !isChecked))
        return false;
    At(row).isChecked = isChecked;
    return true;
}

CString ColumnsDialogList::GetWidthText(int row) const {
    CString text;
    if (IsRow(row))
        text.Format(_T("%d"), m_rows[static_cast<std::size_t>(row)].width);
    return text;
}

bool ColumnsDialogList::SetWidthText(int row, const WCHAR* text) {
    if (!IsRow(row) || text == nullptr)
        return false;
    if (GetWidthText(row) != text)
        At(row).width = WidthOf(text);
    return true;
}

bool ColumnsDialogList::MoveUp(int row) {
    if (!CanMoveUp(row))
        return false;
    std::swap(At(row), At(row - 1));
    return true;
}

void ColumnsDialogList::Reset() {
    std::ranges::sort(m_rows, {}, &Row::trueColumn);
    for (Row& row : m_rows) {
        row.isChecked = true;
        row.width = m_view.GetDefaultWidth(row.trueColumn);
    }
}

bool ColumnsDialogList::IsValid() const {
    return std::ranges::any_of(m_rows, &Row::isChecked);
}

void ColumnsDialogList::Save() {
    std::vector<int> hiddenLast;
    for (const Row& row : m_rows) {
        const bool isOnlyOne = m_view.GetCount() == 1 && m_columns.IsVisible(row.trueColumn);
        if (isOnlyOne && !row.isChecked)
            hiddenLast.push_back(row.trueColumn);
        else
            m_columns.Show(row.trueColumn, row.isChecked);
    }
    for (const int trueColumn : hiddenLast)
        m_columns.Show(trueColumn, false);
    std::vector<int> order;
    for (const Row& row : m_rows) {
        if (m_columns.GetWidthWhenShown(row.trueColumn) != row.width)
            m_columns.SetWidth(row.trueColumn, row.width);
        if (row.isChecked)
            order.push_back(row.trueColumn);
    }
    m_columns.SetOrder(order);
}

} // namespace quorvel
