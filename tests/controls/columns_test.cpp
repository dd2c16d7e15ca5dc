#include "support/simulated_columns.h"
#include "support/test.h"

using quorvel::ColumnRecord;
using quorvel::Columns;

namespace {

// Shows ('+') or hides ('-') columns step by step; a letter names the column.
Columns& Do(Columns& columns, const char* steps) {
    for (const char* step = steps; *step != 0; step += 2)
        EXPECT_TRUE(columns.Show(step[1] - 'A', step[0] == '+'));
    return columns;
}

} // namespace

TEST(Columns, KeepTheirPlacesAndWidths) {
    std::unique_ptr<SimulatedList> list;
    const auto begin = [&](const char* steps) -> Columns& {
        list = std::make_unique<SimulatedList>(4);
        return Do(list->columns, steps);
    };
    const auto insert = [&](int position, int trueColumn, bool isVisible, int width) {
        return list->columns.Insert(position, trueColumn, isVisible, _T("N"), 0, width, -1);
    };
    const auto after = [&](int result) {
        CString text;
        text.Format(_T("%d, %s"), result, list->Text().GetString());
        return text;
    };
    ExpectCases<CString>({
        CASE((begin("-B-B+B+B"), after(0)), _T("0, A10 B20 C30 D40 ()")),
        CASE((begin("-D-A-B+D"), after(0)), _T("0, C30 D40 (A10 B20 )")),
        CASE((begin("-A-B-C-D"), after(0)), _T("0, (A10 B20 C30 D40 )")),
        // The display position counts, not the index.
        CASE((begin("").SetOrder({3, 2, 1, 0}), Do(list->columns, "-D+D"),
              after(list->columns.GetInsertedColumn(3))),
             _T("0, D40 C30 B20 A10 ()")),
        CASE((begin("").SetWidth(1, 77), after(Do(list->columns, "-B").GetWidth(1))),
             _T("77, A10 C30 D40 (B77 )")),
        CASE((begin("-B").SetWidth(1, 78), after(Do(list->columns, "+B").GetWidth(1))),
             _T("78, A10 B78 C30 D40 ()")),
        CASE((begin(""), after(insert(0, 9, false, -1))), _T("-1, A10 B20 C30 D40 (N-1 )")),
        CASE((Do(list->columns, "+J"), after(0)), _T("0, A10 B20 C30 D40 N100 ()")),
        CASE((begin("").SetOrder({2}), after(insert(1, 9, true, 90))),
             _T("1, C30 N90 A10 B20 D40 ()")),
        CASE((begin("-C"), after(list->columns.Delete(2) && list->columns.Delete(0))),
             _T("1, B20 D40 ()")),
        // Some, strangers and hidden ones.
        CASE((begin("-B").SetOrder({3, 1, 9, 3, -1, 0}), after(0)), _T("0, D40 A10 C30 (B20 )")),
        CASE((begin("").SetOrder({3, 1}), Do(list->columns, "-B-A").Reset(), after(0)),
             _T("0, A100 B100 C100 D100 ()")),
    });
    Columns& c = begin("");
    for (const auto& [position, trueColumn] : {std::pair(0, 3), {0, -1}, {-1, 9}})
        EXPECT_EQ(insert(position, trueColumn, true, 90), -1);
    EXPECT_EQ(c.Insert(0, 9, true, nullptr, 0, 90, -1), -1);
    EXPECT_FALSE(c.Show(9, true) || c.Show(-1, false) || c.Delete(9));
    EXPECT_FALSE(c.SetWidth(9, 5) || c.SetWidth(-1, 5));
    EXPECT_EQ(list->Text(), _T("A10 B20 C30 D40 ()"));
}

TEST(Columns, AreNumberedThreeWays) {
    SimulatedList list(4), plain; // plain: columns without records
    Columns& c = list.columns;
    Do(c, "-B").SetOrder({3, 0, 2});
    for (int i = 0; i < 2; ++i)
        plain.view.Insert(i, {});
    plain.view.SetOrder({1, 0});
    ExpectCases<int>({CASE(c.GetTrueColumnCount(), 4), CASE(c.GetInsertedColumnCount(), 3),
                      CASE(c.GetInsertedColumn(3), 2), CASE(c.GetInsertedColumn(1), -1),
                      CASE(c.GetTrueColumn(1), 2), CASE(c.GetTrueColumn(-1), -1),
                      CASE(c.GetLeftToRightColumn(0), 2), CASE(c.GetLeftToRightColumn(3), -1),
                      CASE(c.GetLeftToRightTrueColumn(0), 3), CASE(c.GetDisplayPosition(0), 1),
                      CASE(c.GetDisplayPosition(3), -1), CASE(plain.columns.GetTrueColumn(7), 7),
                      CASE(plain.columns.GetLeftToRightTrueColumn(0), 1),
                      CASE(plain.columns.GetWidth(1), 10), CASE(plain.columns.GetWidth(2), -1)});
}

TEST(Columns, AlignTheFirstOneAfterwards) {
    SimulatedList list;
    list.columns.Insert(0, 0, true, _T("A"), 1, 10, -1);
    EXPECT_EQ(list.view.GetAlignment(0), 1);
    list.columns.Insert(0, 1, true, _T("B"), 2 | 0x800, 10, -1);
    Do(list.columns, "-B+B");
    EXPECT_EQ(list.view.GetAlignment(0), 2);
}

TEST(Columns, LeaveTheSortToTheListWhenItsColumnIsHiddenOrDeleted) {
    SimulatedList list(4);
    list.columns.SetOrder({3, 2});
    list.columns.SetSort(2, false);
    Do(list.columns, "-A-C+C-D");
    list.view.m_onDeleteSortColumn = [&] { EXPECT_FALSE(list.columns.Show(2, true)); };
    list.columns.Delete(2);
    EXPECT_EQ(list.Text(), _T("B20 (A10 D40 )"));
    EXPECT_EQ(list.view.m_deletedSortColumns,
              (std::vector<std::vector<int>>{{2, 1, 1}, {2, 1, 0}}));

    list.columns.SetSort(1, true);
    typedef std::pair<int, bool> Sort;
    ExpectCases<Sort>({CASE(list.columns.SortOfHeaderClick(0), Sort(1, false)),
                       CASE(list.columns.SortOfHeaderClick(1), Sort(-1, true)),
                       CASE(list.columns.SortOfHeaderClick(-1), Sort(-1, true))});
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
    ExpectCases<bool>(
        {CASE(list.columns.Toggle(50960), false), CASE(list.columns.Toggle(50899), false),
         CASE(list.columns.Toggle(50901), false), CASE(list.columns.Toggle(50902), true),
         CASE(list.columns.Toggle(50900), true), CASE(list.columns.Show(60, false), true)});
    EXPECT_EQ(menu(), _T("0 50900 A|2 50902 R&&D checked greyed|"));
}
