#include "support/simulated_columns.h"
#include "support/test.h"

using quorvel::ColumnRecord;
using quorvel::Columns;

namespace {

typedef std::function<void(Columns&)> Act;

// Shows ('+') or hides ('-') columns step by step; a letter names the column.
Act Steps(const char* steps) {
    return [steps](Columns& columns) {
        for (const char* step = steps; *step != 0; step += 2)
            EXPECT_TRUE(columns.Show(step[1] - 'A', step[0] == '+'));
    };
}

} // namespace

TEST(Columns, KeepTheirPlacesAndWidths) {
    const struct {
        const char* label;
        Act act;
        CString expected;
    } rows[] = {
        {"hidden", Steps("-B"), _T("A10 C30 D40 (B20 )")},
        {"shown twice", Steps("-B-B+B+B"), _T("A10 B20 C30 D40 ()")},
        {"place bounded by the columns that are left", Steps("-D-A-B+D"), _T("C30 D40 (A10 B20 )")},
        {"all hidden", Steps("-A-B-C-D"), _T("(A10 B20 C30 D40 )")},
        {"the display position counts, not the index",
         [](Columns& c) {
             c.SetOrder({3, 2, 1, 0});
             Steps("-D")(c);
             EXPECT_EQ(c.GetInsertedColumn(2), 2);
             Steps("+D")(c);
             EXPECT_EQ(c.GetInsertedColumn(3), 0);
         },
         _T("D40 C30 B20 A10 ()")},
        {"width remembered",
         [](Columns& c) {
             c.SetWidth(1, 77);
             Steps("-B")(c);
             EXPECT_EQ(c.GetWidth(1), 77);
             c.SetWidth(1, 78);
             Steps("+B")(c);
         },
         _T("A10 B78 C30 D40 ()")},
        {"defined hidden without a width",
         [](Columns& c) {
             c.Insert(0, 9, false, _T("N"), 0, -1, -1);
             EXPECT_EQ(c.GetWidth(9), -1);
             Steps("+J")(c);
         },
         _T("A10 B20 C30 D40 N100 ()")},
        {"inserted between, in an order of the user's",
         [](Columns& c) {
             c.SetOrder({2});
             EXPECT_EQ(c.Insert(1, 9, true, _T("N"), 0, 90, -1), 1);
             EXPECT_EQ(c.GetTrueColumn(1), 9);
         },
         _T("C30 N90 A10 B20 D40 ()")},
        {"refused",
         [](Columns& c) {
             EXPECT_EQ(c.Insert(0, 9, true, nullptr, 0, 90, -1), -1);
             for (const auto& [position, trueColumn] : {std::pair(0, 3), {0, -1}, {-1, 9}})
                 EXPECT_EQ(c.Insert(position, trueColumn, true, _T("N"), 0, 90, -1), -1);
             EXPECT_FALSE(c.Show(9, true) || c.Show(-1, false) || c.Delete(9));
             EXPECT_FALSE(c.SetWidth(9, 5) || c.SetWidth(-1, 5));
         },
         _T("A10 B20 C30 D40 ()")},
        {"deleted",
         [](Columns& c) {
             Steps("-C")(c);
             EXPECT_TRUE(c.Delete(2) && c.Delete(0));
         },
         _T("B20 D40 ()")},
        {"order of some, of strangers and of hidden ones",
         [](Columns& c) {
             Steps("-B")(c);
             c.SetOrder({3, 1, 9, 3, -1, 0});
         },
         _T("D40 A10 C30 (B20 )")},
        {"reset",
         [](Columns& c) {
             c.SetOrder({3, 1});
             Steps("-B-A")(c);
             c.Reset();
         },
         _T("A100 B100 C100 D100 ()")},
    };
    for (const auto& row : rows) {
        SimulatedList list(4);
        row.act(list.columns);
        EXPECT_EQ(list.Text(), row.expected) << row.label;
    }
}

TEST(Columns, AreNumberedThreeWays) {
    SimulatedList list(4);
    Columns& c = list.columns;
    Steps("-B")(c);
    c.SetOrder({3, 0, 2});
    ExpectCases<int>({
        CASE(c.GetTrueColumnCount(), 4),
        CASE(c.GetInsertedColumnCount(), 3),
        CASE(c.GetInsertedColumn(3), 2),
        CASE(c.GetInsertedColumn(1), -1),
        CASE(c.GetInsertedColumn(4), -1),
        CASE(c.GetTrueColumn(1), 2),
        CASE(c.GetTrueColumn(3), -1),
        CASE(c.GetTrueColumn(-1), -1),
        CASE(c.GetLeftToRightColumn(0), 2),
        CASE(c.GetLeftToRightColumn(3), -1),
        CASE(c.GetLeftToRightTrueColumn(0), 3),
        CASE(c.GetLeftToRightTrueColumn(-1), -1),
        CASE(c.GetDisplayPosition(0), 1),
        CASE(c.GetDisplayPosition(3), -1),
    });
    SimulatedList plain; // has columns without records
    plain.view.Insert(0, {});
    plain.view.Insert(1, {});
    plain.view.SetOrder({1, 0});
    ExpectCases<int>({
        CASE(plain.columns.GetTrueColumnCount(), 2),
        CASE(plain.columns.GetInsertedColumn(7), 7),
        CASE(plain.columns.GetTrueColumn(7), 7),
        CASE(plain.columns.GetLeftToRightTrueColumn(0), 1),
        CASE(plain.columns.GetWidth(1), 10),
        CASE(plain.columns.GetWidth(2), -1),
    });
}

TEST(Columns, AlignTheFirstOneAfterwards) {
    SimulatedList list;
    list.columns.Insert(0, 0, true, _T("A"), 1, 10, -1);
    EXPECT_EQ(list.view.GetAlignment(0), 1);
    list.columns.Insert(0, 1, true, _T("B"), 2 | 0x800, 10, -1);
    EXPECT_EQ(list.view.GetAlignment(0), 2);
    Steps("-B+B")(list.columns);
    EXPECT_EQ(list.view.GetAlignment(0), 2);
}

TEST(Columns, LeaveTheSortToTheListWhenItsColumnIsHiddenOrDeleted) {
    SimulatedList list(4);
    list.columns.SetOrder({3, 2});
    list.columns.SetSort(2, false);
    Steps("-A-C")(list.columns);
    Steps("+C-D")(list.columns);
    list.view.m_onDeleteSortColumn = [&] { EXPECT_FALSE(list.columns.Show(2, true)); };
    list.columns.Delete(2);
    EXPECT_EQ(list.Text(), _T("B20 (A10 D40 )"));
    EXPECT_EQ(list.view.m_deletedSortColumns,
              (std::vector<std::vector<int>>{{2, 1, 1}, {2, 1, 0}}));

    list.columns.SetSort(1, true);
    typedef std::pair<int, bool> Sort;
    EXPECT_EQ(list.columns.SortOfHeaderClick(0), Sort(1, false));
    EXPECT_EQ(list.columns.SortOfHeaderClick(1), Sort(-1, true));
    EXPECT_EQ(list.columns.SortOfHeaderClick(-1), Sort(-1, true));
    list.columns.SetSort(1, false);
    EXPECT_EQ(list.columns.SortOfHeaderClick(0), Sort(1, true));
}

TEST(Columns, OfferTheirVisibilityInAMenu) {
    SimulatedList list(2);
    list.columns.Insert(0, 2, false, _T("R&D"), 0, 10, -1);
    list.columns.Insert(0, 60, true, _T("far"), 0, 10, -1); // not below the record count
    list.columns.Delete(1);
    const auto menu = [&] {
        CString text;
        for (const auto& item : list.columns.GetHeaderMenu())
            text.AppendFormat(_T("%d %u %s%s%s|"), item.position, item.command,
                              item.text.GetString(), item.isChecked ? _T(" checked") : _T(""),
                              item.isGreyed ? _T(" greyed") : _T(""));
        return text;
    };
    EXPECT_EQ(menu(), _T("0 50900 A checked|2 50902 R&&D|"));
    ExpectCases<bool>({
        CASE(list.columns.Toggle(50960), false),
        CASE(list.columns.Toggle(50899), false),
        CASE(list.columns.Toggle(50901), false),
        CASE(list.columns.Toggle(50902), true),
        CASE(list.columns.Toggle(50900), true),
        CASE(list.columns.Show(60, false), true),
    });
    EXPECT_EQ(menu(), _T("0 50900 A|2 50902 R&&D checked greyed|"));
}
