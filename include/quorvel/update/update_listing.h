// CUpdateListing: the update listing that an application's site publishes, as it is read from the
// local updates file.
//
// The file is an RSS document: <rss>, in it <channel>, in it <lastBuildDate>, the date of the
// whole, and any number of <item>, each with <title>, <link>, <description>, <pubDate> and
// <priority> in any order. Names are compared by letter case; other elements and all attributes
// mean nothing.
//
// One object may be used by one thread at a time.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/update/update_listing_item.h>

#include <vector>

class CLengthyOperationHandler;

class QUORVEL_API CUpdateListing {
public:
    // Replaces the entries by those of a file; what is missing in one is never an error. An entry's
    // description loses the white space at its ends, its priority is normal unless the text says
    // otherwise, its date is now in UTC without a <pubDate> and the empty date (0) where that is
    // none, and it is not new. The published date becomes that of <lastBuildDate>, and stays as it
    // was where that is none.
    //
    // FALSE when the file can't be loaded or lacks one of the first three elements: then nothing
    // has changed, `errorText` says why, and `icon` is what a box with it shows (MB_ICONSTOP or
    // MB_ICONEXCLAMATION). No box is shown here, and nothing thrown.
    BOOL Load(const WCHAR* fileName, CString& errorText, UINT& icon,
              CLengthyOperationHandler* handler = nullptr);
    void RemoveAll() noexcept { m_items.clear(); }

    // The empty date (0, valid) until a file was loaded.
    COleDateTime GetPublishedDate() const noexcept { return m_publishedDate; }
    void SetPublishedDate(COleDateTime date) noexcept { m_publishedDate = date; }
    // In the order of the document.
    const std::vector<CUpdateListingItem>& GetItems() const noexcept { return m_items; }

private:
    COleDateTime m_publishedDate;
    std::vector<CUpdateListingItem> m_items;
};

// Loads as CUpdateListing does and shows a box with the reason when it can't. User-interface
// thread.
QUORVEL_API BOOL AfxLoadUpdateListing(const WCHAR* fileName, CUpdateListing& listing,
                                      CLengthyOperationHandler* handler = nullptr);
