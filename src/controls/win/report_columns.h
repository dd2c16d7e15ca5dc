// The columns of a list control: the portable model and its view, the list-view.
#pragma once

#include <quorvel/controls/win/vask_list_ctrl.h>

#include "controls/columns.h"

#include <map>

namespace quorvel {

struct ReportColumns final : ColumnView {
    explicit ReportColumns(CVaskListCtrl& owner) : list(owner), columns(*this) {}

    int GetCount() const override;
    int Insert(int position, const ColumnRecord& column) override;
    bool Delete(int insertedColumn) override;
    void SetAlignment(int insertedColumn, int alignment) override;
    int GetWidth(int insertedColumn) const override;
    void SetWidth(int insertedColumn, int width) override;
    std::vector<int> GetOrder() const override;
    bool SetOrder(const std::vector<int>& order) override;

    int GetDefaultWidth(int trueColumn) const override;
    void LoadDefaultWidths() override;
    bool CanBeHidden(int trueColumn) const override;
    void OnShow(int trueColumn, int insertedColumn) override;
    void OnDeleteSortColumn(int trueColumn, int insertedColumn, int displayPosition) override;

    // Returns a column as it was defined, with later changes.
    LVCOLUMNW Describe(const ColumnRecord& column) const;
    // The program has set these parts of an inserted column's description.
    void ReadDescription(int insertedColumn, UINT mask);

    CVaskListCtrl& list;
    Columns columns;
    std::map<int, LVCOLUMNW> descriptions; // key: true column; as they were defined
    bool isChanging = false; // this object is sending the messages that insert and delete columns
};

} // namespace quorvel
