// The orders of an update listing: comparers for the rows of a list whose items are all
// CUpdateListingItem.
//
// Texts are compared without letter case first, and with it if they are otherwise equal. Priorities
// are ordered from high to low, old entries before new ones, and dates by time, with invalid dates
// first.
#pragma once

#include <quorvel/update/update_listing_item.h>

namespace quorvel {

typedef bool (*VirtualListOrder)(CVirtualListCtrlItem* const&, CVirtualListCtrlItem* const&);

#define QUORVEL_UPDATE_LISTING_ORDER(name)                                                         \
    bool swo##name##Ascending(CVirtualListCtrlItem* const& left,                                   \
                              CVirtualListCtrlItem* const& right);                                 \
    bool swo##name##Descending(CVirtualListCtrlItem* const& left,                                  \
                               CVirtualListCtrlItem* const& right);
QUORVEL_UPDATE_LISTING_ORDER(Title)
QUORVEL_UPDATE_LISTING_ORDER(Description)
QUORVEL_UPDATE_LISTING_ORDER(Priority)
QUORVEL_UPDATE_LISTING_ORDER(Link)
QUORVEL_UPDATE_LISTING_ORDER(New)
QUORVEL_UPDATE_LISTING_ORDER(Date)
#undef QUORVEL_UPDATE_LISTING_ORDER

// Null for an unknown column.
VirtualListOrder UpdateListingOrder(int column, bool ascending);

} // namespace quorvel
