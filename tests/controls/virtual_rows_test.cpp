#include "controls/virtual_rows.h"

#include "support/test.h"

#include <algorithm>
#include <deque>
#include <random>
#include <sstream>

using quorvel::PlanSelection;
using quorvel::RowRun;
using quorvel::SelectionMessage;
using quorvel::VirtualRows;

namespace {

typedef std::vector<RowRun> Runs;

// An item with three texts: the given one, its number, and both.
class Item : public CVirtualListCtrlItem {
public:
    Item(const WCHAR* text, int number) : m_text(text), m_number(number) {}
    CString GetSubItemText(int column) override {
        CString number;
        number.Format(_T("%d"), m_number);
        return column == 0 ? m_text : column == 1 ? number : m_text + number;
    }
    CString m_text;
    int m_number;
};

bool ByText(CVirtualListCtrlItem* const& left, CVirtualListCtrlItem* const& right) {
    return static_cast<Item*>(left)->m_text < static_cast<Item*>(right)->m_text;
}
bool ByNumber(CVirtualListCtrlItem* const& left, CVirtualListCtrlItem* const& right) {
    return static_cast<Item*>(left)->m_number < static_cast<Item*>(right)->m_number;
}

// Rows with these texts, numbered by position.
struct List {
    explicit List(std::initializer_list<const WCHAR*> texts) {
        for (const WCHAR* const text : texts)
            rows.Add(&items.emplace_back(text, static_cast<int>(items.size())));
    }
    // The texts and numbers; '*' marks a selected row, '!' the focused row.
    CString Text() const {
        CString text;
        for (int row = 0; row < rows.GetCount(); ++row) {
            text += rows.GetItem(row)->GetSubItemText(2);
            text += rows.IsSelected(row) ? _T("*") : _T("");
            text += row == rows.GetFocusedRow() ? _T("! ") : _T(" ");
        }
        return text;
    }
    std::deque<Item> items;
    VirtualRows rows;
};

} // namespace

TEST(VirtualRows, CarrySelectionAndFocusAlong) {
    std::unique_ptr<List> list;
    const auto begin = [&]() -> VirtualRows& {
        list = std::make_unique<List>(
            std::initializer_list<const WCHAR*>{_T("b"), _T("a"), _T("b"), _T("a"), _T("c")});
        list->rows.Select(1, 1, true);
        list->rows.Select(3, 3, true);
        list->rows.SetFocusedRow(2);
        return list->rows;
    };
    const auto after = [&](int result) {
        CString text;
        text.Format(_T("%d, %s"), result, list->Text().GetString());
        return text;
    };
    const auto count = [](const std::vector<CVirtualListCtrlItem*>& items) {
        return static_cast<int>(items.size());
    };
    const auto item = [&](int row) { return list->rows.GetItem(row); };
    Item added(_T("n"), 9);
    const auto isDescending = [](CVirtualListCtrlItem* const& left,
                                 CVirtualListCtrlItem* const& right) {
        return ByNumber(right, left);
    };
    const auto isFourth = [](auto* const& left, auto* const& right) {
        return static_cast<Item*>(left)->m_number == 4 && left != right;
    };
    ExpectCases<CString>({
        CASE((begin().Sort(ByText), after(0)), _T("0, a1* a3* b0 b2! c4 ")),
        CASE((begin().Sort(isDescending), list->rows.Sort(ByText), after(0)),
             _T("0, a3* a1* b2! b0 c4 ")),
        CASE((begin().SortBy(isFourth), list->rows.SortBy({}), after(0)),
             _T("0, c4 b0 a1* b2! a3* ")),
        CASE(after(begin().Insert(1, &added)), _T("1, b0 n9 a1* b2! a3* c4 ")),
        CASE(after(list->rows.Insert(6, &added)), _T("6, b0 n9 a1* b2! a3* c4 n9 ")),
        CASE((begin().Remove(0), after(0)), _T("0, a1* b2! a3* c4 ")),
        CASE((begin().Remove(2), after(0)), _T("0, b0 a1* a3*! c4 ")),
        CASE(after(count(begin().Remove({3, 0, 3, 7, -1, 2}))), _T("3, a1* c4! ")),
        CASE(after(count(begin().Remove({4, 3, 2}))), _T("3, b0 a1*! ")),
        CASE((begin(),
              after(count(list->rows.Replace({item(4), item(3), nullptr, &added, item(2)})))),
             _T("2, c4 a3* n9 b2! ")),
        CASE((begin(), after(count(list->rows.Replace({item(4), item(1)})))), _T("3, c4 a1*! ")),
        CASE((begin().Select(1, 1, false), after(list->rows.MoveSelectedUp())),
             _T("2, b0 a1 a3* b2! c4 ")),
        CASE((begin().Select(3, 3, false), list->rows.SetFocusedRow(1),
              after(list->rows.MoveSelectedDown())),
             _T("2, b0 b2 a1*! a3 c4 ")),
        CASE(after(begin().MoveSelectedUp()), _T("-1, b0 a1* b2! a3* c4 ")), // two selected rows
        CASE((begin().SelectAll(false), list->rows.Select(4, 9, true),
              after(list->rows.MoveSelectedDown())),
             _T("-1, b0 a1 b2! a3 c4* ")),
    });
    VirtualRows& r = begin();
    EXPECT_EQ(r.Insert(-1, &added) + r.Insert(6, &added) + r.Add(nullptr), -3);
    EXPECT_TRUE(r.Remove(5) == nullptr && r.Remove(-1) == nullptr);
    EXPECT_TRUE(r.GetItem(-1) == nullptr && r.GetItem(5) == nullptr);
    r.Select(3, 2, true);
    r.Select(-5, -1, true);
    EXPECT_EQ(list->Text(), _T("b0 a1* b2! a3* c4 "));
}

// Compares with a plain vector of marked items, over several blocks.
TEST(VirtualRows, StayInOrderOverBlocks) {
    struct Row {
        Item* item;
        bool isSelected;
    };
    std::mt19937 random(11);
    std::deque<Item> items;
    std::vector<Row> expected;
    VirtualRows rows;
    for (int i = 0; i < 20000; ++i) {
        Item* const item = &items.emplace_back(_T(""), static_cast<int>(random() % 1000));
        rows.Add(item);
        expected.push_back({item, false});
    }
    for (int step = 0; step < 12000; ++step) {
        const int at = static_cast<int>(random() % expected.size());
        const auto place = expected.begin() + at;
        switch (step % 6000 == 3000 ? 9 : random() % 3) {
        case 0:
            expected.insert(place, {&items.emplace_back(_T(""), step), false});
            rows.Insert(at, &items.back());
            break;
        case 1:
            ASSERT_EQ(rows.Remove(at), place->item);
            expected.erase(place);
            break;
        case 2: {
            const int last = std::min(at + static_cast<int>(random() % 50), rows.GetCount() - 1);
            const bool marked = random() % 2 == 0;
            rows.Select(at, last, marked);
            std::for_each(place, expected.begin() + last + 1,
                          [marked](Row& row) { row.isSelected = marked; });
            break;
        }
        default:
            rows.Sort(ByNumber);
            std::ranges::stable_sort(expected, {},
                                     [](const Row& row) { return row.item->m_number; });
        }
    }
    ASSERT_EQ(rows.GetCount(), static_cast<int>(expected.size()));
    Runs runs;
    for (int row = 0; row < rows.GetCount(); ++row) {
        const Row& wanted = expected[static_cast<std::size_t>(row)];
        ASSERT_EQ(rows.GetItem(row), wanted.item) << row;
        if (wanted.isSelected && !runs.empty() && runs.back().last == row - 1)
            runs.back().last = row;
        else if (wanted.isSelected)
            runs.push_back({row, row});
    }
    EXPECT_EQ(rows.GetSelectedRuns(), runs);
    EXPECT_EQ(rows.GetFirstSelectedRow(), runs[0].first);
    EXPECT_EQ(rows.GetSelectedCount(), std::ranges::count(expected, true, &Row::isSelected));
    EXPECT_EQ(rows.GetRow(expected.back().item), rows.GetCount() - 1);
}

TEST(VirtualRows, AreWalkedOverAndSelectedAsInAListView) {
    List list({_T("a"), _T("b"), _T("c"), _T("d")});
    VirtualRows& r = list.rows;
    r.Select(1, 2, true);
    r.SetFocusedRow(2);
    ExpectCases<int>(
        {CASE(r.GetNextRow(-1, true, false), 1), CASE(r.GetNextRow(2, true, false), -1),
         CASE(r.GetNextRow(-1, true, true), 2), CASE(r.GetNextRow(2, false, true), -1),
         CASE(r.GetNextRow(2, false, false), 3), CASE(r.GetNextRow(-9, false, false), 0),
         // The neighbour of a deleted row.
         CASE(r.GetRowToSelect(0, true), -1), // another one is still selected
         CASE((r.SelectAll(false), r.Remove(3), r.GetRowToSelect(3, true)), 2),
         CASE((r.Remove(0), r.GetRowToSelect(0, true)), 0), CASE(r.GetRowToSelect(0, false), -1),
         CASE((r.RemoveAll(), r.GetRowToSelect(0, true)), -1)});
}

TEST(VirtualRows, StayAsTheyAreWhenTheOrderThrows) {
    List list({_T("b"), _T("a"), _T("c")});
    for (const bool marked : {false, true}) {
        list.rows.Select(1, 1, marked);
        const CString before = list.Text();
        EXPECT_THROW(list.rows.Sort([](CVirtualListCtrlItem* const&, CVirtualListCtrlItem* const&) {
            return throw 1, true;
        }),
                     int);
        EXPECT_EQ(list.Text(), before);
    }
}

TEST(VirtualRows, ReachAListViewInFewMessages) {
    const auto plan = [](const Runs& shown, const Runs& wanted, int rowCount) {
        std::ostringstream text;
        for (const SelectionMessage& message : PlanSelection(shown, wanted, rowCount))
            text << (message.isSelected ? '+' : '-') << message.row << ' ';
        return text.str();
    };
    ExpectCases<std::string>(
        {CASE(plan({}, {}, 0), ""), CASE(plan({{0, 999999}}, {{0, 999999}}, 1000000), ""),
         CASE(plan({{0, 9}}, {{0, 8}}, 9), ""), // the list-view dropped the last row
         CASE(plan({{3, 5}}, {{4, 6}}, 10), "-3 +6 "),
         CASE(plan({{1, 2}, {4, 5}}, {{1, 5}}, 10), "+3 "), CASE(plan({}, {{0, 99}}, 100), "+-1 "),
         CASE(plan({{5, 6}}, {{0, 9}, {11, 99}}, 100), "+-1 -10 "),
         CASE(plan({{0, 99}}, {{7, 7}}, 100), "--1 +7 "), CASE(plan({{0, 99}}, {}, 100), "--1 "),
         CASE(plan({{7, 7}}, {{3, 3}}, 1000000), "+3 -7 ")});
}

TEST(VirtualRows, FindTextsWithoutRegardToCase) {
    const List list({_T("Apple"), _T("banana"), _T("apricot"), _T("\u00c4pfel"), _T("aardvark"),
                     _T("blue"), _T("")});
    const VirtualRows& r = list.rows;
    ExpectCases<int>(
        {CASE(r.Find(_T("ap"), 1, false, false), 2), CASE(r.Find(_T("app"), 1, false, false), -1),
         CASE(r.Find(_T("APPLE"), -1, true, false), 0), CASE(r.Find(_T("appl"), 0, true, true), -1),
         CASE(r.Find(_T("\u00e4"), 0, false, true), 3), CASE(r.Find(nullptr, 0, false, true), -1),
         CASE(r.Find(_T("a"), 8, false, true), -1), CASE(r.Find(_T("a"), -2, false, true), -1),
         CASE(r.FindTyped(_T("a"), 0), 2), CASE(r.FindTyped(_T("b"), 6), 1),
         CASE(r.FindTyped(_T("ap"), 2), 2), CASE(r.FindTyped(_T("bB"), 1), 5),
         CASE(r.FindTyped(_T("bx"), 1), -1), CASE(r.FindTyped(nullptr, 1), -1),
         CASE(VirtualRows().FindTyped(_T("a"), -1), -1)});
}

TEST(VirtualRows, AreCopiedAsLinesOfCells) {
    List list({_T("a\tb"), _T("no"), _T("c\r\nd"), _T("e")});
    list.rows.Select(2, 3, true);
    list.rows.Select(0, 0, true);
    EXPECT_EQ(list.rows.GetSelectedText({1, 0}), _T("0\ta b\r\n2\tc  d\r\n3\te\r\n"));
    EXPECT_EQ(List({_T("a")}).rows.GetSelectedText({0}), _T(""));
}
