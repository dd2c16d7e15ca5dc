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
    std::unique_ptr<SimulatedList> list;
    std::unique_ptr<ColumnsDialogList> dialog;
    const auto begin = [&]() -> ColumnsDialogList& {
        list = std::make_unique<SimulatedList>(4);
        list->columns.Insert(0, 4, false, _T("E"), 0, -1, -1);
        list->columns.Show(1, false);
        list->columns.SetOrder({3});
        list->columns.SetSort(3, true);
        list->view.m_keptColumn = 2;
        list->view.m_onDeleteSortColumn = [&] {
            list->columns.SetSort(list->columns.GetLeftToRightTrueColumn(0), true);
        };
        dialog = std::make_unique<ColumnsDialogList>(list->columns, list->view);
        return *dialog;
    };
    const auto edited = [&](bool isDone) {
        EXPECT_EQ(list->Text(), _T("D40 A10 C30 (B20 E-1 )"));
        return (isDone ? CString() : CString(_T("refused: "))) + TextOf(*dialog);
    };
    const auto saved = [&] {
        dialog->Save();
        CString text;
        text.Format(_T("%sby %d"), list->Text().GetString(), list->columns.GetSortColumn());
        return text;
    };
    ExpectCases<CString>({
        CASE((begin(), edited(true)), _T("+D40 +A10 +C30 -B20 -E100 ")),
        CASE(edited(begin().MoveUp(3) && dialog->MoveDown(0)), _T("+A10 +D40 -B20 +C30 -E100 ")),
        CASE(edited(dialog->MoveUp(0) || dialog->MoveDown(4) || dialog->MoveUp(5) ||
                    dialog->MoveDown(-1)),
             _T("refused: +A10 +D40 -B20 +C30 -E100 ")),
        CASE(saved(), _T("A10 D40 C30 (B20 E-1 )by 3")),
        CASE(edited(begin().Check(3, true) && dialog->Check(0, false) && dialog->Check(1, false)),
             _T("-D40 -A10 +C30 +B20 -E100 ")),
        CASE(edited(dialog->Check(2, false) || dialog->Check(5, true) || dialog->Check(-1, true)),
             _T("refused: -D40 -A10 +C30 +B20 -E100 ")), // one that stays, and strangers
        CASE(saved(), _T("C30 B20 (A10 D40 E-1 )by 2")),
        CASE((begin().Reset(), edited(true)), _T("+A100 +B100 +C100 +D100 +E100 ")),
        CASE(saved(), _T("A100 B100 C100 D100 E100 ()by 3")),
    });
}

TEST(ColumnsDialog, NeverLeavesTheListWithoutColumns) {
    SimulatedList list(2);
    list.columns.Show(1, false);
    list.columns.SetSort(0, true);
    ColumnsDialogList dialog(list.columns, list.view);
    EXPECT_TRUE(dialog.Check(0, false) && !dialog.IsValid() && dialog.Check(1, true));
    list.view.m_onDeleteSortColumn = [&] {
        EXPECT_EQ(list.columns.GetLeftToRightTrueColumn(0), 1) << "to sort by";
    };
    dialog.Save();
    EXPECT_EQ(list.Text(), _T("B20 (A10 )"));
    SimulatedList none;
    EXPECT_FALSE(ColumnsDialogList(none.columns, none.view).CanReset());
}

TEST(ColumnsDialog, TakesWidthsFrom0To9999) {
    SimulatedList list(2);
    list.columns.SetWidth(0, 20000);
    ColumnsDialogList dialog(list.columns, list.view);
    EXPECT_EQ(dialog.GetWidthText(0), _T("20000"));
    EXPECT_TRUE(dialog.SetWidthText(0, _T("20000"))); // the initial text of the edit
    EXPECT_EQ(dialog.Rows()[0].width, 20000);
    const std::pair<const WCHAR*, int> rows[] = {
        {_T("10000"), 9999}, {_T("9999"), 9999}, {_T("99999999999999999999"), 9999},
        {_T("-5"), 0},       {_T(""), 0},        {_T("12a"), 0},
        {_T(" 12 "), 12},    {_T("1 2"), 0},     {_T("007"), 7},
    };
    for (const auto& [text, width] : rows) {
        EXPECT_TRUE(dialog.SetWidthText(1, text));
        EXPECT_EQ(dialog.Rows()[1].width, width) << CStringA(text);
    }
    EXPECT_FALSE(dialog.SetWidthText(2, _T("5")) || dialog.SetWidthText(1, nullptr));
    EXPECT_EQ(dialog.GetWidthText(2), _T(""));
}
