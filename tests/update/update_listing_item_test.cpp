#include <quorvel/update/update_listing_item.h>

#include "support/date_time.h"
#include "support/text.h"
#include "update/update_listing_order.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace {

typedef CUpdateListingItem Item;

const COleDateTime kDate(2007, 3, 4, 5, 6, 7);
const COleDateTime kLater(2007, 3, 4, 5, 6, 8);

TEST(UpdateListingItem, PrioritiesAreReadFromTextAndRefusedBeyondLow) {
    const std::tuple<const WCHAR*, BYTE> rows[] = {
        {_T("high"), 0}, {_T("HIGH"), 0}, {_T("Low"), 2},     {_T("normal"), 1},
        {_T(""), 1},     {_T("0"), 1},    {_T("highest"), 1}, {nullptr, 1}};
    for (const auto& [text, priority] : rows)
        EXPECT_EQ(priority, Item(_T("t"), _T("d"), text, kDate, _T("l"), FALSE).GetPriority())
            << priority;
    Item item(_T("t"), _T("d"), BYTE{3}, kDate, _T("l"), FALSE);
    EXPECT_TRUE(item.IsNormalPriority());
    item.SetLowPriority();
    EXPECT_FALSE(item.SetPriorityFromText(nullptr) || item.SetPriority(3) || item.SetPriority(255));
    EXPECT_EQ(_T("low"), item.GetPriorityText());
    EXPECT_TRUE(item.SetPriority(0) && item.IsHighPriority());
    EXPECT_EQ(_T("high"), item.GetPriorityText());
}

TEST(UpdateListingItem, ANewItemHasTheTimeOfLoadingAndNothingElse) {
    Item item;
    EXPECT_TRUE(item == Item(_T(""), _T(""), BYTE{1}, Item::DEFAULT_DATE, _T(""), TRUE));
    EXPECT_TRUE(item.GetDate() <= COleDateTime::GetCurrentTime() &&
                item.GetDate() > COleDateTime::GetCurrentTime() - COleDateTimeSpan(1.0));
    EXPECT_FALSE(item.SetTitle(nullptr) || item.SetDescription(nullptr) || item.SetLink(nullptr));
    EXPECT_TRUE(CVirtualListCtrlItem() == CVirtualListCtrlItem(-1, 0, 0));
}

TEST(UpdateListingItem, ColumnsShowTheTitleAndTheShortDate) {
    CVirtualListCtrlItem&& row = Item(_T("title"), _T("d"), BYTE{0}, kDate, _T("l"), TRUE);
    const std::tuple<int, const WCHAR*> rows[] = {
        {-1, _T("")}, {0, _T("")}, {1, _T("title")}, {2, _T("3/4/2007")}, {3, _T("")}};
    for (const auto& [column, text] : rows)
        EXPECT_EQ(CString(text), row.GetSubItemText(column)) << column;
}

// Pairs of items, of which the second comes after the first, or equals it in that order. In
// everything else the second would come first.
TEST(UpdateListingItem, EveryFieldCountsForEqualityAndHasItsOrder) {
    using namespace quorvel;
    COleDateTime invalid = kDate, notANumber = kDate;
    invalid.SetStatus(COleDateTime::invalid);
    notANumber.m_dt = std::numeric_limits<double>::quiet_NaN();
    const auto item = [](const WCHAR* title, const WCHAR* text, BYTE priority, COleDateTime date,
                         const WCHAR* link,
                         BOOL isNew) { return Item(title, text, priority, date, link, isNew); };
    const auto dated = [&](COleDateTime date) { return item(_T(""), _T(""), 1, date, _T(""), 0); };
    const Item z = item(_T("z"), _T("z"), 2, kLater, _T("z"), TRUE);
    const struct {
        const char* label;
        VirtualListOrder ascending, descending;
        Item first, second;
        bool areEqual;
    } rows[] = {
        {"title", swoTitleAscending, swoTitleDescending,
         item(_T("A"), _T("z"), 2, kLater, _T("z"), 1),
         item(_T("b"), _T("a"), 0, kDate, _T("a"), 0), false},
        {"title by case", swoTitleAscending, swoTitleDescending,
         item(_T("A"), _T("z"), 2, kLater, _T("z"), 1),
         item(_T("a"), _T("a"), 0, kDate, _T("a"), 0), false},
        {"description", swoDescriptionAscending, swoDescriptionDescending,
         item(_T("z"), _T("A"), 2, kLater, _T("z"), 1),
         item(_T("a"), _T("b"), 0, kDate, _T("a"), 0), false},
        {"link", swoLinkAscending, swoLinkDescending, item(_T("z"), _T("z"), 2, kLater, _T("A"), 1),
         item(_T("a"), _T("a"), 0, kDate, _T("b"), 0), false},
        {"priority", swoPriorityAscending, swoPriorityDescending,
         item(_T("z"), _T("z"), 1, kLater, _T("z"), 1),
         item(_T("a"), _T("a"), 2, kDate, _T("a"), 0), false},
        {"new", swoNewAscending, swoNewDescending, item(_T("z"), _T("z"), 2, kLater, _T("z"), 0),
         item(_T("a"), _T("a"), 0, kDate, _T("a"), 1), false},
        {"same newness", swoNewAscending, swoNewDescending, z,
         item(_T("z"), _T("z"), 2, kLater, _T("z"), 5), true},
        {"date", swoDateAscending, swoDateDescending, item(_T("z"), _T("z"), 2, kDate, _T("z"), 1),
         item(_T("a"), _T("a"), 0, kLater, _T("a"), 0), false},
        {"same date", swoDateAscending, swoDateDescending, dated(kDate), dated(kDate), true},
        {"no date", swoDateAscending, swoDateDescending, dated(invalid), dated(notANumber), true},
        {"no date first", swoDateAscending, swoDateDescending, dated(notANumber),
         dated(COleDateTime(-0.5)), false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        Item first = row.first, second = row.second;
        EXPECT_EQ(!row.areEqual, row.ascending(&first, &second));
        EXPECT_FALSE(row.ascending(&second, &first));
        EXPECT_EQ(!row.areEqual, row.descending(&second, &first));
        EXPECT_FALSE(row.descending(&first, &second));
    }
    const Item others[] = {item(_T("Z"), _T("z"), 2, kLater, _T("z"), TRUE),
                           item(_T("z"), _T("Z"), 2, kLater, _T("z"), TRUE),
                           item(_T("z"), _T("z"), 1, kLater, _T("z"), TRUE),
                           item(_T("z"), _T("z"), 2, kDate, _T("z"), TRUE),
                           item(_T("z"), _T("z"), 2, kLater, _T("Z"), TRUE),
                           item(_T("z"), _T("z"), 2, kLater, _T("z"), FALSE)};
    for (const Item& other : others)
        EXPECT_TRUE(z != other && z == Item(z)) << &other - others;
    const VirtualListOrder columns[] = {nullptr, swoPriorityAscending, swoTitleAscending,
                                        swoDateAscending, nullptr};
    for (int column = -1; column <= 3; ++column)
        EXPECT_EQ(columns[column + 1], UpdateListingOrder(column, true)) << column;
    EXPECT_EQ(swoTitleDescending, UpdateListingOrder(1, false));
}

} // namespace
