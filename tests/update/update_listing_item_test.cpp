#include <quorvel/update/update_listing_item.h>

#include "support/date_time.h"
#include "support/text.h"
#include "update/update_listing_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <tuple>
#include <vector>

namespace {

typedef CUpdateListingItem Item;

const COleDateTime kDate(2007, 3, 4, 5, 6, 7);

TEST(VirtualListItem, RowsAreEqualByImageIndentAndData) {
    const CVirtualListCtrlItem item(3, 2, 77);
    EXPECT_TRUE(CVirtualListCtrlItem() == CVirtualListCtrlItem(-1, 0, 0));
    EXPECT_TRUE(item == CVirtualListCtrlItem(item));
    for (const auto& other : {CVirtualListCtrlItem(4, 2, 77), CVirtualListCtrlItem(3, 1, 77),
                              CVirtualListCtrlItem(3, 2, 78)})
        EXPECT_TRUE(item != other);
    EXPECT_EQ(_T(""), CVirtualListCtrlItem().GetSubItemText(0));
}

TEST(UpdateListingItem, PrioritiesAreReadFromTextAndRefusedBeyondLow) {
    const std::tuple<const WCHAR*, BYTE> rows[] = {
        {_T("high"), 0}, {_T("HIGH"), 0}, {_T("low"), 2},     {_T("Low"), 2}, {_T("normal"), 1},
        {_T(""), 1},     {_T("0"), 1},    {_T("highest"), 1}, {nullptr, 1}};
    for (const auto& [text, priority] : rows) {
        SCOPED_TRACE(testing::PrintToString(CString(text)));
        const Item item(_T("t"), _T("d"), text, kDate, _T("l"), FALSE);
        EXPECT_EQ(priority, item.GetPriority());
        EXPECT_EQ(priority == 0, item.IsHighPriority() != FALSE);
        EXPECT_EQ(priority == 1, item.IsNormalPriority() != FALSE);
        EXPECT_EQ(priority == 2, item.IsLowPriority() != FALSE);
    }
    Item item(_T("t"), _T("d"), BYTE{3}, kDate, _T("l"), FALSE);
    EXPECT_EQ(1, item.GetPriority());
    item.SetLowPriority();
    EXPECT_FALSE(item.SetPriorityFromText(nullptr) || item.SetPriority(3) || item.SetPriority(255));
    EXPECT_EQ(_T("low"), item.GetPriorityText());
    EXPECT_TRUE(item.SetPriority(0));
    EXPECT_EQ(_T("high"), item.GetPriorityText());
}

TEST(UpdateListingItem, ANewItemHasTheTimeOfLoadingAndNothingElse) {
    Item item;
    EXPECT_TRUE(item == Item(_T(""), _T(""), BYTE{1}, Item::DEFAULT_DATE, _T(""), TRUE));
    EXPECT_EQ(COleDateTime::valid, item.GetDate().GetStatus());
    EXPECT_TRUE(item.GetDate() <= COleDateTime::GetCurrentTime() &&
                item.GetDate() > COleDateTime::GetCurrentTime() - COleDateTimeSpan(1.0));
    EXPECT_FALSE(item.SetTitle(nullptr) || item.SetDescription(nullptr) || item.SetLink(nullptr));
    item = Item(nullptr, nullptr, BYTE{1}, kDate, nullptr, TRUE);
    EXPECT_EQ(_T(""), item.GetTitle() + item.GetDescription() + item.GetLink());
}

TEST(UpdateListingItem, EveryFieldCountsForEquality) {
    const Item item(_T("t"), _T("d"), BYTE{1}, kDate, _T("l"), FALSE);
    EXPECT_TRUE(item == Item(_T("t"), _T("d"), _T("other"), kDate, _T("l"), FALSE));
    const Item others[] = {{_T("T"), _T("d"), BYTE{1}, kDate, _T("l"), FALSE},
                           {_T("t"), _T("D"), BYTE{1}, kDate, _T("l"), FALSE},
                           {_T("t"), _T("d"), BYTE{0}, kDate, _T("l"), FALSE},
                           {_T("t"), _T("d"), BYTE{1}, COleDateTime(), _T("l"), FALSE},
                           {_T("t"), _T("d"), BYTE{1}, kDate, _T("L"), FALSE},
                           {_T("t"), _T("d"), BYTE{1}, kDate, _T("l"), TRUE}};
    for (const Item& other : others)
        EXPECT_TRUE(item != other) << &other - others;
}

TEST(UpdateListingItem, ColumnsShowTheTitleAndTheShortDate) {
    CVirtualListCtrlItem&& row = Item(_T("title"), _T("d"), BYTE{0}, kDate, _T("l"), TRUE);
    const WCHAR* const texts[] = {_T(""), _T("title"), _T("3/4/2007"), _T("")};
    for (int column = -1; column < 4; ++column)
        EXPECT_EQ(CString(column < 0 ? _T("") : texts[column]), row.GetSubItemText(column))
            << column;
}

// Every pair of items, of which those in front are before or like those behind.
TEST(UpdateListingOrder, ComparersPutEveryPairInOrder) {
    COleDateTime invalid = kDate, notANumber = kDate;
    invalid.SetStatus(COleDateTime::invalid);
    notANumber.m_dt = std::numeric_limits<double>::quiet_NaN();
    const COleDateTime later(2007, 3, 4, 5, 6, 8);
    const auto of = [](const WCHAR* title, const WCHAR* text, int priority, COleDateTime date,
                       BOOL isNew) {
        return Item(title, text, static_cast<BYTE>(priority), date, text, isNew);
    };
    using namespace quorvel;
    const struct {
        const char* label;
        VirtualListOrder ascending, descending;
        std::vector<Item> items; // in order, from the rank on
        std::vector<int> ranks;
    } rows[] = {
        {"title",
         swoTitleAscending,
         swoTitleDescending,
         {of(_T("A"), _T("z"), 2, later, 1), of(_T("a"), _T("y"), 1, kDate, 0),
          of(_T("B"), _T("x"), 0, kDate, 0), of(_T("B"), _T("w"), 2, later, 1),
          of(_T("\xe9"), _T("v"), 2, later, 1)},
         {0, 1, 2, 2, 3}},
        {"description",
         swoDescriptionAscending,
         swoDescriptionDescending,
         {of(_T("z"), _T("a"), 2, later, 1), of(_T("y"), _T("B"), 1, kDate, 0)},
         {0, 1}},
        {"link",
         swoLinkAscending,
         swoLinkDescending,
         {of(_T("z"), _T("a"), 2, later, 1), of(_T("y"), _T("B"), 1, kDate, 0)},
         {0, 1}},
        {"priority",
         swoPriorityAscending,
         swoPriorityDescending,
         {of(_T("z"), _T("z"), 0, later, 1), of(_T("y"), _T("y"), 1, kDate, 0),
          of(_T("x"), _T("x"), 1, later, 1), of(_T("w"), _T("w"), 2, kDate, 0)},
         {0, 1, 1, 2}},
        {"new",
         swoNewAscending,
         swoNewDescending,
         {of(_T("z"), _T("z"), 2, later, FALSE), of(_T("y"), _T("y"), 1, kDate, TRUE),
          of(_T("x"), _T("x"), 1, kDate, 5)},
         {0, 1, 1}},
        {"date",
         swoDateAscending,
         swoDateDescending,
         {of(_T("z"), _T("z"), 2, invalid, 1), of(_T("y"), _T("y"), 1, notANumber, 0),
          of(_T("x"), _T("x"), 1, COleDateTime(-0.5), 0), of(_T("w"), _T("w"), 1, kDate, 0),
          of(_T("v"), _T("v"), 0, later, 0)},
         {0, 0, 1, 2, 3}},
    };
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.items.size(); ++i)
            for (std::size_t j = 0; j < row.items.size(); ++j) {
                SCOPED_TRACE(testing::Message() << row.label << ' ' << i << " and " << j);
                Item left = row.items[i], right = row.items[j];
                EXPECT_EQ(row.ranks[i] < row.ranks[j], row.ascending(&left, &right));
                EXPECT_EQ(row.ranks[i] > row.ranks[j], row.descending(&left, &right));
            }
}

TEST(UpdateListingOrder, ColumnsAreOrderedByWhatTheyShow) {
    using namespace quorvel;
    EXPECT_EQ(swoPriorityAscending, UpdateListingOrder(0, true));
    EXPECT_EQ(swoPriorityDescending, UpdateListingOrder(0, false));
    EXPECT_EQ(swoTitleAscending, UpdateListingOrder(1, true));
    EXPECT_EQ(swoTitleDescending, UpdateListingOrder(1, false));
    EXPECT_EQ(swoDateAscending, UpdateListingOrder(2, true));
    EXPECT_EQ(swoDateDescending, UpdateListingOrder(2, false));
    EXPECT_EQ(nullptr, UpdateListingOrder(3, true));
    EXPECT_EQ(nullptr, UpdateListingOrder(-1, false));
}

} // namespace
