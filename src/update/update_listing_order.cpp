#include "update/update_listing_order.h"

#include <iterator>

namespace quorvel {

namespace {

typedef CUpdateListingItem Item;

bool IsTextBefore(const CString& left, const CString& right) {
    const int order = left.CompareNoCase(right);
    return order != 0 ? order < 0 : left < right;
}

// A host may have stored any value in a date: NaN must not break the order.
bool IsDate(const COleDateTime& date) {
    return date.GetStatus() == COleDateTime::valid && date.m_dt == date.m_dt;
}

bool IsTitleBefore(const Item& left, const Item& right) {
    return IsTextBefore(left.GetTitle(), right.GetTitle());
}

bool IsDescriptionBefore(const Item& left, const Item& right) {
    return IsTextBefore(left.GetDescription(), right.GetDescription());
}

bool IsPriorityBefore(const Item& left, const Item& right) {
    return left.GetPriority() < right.GetPriority();
}

bool IsLinkBefore(const Item& left, const Item& right) {
    return IsTextBefore(left.GetLink(), right.GetLink());
}

bool IsNewBefore(const Item& left, const Item& right) {
    return !left.IsNew() && right.IsNew();
}

bool IsDateBefore(const Item& left, const Item& right) {
    const COleDateTime first = left.GetDate();
    const COleDateTime second = right.GetDate();
    return IsDate(first) ? IsDate(second) && first < second : IsDate(second);
}

const Item& ItemOf(CVirtualListCtrlItem* row) {
    return *static_cast<const Item*>(row);
}

} // namespace

#define QUORVEL_UPDATE_LISTING_ORDER(name)                                                         \
    bool swo##name##Ascending(CVirtualListCtrlItem* const& left,                                   \
                              CVirtualListCtrlItem* const& right) {                                \
        return Is##name##Before(ItemOf(left), ItemOf(right));                                      \
    }                                                                                              \
    bool swo##name##Descending(CVirtualListCtrlItem* const& left,                                  \
                               CVirtualListCtrlItem* const& right) {                               \
        return swo##name##Ascending(right, left);                                                  \
    }
QUORVEL_UPDATE_LISTING_ORDER(Title)
QUORVEL_UPDATE_LISTING_ORDER(Description)
QUORVEL_UPDATE_LISTING_ORDER(Priority)
QUORVEL_UPDATE_LISTING_ORDER(Link)
QUORVEL_UPDATE_LISTING_ORDER(New)
QUORVEL_UPDATE_LISTING_ORDER(Date)
#undef QUORVEL_UPDATE_LISTING_ORDER

VirtualListOrder UpdateListingOrder(int column, bool ascending) {
    switch (column) {
    case Item::COLUMN_PRIORITY:
        return ascending ? swoPriorityAscending : swoPriorityDescending;
    case Item::COLUMN_TITLE:
        return ascending ? swoTitleAscending : swoTitleDescending;
    case Item::COLUMN_DATE:
        return ascending ? swoDateAscending : swoDateDescending;
    default:
        return nullptr;
    }
}

} // namespace quorvel
