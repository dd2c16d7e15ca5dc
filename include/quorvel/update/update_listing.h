// CUpdateListing: the update listing that an application's site publishes, read from the local
// updates file.
//
// The file is an RSS document: <rss> contains <channel>, which contains <lastBuildDate>, the date
// of the listing, and any number of <item>, each with <title>, <link>, <description>, <pubDate>
// and <priority> in any order. Names are case-sensitive; other elements and all attributes are
// ignored.
//
// One thread at a time may use an object.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/update/update_listing_item.h>

#include <vector>

class CLengthyOperationHandler;

class QUORVEL_API CUpdateListing {
public:
    // Replaces the entries by those of a file. Missing parts of an entry are not an error. The
    // description is trimmed. The priority is normal by default. Without a <pubDate> the date
    // is the current time in UTC; an unreadable <pubDate> gives the empty date (0). Entries
    // are not new. The published date becomes that of <lastBuildDate>, unless that is
    // unreadable.
    //
    // Returns FALSE when the file cannot be loaded or lacks one of the first three elements. Then
    // nothing was changed, `errorText` has the reason, and `icon` is the icon for its box
    // (MB_ICONSTOP or MB_ICONEXCLAMATION). Never shows a box or throws.
    BOOL Load(const WCHAR* fileName, CString& errorText, UINT& icon,
              CLengthyOperationHandler* handler = nullptr);
    void RemoveAll() noexcept { m_items.clear(); } // keeps the published date

    // The empty date (0, valid) until a file is loaded.
    COleDateTime GetPublishedDate() const noexcept { return m_publishedDate; }
    void SetPublishedDate(COleDateTime date) noexcept { m_publishedDate = date; }
    // In the order of the document.
    const std::vector<CUpdateListingItem>& GetItems() const noexcept { return m_items; }

private:
    COleDateTime m_publishedDate;
    std::vector<CUpdateListingItem> m_items;
};

// Loads as CUpdateListing::Load does, and on failure shows a box with the reason. User-interface
// thread.
QUORVEL_API BOOL AfxLoadUpdateListing(const WCHAR* fileName, CUpdateListing& listing,
                                      CLengthyOperationHandler* handler = nullptr);
