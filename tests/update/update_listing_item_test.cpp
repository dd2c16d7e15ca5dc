#include <quorvel/update/update_listing_item.h>

#include "support/date_time.h"
#include "support/test.h"
#include "update/update_listing_order.h"

typedef CUpdateListingItem Item;

const COleDateTime kDate(2007, 3, 4, 5, 6, 7);

// Pairs that differ in one field, the first before the second unless that order ignores the field.
TEST(UpdateListingItem, EveryFieldCountsForEqualityAndHasItsOrder) {
    using namespace quorvel;
    COleDateTime invalid = kDate, notANumber = kDate;
    invalid.SetStatus(COleDateTime::invalid);
    notANumber.m_dt = std::numeric_limits<double>::quiet_NaN();
    const auto of = [](const WCHAR* title, const WCHAR* text = _T("m"), const WCHAR* link = _T("m"),
                       BYTE priority = 1, COleDateTime date = kDate, BOOL isNew = FALSE) {
        return Item(title, text, priority, date, link, isNew);
    };
    const WCHAR* const m = _T("m");
    const Item item = of(m);
    const struct {
        VirtualListOrder ascending, descending;
        Item first, second;
        bool areEqual = false;
    } rows[] = {
        {swoTitleAscending, swoTitleDescending, item, of(_T("N"))},
        {swoTitleAscending, swoTitleDescending, of(_T("M")), item},
        {swoDescriptionAscending, swoDescriptionDescending, item, of(m, _T("N"))},
        {swoLinkAscending, swoLinkDescending, item, of(m, m, _T("N"))},
        {swoPriorityAscending, swoPriorityDescending, item, of(m, m, m, 2)},
        {swoNewAscending, swoNewDescending, item, of(m, m, m, 1, kDate, TRUE)},
        {swoDateAscending, swoDateDescending, item, of(m, m, m, 1, {2007, 3, 4, 5, 6, 8})},
        {swoDateAscending, swoDateDescending, of(m, m, m, 1, notANumber), of(m, m, m, 1, -0.5)},
        {swoDateAscending, swoDateDescending, of(m, m, m, 1, invalid), of(m, m, m, 1, notANumber),
         true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        Item first = row.first, second = row.second;
        EXPECT_TRUE((row.areEqual || first != second) && item == Item(item));
        EXPECT_EQ(!row.areEqual, row.ascending(&first, &second));
        EXPECT_FALSE(row.ascending(&second, &first));
        EXPECT_EQ(!row.areEqual, row.descending(&second, &first));
        EXPECT_FALSE(row.descending(&first, &second));
    }
    const VirtualListOrder columns[] = {nullptr, swoPriorityAscending, swoTitleAscending,
                                        swoDateAscending, nullptr};
    for (int column = -1; column <= 3; ++column)
        EXPECT_EQ(columns[column + 1], UpdateListingOrder(column, true)) << column;
}
