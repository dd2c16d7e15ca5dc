#include "controls/columns.h"

#include <quorvel/res/resource_ids.h>

#include <algorithm>

namespace quorvel {

void Columns::Forget() {
    m_records.clear();
    m_inserted.clear();
}

int Columns::Insert(int position, int trueColumn, bool isVisible, const WCHAR* heading, int format,
                    int width, int subItem) {
    if (heading == nullptr)
        return -1;
    return Insert(position, {isVisible ? position : -1, trueColumn, isVisible, heading, format,
                             width, subItem});
}

int Columns::Insert(int position, const ColumnRecord& column) {
    if (column.trueColumn < 0 || m_records.contains(column.trueColumn))
        return -1;
    const auto record = m_records.emplace(column.trueColumn, column).first;
    if (!column.isVisible)
        return -1;
    if (!PutIntoView(position, record->second)) {
        m_records.erase(record);
        return -1;
    }
    return GetInsertedColumn(column.trueColumn);
}

bool Columns::Show(int trueColumn, bool isShown) {
    const auto record = m_records.find(trueColumn);
    if (record == m_records.end())
        return false;
    ColumnRecord& column = record->second;
    if (column.isVisible == isShown)
        return true;
    if (isShown) {
        column.width = GetWidthWhenShown(trueColumn);
        const int count = m_view.GetCount();
        if (!PutIntoView(column.savedPosition < 0 ? count : std::min(column.savedPosition, count),
                         column))
            return false;
        m_view.OnShow(trueColumn, GetInsertedColumn(trueColumn));
        return true;
    }
    const int inserted = GetInsertedColumn(trueColumn);
    if (!TakeFromView(column))
        return false;
    NotifyRemoved(trueColumn, inserted, column.savedPosition);
    return true;
}

bool Columns::Delete(int trueColumn) {
    const auto record = m_records.find(trueColumn);
    if (record == m_records.end())
        return false;
    ColumnRecord& column = record->second;
    const bool wasVisible = column.isVisible;
    const int inserted = GetInsertedColumn(trueColumn);
    if (wasVisible && !TakeFromView(column))
        return false;
    const int position = column.savedPosition;
    m_records.erase(record);
    if (wasVisible)
        NotifyRemoved(trueColumn, inserted, position);
    return true;
}

void Columns::Reset() {
    std::vector<int> trueColumns;
    for (const auto& [trueColumn, column] : m_records)
        trueColumns.push_back(trueColumn);
    for (const int trueColumn : trueColumns) {
        Show(trueColumn, true);
        SetWidth(trueColumn, m_view.GetDefaultWidth(trueColumn));
    }
    SetOrder(trueColumns);
}

void Columns::Redefine(int trueColumn, const WCHAR* heading, int alignment) {
    const auto record = m_records.find(trueColumn);
    if (record == m_records.end())
        return;
    if (heading != nullptr)
        record->second.heading = heading;
    record->second.format = (record->second.format & ~kColumnAlignmentMask) | alignment;
}

// The list view displays a new column at its index, so the display position serves as index.
bool Columns::PutIntoView(int position, ColumnRecord& column) {
    const int inserted = m_view.Insert(position, column);
    if (inserted < 0)
        return false;
    UpdateInsertedVaskColumnsMap(inserted, true, column.trueColumn);
    column.isVisible = true;
    // During insertion column 0 accepts only left alignment.
    const int alignment = column.format & kColumnAlignmentMask;
    if (inserted == 0 && alignment != 0)
        m_view.SetAlignment(0, alignment);
    return true;
}

bool Columns::TakeFromView(ColumnRecord& column) {
    const int inserted = GetInsertedColumn(column.trueColumn);
    const int position = GetDisplayPosition(inserted);
    const int width = m_view.GetWidth(inserted);
    if (!m_view.Delete(inserted))
        return false;
    UpdateInsertedVaskColumnsMap(inserted, false);
    column.savedPosition = position;
    column.width = width;
    column.isVisible = false;
    return true;
}

// Calls the host, which may destroy the list, so nothing may follow.
void Columns::NotifyRemoved(int trueColumn, int insertedColumn, int displayPosition) {
    if (m_sortColumn == trueColumn)
        m_view.OnDeleteSortColumn(trueColumn, insertedColumn, displayPosition);
}

void Columns::UpdateInsertedVaskColumnsMap(int insertedColumn, bool isInserted, int trueColumn) {
    const auto place = static_cast<std::size_t>(insertedColumn);
    if (isInserted) {
        if (place > m_inserted.size()) // after columns without a record
            m_inserted.resize(place, -1);
        m_inserted.insert(m_inserted.begin() + insertedColumn, trueColumn);
    } else if (place < m_inserted.size()) {
        m_inserted.erase(m_inserted.begin() + insertedColumn);
    }
}

const ColumnRecord* Columns::Find(int trueColumn) const {
    const auto record = m_records.find(trueColumn);
    return record != m_records.end() ? &record->second : nullptr;
}

bool Columns::IsVisible(int trueColumn) const {
    const ColumnRecord* const column = Find(trueColumn);
    return column != nullptr && column->isVisible;
}

int Columns::GetTrueColumnCount() const {
    return HasRecords() ? static_cast<int>(m_records.size()) : m_view.GetCount();
}

int Columns::GetInsertedColumn(int trueColumn) const {
    if (!HasRecords())
        return trueColumn;
    const auto place = std::find(m_inserted.begin(), m_inserted.end(), trueColumn);
    return place != m_inserted.end() ? static_cast<int>(place - m_inserted.begin()) : -1;
}

int Columns::GetTrueColumn(int insertedColumn) const {
    if (!HasRecords())
        return insertedColumn;
    const bool isThere =
        insertedColumn >= 0 && insertedColumn < static_cast<int>(m_inserted.size());
    return isThere ? m_inserted[static_cast<std::size_t>(insertedColumn)] : -1;
}

int Columns::GetLeftToRightColumn(int displayPosition) const {
    const std::vector<int> order = m_view.GetOrder();
    const bool isThere = displayPosition >= 0 && displayPosition < static_cast<int>(order.size());
    return isThere ? order[static_cast<std::size_t>(displayPosition)] : -1;
}

int Columns::GetLeftToRightTrueColumn(int displayPosition) const {
    const int inserted = GetLeftToRightColumn(displayPosition);
    return inserted >= 0 ? GetTrueColumn(inserted) : -1;
}

int Columns::GetDisplayPosition(int insertedColumn) const {
    const std::vector<int> order = m_view.GetOrder();
    const auto place = std::find(order.begin(), order.end(), insertedColumn);
    return place != order.end() ? static_cast<int>(place - order.begin()) : -1;
}

std::vector<int> Columns::GetLeftToRightTrueColumns() const {
    std::vector<int> columns = m_view.GetOrder();
    for (int& column : columns)
        column = GetTrueColumn(column);
    return columns;
}

int Columns::GetWidth(int trueColumn) const {
    const ColumnRecord* const column = Find(trueColumn);
    if (column != nullptr && !column->isVisible)
        return column->width;
    return DoesTrueColumnExist(trueColumn) ? m_view.GetWidth(GetInsertedColumn(trueColumn)) : -1;
}

int Columns::GetWidthWhenShown(int trueColumn) const {
    const int width = GetWidth(trueColumn);
    return width == -1 && Find(trueColumn) != nullptr ? m_view.GetDefaultWidth(trueColumn) : width;
}

bool Columns::SetWidth(int trueColumn, int width) {
    if (!DoesTrueColumnExist(trueColumn))
        return false;
    const auto record = m_records.find(trueColumn);
    if (record != m_records.end() && !record->second.isVisible)
        record->second.width = width;
    else
        m_view.SetWidth(GetInsertedColumn(trueColumn), width);
    return true;
}

// For an array of another length, or with a duplicate, the list view would lose its current order.
void Columns::SetOrder(const std::vector<int>& trueColumns) {
    const std::vector<int> current = m_view.GetOrder();
    std::vector<int> order;
    std::vector<bool> isPlaced(current.size());
    const auto place = [&](int inserted) {
        if (inserted < 0 || inserted >= static_cast<int>(isPlaced.size()) ||
            isPlaced[static_cast<std::size_t>(inserted)])
            return;
        isPlaced[static_cast<std::size_t>(inserted)] = true;
        order.push_back(inserted);
    };
    for (const int trueColumn : trueColumns)
        place(GetInsertedColumn(trueColumn));
    for (const int inserted : current)
        place(inserted);
    if (order.size() == current.size() && order != current)
        m_view.SetOrder(order);
}

bool Columns::DoesTrueColumnExist(int trueColumn) const {
    return HasRecords() ? m_records.contains(trueColumn)
                        : trueColumn >= 0 && trueColumn < m_view.GetCount();
}

void Columns::SetSort(int trueColumn, bool isAscending) {
    m_sortColumn = trueColumn;
    m_isSortAscending = isAscending;
}

std::pair<int, bool> Columns::SortOfHeaderClick(int insertedColumn) const {
    const int trueColumn = insertedColumn < 0 ? -1 : GetTrueColumn(insertedColumn);
    return {trueColumn, trueColumn != m_sortColumn || !m_isSortAscending};
}

std::vector<HeaderMenuItem> Columns::GetHeaderMenu() const {
    std::vector<HeaderMenuItem> items;
    for (const auto& [trueColumn, column] : m_records) {
        if (trueColumn >= GetTrueColumnCount())
            break;
        CString text = column.heading;
        text.Replace(_T("&"), _T("&&"));
        items.push_back({trueColumn, QUORVEL_COMMAND_COLUMN_FIRST + static_cast<UINT>(trueColumn),
                         std::move(text), column.isVisible,
                         column.isVisible && !m_view.CanBeHidden(trueColumn)});
    }
    return items;
}

bool Columns::Toggle(UINT command) {
    if (command < QUORVEL_COMMAND_COLUMN_FIRST || command > QUORVEL_COMMAND_COLUMN_LAST)
        return false;
    const int trueColumn = static_cast<int>(command - QUORVEL_COMMAND_COLUMN_FIRST);
    return Show(trueColumn, !IsVisible(trueColumn));
}

} // namespace quorvel
