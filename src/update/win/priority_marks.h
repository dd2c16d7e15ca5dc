// The marks of priorities. They differ in shape and not only in colour.
#pragma once

#include <quorvel/framework/win/image_list.h>
#include <quorvel/update/update_listing_item.h>

namespace quorvel {

// The images of the list: a mark for each priority, the same marks on a selected row's background,
// and the mark of the header.
enum PriorityMark {
    kMarkOfPriority = CUpdateListingItem::PRIORITY_HIGH,
    kMarkOfSelected = CUpdateListingItem::PRIORITY_LOW + 1,
    kMarkOfHeader = 2 * kMarkOfSelected,
};

// The width and height of an image in pixels.
int SideOfPriorityMarks();
// Draws the images in the system's current colours.
void MakePriorityMarks(CImageList& images);

} // namespace quorvel
