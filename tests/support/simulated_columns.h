// The columns of a list-view as the system's header stores them, without a window.
#pragma once

#include "controls/columns.h"

#include <algorithm>
#include <functional>

class SimulatedColumns final : public quorvel::ColumnView {
public:
    int GetCount() const override { return static_cast<int>(m_columns.size()); }
    int Insert(int position, const quorvel::ColumnRecord& column) override {
        if (position < 0)
            return -1;
        const int index = std::min(position, GetCount());
        for (int& inserted : m_order)
            inserted += inserted >= index;
        m_order.insert(m_order.begin() + index, index);
        // Column 0 is left-aligned until it is changed, and a column without a width is narrow.
        const int alignment = column.format & quorvel::kColumnAlignmentMask;
        m_columns.insert(m_columns.begin() + index,
                         {index > 0 ? alignment : 0, column.width >= 0 ? column.width : 10});
        return index;
    }
    bool Delete(int index) override {
        if (index < 0 || index >= GetCount())
            return false;
        m_columns.erase(m_columns.begin() + index);
        m_order.erase(std::find(m_order.begin(), m_order.end(), index));
        for (int& inserted : m_order)
            inserted -= inserted > index;
        return true;
    }
    void SetAlignment(int index, int alignment) override { At(index).alignment = alignment; }
    int GetWidth(int index) const override {
        return index >= 0 && index < GetCount() ? At(index).width : 0;
    }
    void SetWidth(int index, int width) override {
        const int taken = static_cast<SHORT>(LOWORD(width));
        if (index >= 0 && index < GetCount())
            At(index).width = taken < 0 ? 60 : taken;
    }
    std::vector<int> GetOrder() const override { return m_order; }
    // For an array that is not a permutation the system loses the old order. Here it becomes the
    // order of the indexes.
    bool SetOrder(const std::vector<int>& order) override {
        if (order.size() != m_order.size())
            return false;
        std::sort(m_order.begin(), m_order.end());
        if (std::is_permutation(order.begin(), order.end(), m_order.begin()))
            m_order = order;
        return true;
    }

    int GetDefaultWidth(int) const override { return 100; }
    void LoadDefaultWidths() override {
        if (m_throws)
            throw 1;
        ++m_defaultLoads;
        for (int i = 0; i < GetCount(); ++i)
            SetWidth(i, -2);
    }
    bool CanBeHidden(int trueColumn) const override {
        return GetCount() > 1 && trueColumn != m_keptColumn;
    }
    void OnShow(int, int) override {}
    void OnDeleteSortColumn(int trueColumn, int insertedColumn, int displayPosition) override {
        m_deletedSortColumns.push_back({trueColumn, insertedColumn, displayPosition});
        if (m_onDeleteSortColumn)
            m_onDeleteSortColumn();
    }

    int GetAlignment(int index) const { return At(index).alignment; }

    int m_defaultLoads = 0;
    std::vector<std::vector<int>> m_deletedSortColumns;
    // Simulates a host.
    bool m_throws = false;
    int m_keptColumn = -1;
    std::function<void()> m_onDeleteSortColumn;

private:
    struct Column {
        int alignment;
        int width;
    };
    Column& At(int index) { return m_columns[static_cast<std::size_t>(index)]; }
    const Column& At(int index) const { return m_columns[static_cast<std::size_t>(index)]; }

    std::vector<Column> m_columns;
    std::vector<int> m_order;
};

// A list with a row of defined columns, named A, B and so on and 10, 20, ... pixels wide.
struct SimulatedList {
    explicit SimulatedList(int count = 0) {
        for (int i = 0; i < count; ++i)
            columns.Insert(i, i, true, CString(static_cast<WCHAR>('A' + i)), 0, 10 * (i + 1), i);
    }

    // Headings from left to right with their widths, then in brackets the hidden ones.
    CString Text() const {
        CString text;
        for (const int trueColumn : columns.GetLeftToRightTrueColumns())
            Append(text, trueColumn);
        text += '(';
        for (const auto& [trueColumn, column] : columns.Records()) {
            if (!column.isVisible)
                Append(text, trueColumn);
        }
        return text + ')';
    }

    SimulatedColumns view;
    quorvel::Columns columns{view};

private:
    void Append(CString& text, int trueColumn) const {
        const quorvel::ColumnRecord* const column = columns.Find(trueColumn);
        text += column != nullptr ? column->heading : CString(_T("?"));
        text.AppendFormat(_T("%d "), columns.GetWidth(trueColumn));
    }
};
