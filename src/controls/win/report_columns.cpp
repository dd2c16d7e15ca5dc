#include "controls/win/report_columns.h"

#include <iterator>

namespace quorvel {

int ReportColumns::GetCount() const {
    const CHeaderCtrl* const header = list.m_hWnd != nullptr ? list.GetHeaderCtrl() : nullptr;
    return header != nullptr ? header->GetItemCount() : 0;
}

int ReportColumns::Insert(int position, const ColumnRecord& column) {
    if (list.m_hWnd == nullptr)
        return -1;
    LVCOLUMNW description = Describe(column);
    description.mask |= LVCF_FMT | LVCF_TEXT;
    description.mask &= ~UINT{LVCF_ORDER}; // the position determines the order
    isChanging = true;
    const int inserted = list.InsertColumn(position, &description);
    isChanging = false;
    return inserted;
}

bool ReportColumns::Delete(int insertedColumn) {
    isChanging = true;
    const BOOL isDeleted = list.DeleteColumn(insertedColumn);
    isChanging = false;
    return isDeleted != FALSE;
}

LVCOLUMNW ReportColumns::Describe(const ColumnRecord& column) const {
    const auto given = descriptions.find(column.trueColumn);
    LVCOLUMNW description = given != descriptions.end() ? given->second : LVCOLUMNW();
    description.fmt = column.format;
    description.pszText = const_cast<WCHAR*>(column.heading.GetString()); // it is only read
    if (column.width != -1) {
        description.mask |= LVCF_WIDTH;
        description.cx = column.width;
    }
    return description;
}

void ReportColumns::ReadDescription(int insertedColumn, UINT mask) {
    WCHAR heading[260]; // the most that a header shows
    LVCOLUMNW description = {};
    description.mask = LVCF_TEXT | LVCF_FMT;
    description.pszText = heading;
    description.cchTextMax = static_cast<int>(std::size(heading));
    if (list.GetColumn(insertedColumn, &description))
        columns.Redefine(columns.GetTrueColumn(insertedColumn),
                         (mask & LVCF_TEXT) != 0 ? description.pszText : nullptr,
                         description.fmt & kColumnAlignmentMask);
}

void ReportColumns::SetAlignment(int insertedColumn, int alignment) {
    LVCOLUMNW description = {};
    description.mask = LVCF_FMT;
    if (!list.GetColumn(insertedColumn, &description))
        return;
    description.fmt = (description.fmt & ~LVCFMT_JUSTIFYMASK) | alignment;
    list.SetColumn(insertedColumn, &description);
}

int ReportColumns::GetWidth(int insertedColumn) const {
    return list.GetColumnWidth(insertedColumn);
}

void ReportColumns::SetWidth(int insertedColumn, int width) {
    list.SetColumnWidth(insertedColumn, width);
}

std::vector<int> ReportColumns::GetOrder() const {
    std::vector<int> order(static_cast<std::size_t>(GetCount()));
    if (order.empty() || !list.GetColumnOrderArray(order.data(), GetCount()))
        return {};
    return order;
}

bool ReportColumns::SetOrder(const std::vector<int>& order) {
    const BOOL isSet = list.SetColumnOrderArray(static_cast<int>(order.size()), order.data());
    list.Invalidate(); // the platform only moves the headings
    return isSet != FALSE;
}

int ReportColumns::GetDefaultWidth(int trueColumn) const {
    return list.GetDefaultColumnWidth(trueColumn);
}

void ReportColumns::LoadDefaultWidths() {
    list.LoadDefaultColumnWidths();
}

bool ReportColumns::CanBeHidden(int trueColumn) const {
    return list.CanVaskColumnBeHidden(trueColumn) != FALSE;
}

void ReportColumns::OnShow(int trueColumn, int insertedColumn) {
    list.OnShowVaskColumn(trueColumn, insertedColumn);
}

void ReportColumns::OnDeleteSortColumn(int trueColumn, int insertedColumn, int displayPosition) {
    list.OnDeleteSortColumn(trueColumn, insertedColumn, displayPosition);
}

} // namespace quorvel
