// CCheckForUpdates: the check for a newer update listing without windows of its own. What is said
// here of a check holds for CNewVersionCheck (new_version_check.h) too.
//
// A host passes a view, which shows and asks, and starts a check; the messages of the thread, which
// has to dispatch them, carry it on. CVaskSocket::Initialize comes first, on the same thread. The
// view must outlive the check. Do not destroy a check inside a call of its view. Lack of memory
// throws CMemoryException or std::bad_alloc.
//
// A check reads and writes the settings of check_for_updates_profile.h. It is refused, with a
// message, while one is running, for an invalid address, within 15 seconds of the last one, and
// before the sockets are initialised; and in silence when the host's link hook
// (QuorvelSetOpenExternalLinkCallback) does not allow the address.
//
// Servers are asked over HTTP at port 80: a port in the address is ignored, and for "https://" too
// nothing is encrypted, and nobody proves who the server is. SetTransport replaces that by the
// host's own way (update_transport.h). A check with a transport is always strict (below).
//
// By default every answer of status 200 counts, whatever it holds. SetStrict makes a check refuse
// answers that no healthy server gives. Each refusal ends the check with a message of its own, and
// changes neither the local updates file nor the stored date:
//
//     - a body shorter than its "Content-Length", or without its last chunk;
//     - a chunked or gzip body that can't be decoded, and any other encoding. A good one is
//     decoded;
//     - a body that is no update listing, such as the login page of a network;
//     - a date of the listing more than a day in the future, which no later listing could exceed.
//       A date of that kind that was stored earlier counts as no date;
//     - for CNewVersionCheck, a version file that is empty or does not end with a digit.
//
// What follows a body's "Content-Length" is then cut off.
//
// SetPublicKey makes a check accept only what the publisher has signed. Then
//
//     - the check is strict, and fetches a signature in the format of minisign in the same way, at
//       the address of the file with ".minisig" behind the path. It has to be the file's, by one of
//       the keys, with a good trusted comment;
//     - nothing older is accepted than what was accepted last: by the <lastBuildDate> of the
//     listing
//       (of the version file, "timestamp:<seconds since 1970>" in the trusted comment, as minisign
//       writes it), and by "serial:<number>" in the trusted comment, where one had it. What was
//       accepted last is in the settings ("Signed Date", "Signed Serial", "Signed Version Date",
//       "Signed Version Serial"); Reset forgets it;
//     - a listing dated more than a day in the future is refused.
//
// The text of a key is that of a file of minisign, or its second line alone. A text that is no key
// gives FALSE. The check then refuses to start until it has a key: a mistake must not turn the
// protection off. AddPublicKey adds to the keys, so that a publisher can change to a new one.
#pragma once

#include <quorvel/system/registry_path.h>
#include <quorvel/update/check_for_updates_view.h>
#include <quorvel/update/update_listing.h>

#include <memory>

class CUpdateTransport;

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
    ~CCheckForUpdates(); // a check that is running ends without a message

    // Loads the local updates file, if there is one, and shows it with the dates.
    void Open();
    // FALSE when no check was started; the view has then shown why.
    BOOL Check();
    BOOL IsActive() const;
    void Cancel();
    // Asks, and then forgets the listing and its date, not that of the last check.
    void Reset();
    // What a view does later that posts the end of a check.
    void OnCheckFinished(DWORD code);

    const CUpdateListing& GetListing() const;
    // The longest listing that is accepted; 64 MB by default. A longer one ends the check with a
    // message that names the limit.
    void SetBodyLimit(ULONGLONG bytes);
    void SetStrict(BOOL strict);                    // FALSE by default; before Check
    void SetTransport(CUpdateTransport* transport); // not owned; null: plain HTTP; before Check
    BOOL SetPublicKey(const WCHAR* text);           // the only one; before Check
    BOOL AddPublicKey(const WCHAR* text);           // one more
    // With a key: a listing that is older than so many days, by its <lastBuildDate>, is reported
    // when a check ends well, since newer ones may be held back. 0 for none, as at first.
    void SetMaxAge(int days);

private:
    struct Parts;
    const std::unique_ptr<Parts> m_parts;
};
