// The marks of priorities. They differ in shape, so that they are told apart without colours.
#pragma once

#include <quorvel/framework/win/image_list.h>
#include <quorvel/update/update_listing_item.h>

namespace quorvel {

// The images of the list: a mark for each priority, the same on the background of a selected row,
// and that of the header.
enum PriorityMark {
    kMarkOfPriority = CUpdateListingItem::PRIORITY_HIGH,
    kMarkOfSelected = CUpdateListingItem::PRIORITY_LOW + 1,
    kMarkOfHeader = 2 * kMarkOfSelected,
};

// The length of an image's sides in pixels.
int SideOfPriorityMarks();
// Makes the images in the system's colours as they are now.
void MakePriorityMarks(CImageList& images);

} // namespace quorvel
