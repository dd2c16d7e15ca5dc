// CCheckForUpdates and CNewVersionCheck: the checks for updates without windows of their own.
//
// A host gives a view, which shows and asks, and starts a check; the messages of the thread, which
// has to dispatch them, carry it on. CVaskSocket::Initialize comes first, on the same thread. The
// view and what it shows must outlive the check, and a check any call of its view. Lack of memory
// throws CMemoryException or std::bad_alloc.
//
// A check reads and writes the settings of check_for_updates_profile.h. It is refused, with a
// message, while one is running, for an address that is none, within 15 seconds of the last one,
// and before the sockets are initialised; and in silence when the host's link hook
// (QuorvelSetOpenExternalLinkCallback) does not allow the address. Servers are asked at port 80.
#pragma once

#include <quorvel/system/registry_path.h>
#include <quorvel/types/version_number.h>
#include <quorvel/update/check_for_updates_view.h>
#include <quorvel/update/update_listing.h>

#include <memory>

// Asks the site for the date of its update listing and, when that is newer than the one downloaded
// last and the user wants it, downloads it into the local updates file. That file is replaced as a
// whole, by a complete connection's answer of status 200; the new date is kept once every byte has
// come, so that a broken download is offered again.
class QUORVEL_API CCheckForUpdates {
public:
    CCheckForUpdates(const CRegistryPath& path, const WCHAR* localUpdatesFile,
                     CCheckForUpdatesView& view);
    CCheckForUpdates(const CCheckForUpdates&) = delete;
    CCheckForUpdates& operator=(const CCheckForUpdates&) = delete;
    ~CCheckForUpdates(); // a check that is running ends without a word

    // Loads the local updates file, if there is one, and shows it with the dates.
    void Open();
    // FALSE when no check was started; the view has then been told why.
    BOOL Check();
    BOOL IsActive() const;
    void Cancel();
    // Asks, and then forgets the listing and its date, not that of the last check.
    void Reset();
    // What a view does later that posts the end of a check.
    void OnCheckFinished(DWORD code);

    const CUpdateListing& GetListing() const;
    // The longest listing that is taken; 64 MB at first. A longer one ends the check.
    void SetBodyLimit(ULONGLONG bytes);

private:
    struct Parts;
    const std::unique_ptr<Parts> m_parts;
};

// Downloads the number of the latest version, as text of at most 64 KB at the address of the
// updates, and tells how the version of the running program compares with it. Exactly one message
// is shown, and none after Cancel.
class QUORVEL_API CNewVersionCheck {
public:
    CNewVersionCheck(const CRegistryPath& path, const CVersionNumber& currentVersion,
                     CCheckForUpdatesView& view);
    CNewVersionCheck(const CNewVersionCheck&) = delete;
    CNewVersionCheck& operator=(const CNewVersionCheck&) = delete;
    ~CNewVersionCheck();

    BOOL Check();
    BOOL IsActive() const;
    void Cancel();
    void OnCheckFinished(DWORD code);

private:
    struct Parts;
    const std::unique_ptr<Parts> m_parts;
};
