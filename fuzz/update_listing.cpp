// Loads any bytes as an update listing, and checks the invariants of the entries and that a refused
// file changes nothing.
#include <quorvel/update/update_listing.h>

#include "fuzz_input.h"
#include "support/temporary_folder.h"

FUZZ_TARGET(input) {
    static const TemporaryFolder s_folder;
    const COleDateTime marker(1234.5);
    CUpdateListing listing;
    listing.SetPublishedDate(marker);
    s_folder.Write(_T("file.xml"), input.Bytes());
    CString errorText;
    UINT icon = 0;
    if (!listing.Load(s_folder.Path(_T("file.xml")), errorText, icon)) {
        Require(listing.GetItems().empty() && listing.GetPublishedDate() == marker);
        Require(!errorText.IsEmpty() && (icon == MB_ICONSTOP || icon == MB_ICONEXCLAMATION));
        return;
    }
    for (const CUpdateListingItem& item : listing.GetItems()) {
        Require(CUpdateListingItem::IsValidPriority(item.GetPriority()) && !item.IsNew());
        Require(item.GetDescription().Trim() == item.GetDescription());
        Require(item.GetDate().GetStatus() == COleDateTime::valid);
    }
}
