#include "controls/columns_dialog_list.h"

#include "support/simulated_columns.h"
#include "support/test.h"

using quorvel::ColumnsDialogList;

namespace {

CString TextOf(const ColumnsDialogList& dialog) {
    CString text;
    for (const auto& row : dialog.Rows())
        text.AppendFormat(_T("%s%s%d "), row.isChecked ? _T("+") : _T("-"), row.heading.GetString(),
                          row.width);
    return text;
}

} // namespace

TEST(ColumnsDialog, EditsACopyUntilItIsSaved) {
    const struct {
        const char* label;
        std::function<void(ColumnsDialogList&)> act;
        CString rows;
        CString saved;
        int sortColumn = 3;
    } cases[] = {
        {"as loaded", [](ColumnsDialogList&) {}, _T("+D40 +A10 +C30 -B20 -E100 "),
         _T("D40 A10 C30 (B20 E-1 )")},
        {"moved with check and width",
         [](ColumnsDialogList& d) {
             EXPECT_TRUE(d.MoveUp(3) && d.MoveDown(0));
             EXPECT_FALSE(d.MoveUp(0) || d.MoveDown(4) || d.MoveUp(5) || d.MoveDown(-1));
         },
         _T("+A10 +D40 -B20 +C30 -E100 "), _T("A10 D40 C30 (B20 E-1 )")},
        {"checked",
         [](ColumnsDialogList& d) {
             EXPECT_TRUE(d.Check(3, true) && d.Check(0, false) && d.MoveUp(3));
             EXPECT_TRUE(d.Rows()[3].isLocked);
             EXPECT_FALSE(d.Check(3, false) || d.Check(5, true) || d.Check(-1, true));
         },
         _T("-D40 +A10 +B20 +C30 -E100 "), _T("A10 B20 C30 (D40 E-1 )"), 0},
        {"reset", [](ColumnsDialogList& d) { d.Reset(); }, _T("+A100 +B100 +C100 +D100 +E100 "),
         _T("A100 B100 C100 D100 E100 ()")},
        {"the sort column replaced",
         [](ColumnsDialogList& d) {
             for (const int row : {0, 1, 3})
                 d.Check(row, row == 3);
         },
         _T("-D40 -A10 +C30 +B20 -E100 "), _T("C30 B20 (A10 D40 E-1 )"), 2},
    };
    for (const auto& row : cases) {
        SimulatedList list(4);
        list.columns.Insert(0, 4, false, _T("E"), 0, -1, -1);
        list.columns.Show(1, false);
        list.columns.SetOrder({3});
        list.columns.SetSort(3, true);
        list.view.m_keptColumn = 2;
        list.view.m_onDeleteSortColumn = [&] {
            list.columns.SetSort(list.columns.GetLeftToRightTrueColumn(0), true);
        };
        ColumnsDialogList dialog(list.columns, list.view);
        const CString before = list.Text();
        row.act(dialog);
        EXPECT_EQ(TextOf(dialog), row.rows) << row.label;
        EXPECT_EQ(list.Text(), before) << row.label;
        dialog.Save();
        EXPECT_EQ(list.Text(), row.saved) << row.label;
        EXPECT_EQ(list.columns.GetSortColumn(), row.sortColumn) << row.label;
    }
}

TEST(ColumnsDialog, NeverLeavesTheListWithoutColumns) {
    SimulatedList list(2);
    list.columns.Show(1, false);
    list.columns.SetSort(0, true);
    list.view.m_onDeleteSortColumn = [&] {
        EXPECT_EQ(list.columns.GetLeftToRightTrueColumn(0), 1) << "to sort by";
    };
    ColumnsDialogList dialog(list.columns, list.view);
    EXPECT_TRUE(dialog.Check(0, false) && dialog.Check(1, true));
    dialog.Save();
    EXPECT_EQ(list.Text(), _T("B20 (A10 )"));
}

TEST(ColumnsDialog, TakesWidthsFrom0To9999) {
    SimulatedList list(2);
    list.columns.SetWidth(0, 20000);
    ColumnsDialogList dialog(list.columns, list.view);
    EXPECT_EQ(dialog.GetWidthText(0), _T("20000"));
    EXPECT_TRUE(dialog.SetWidthText(0, _T("20000"))); // the initial text of the edit
    EXPECT_EQ(dialog.Rows()[0].width, 20000);
    const struct {
        const WCHAR* text;
        int width;
    } rows[] = {
        {_T("10000"), 9999}, {_T("9999"), 9999}, {_T("99999999999999999999"), 9999},
        {_T("-5"), 0},       {_T(""), 0},        {_T("12a"), 0},
        {_T(" 12 "), 12},    {_T("1 2"), 0},     {_T("007"), 7},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(dialog.SetWidthText(1, row.text));
        EXPECT_EQ(dialog.Rows()[1].width, row.width) << CStringA(row.text);
    }
    EXPECT_FALSE(dialog.SetWidthText(2, _T("5")) || dialog.SetWidthText(1, nullptr));
    EXPECT_EQ(dialog.GetWidthText(2), _T(""));
}

TEST(ColumnsDialog, WantsARowChecked) {
    SimulatedList list(2);
    ColumnsDialogList dialog(list.columns, list.view);
    dialog.Check(0, false);
    EXPECT_TRUE(dialog.IsValid());
    dialog.Check(1, false);
    EXPECT_FALSE(dialog.IsValid());
    SimulatedList none;
    EXPECT_FALSE(ColumnsDialogList(none.columns, none.view).CanReset());
}
