// The orders in which an update listing is shown: comparers for the rows of a list whose items are
// all CUpdateListingItem.
//
// Texts are ordered without regard to letter case, and by it where they differ in nothing else;
// priorities from high to low; entries that are not new before those that are; dates in time, those
// that are none before all others.
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

// Null for a column that there is not.
VirtualListOrder UpdateListingOrder(int column, bool ascending);

} // namespace quorvel
