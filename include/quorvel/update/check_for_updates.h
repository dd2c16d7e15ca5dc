// CCheckForUpdates: checks for a newer update listing, without windows of its own. What this header
// says of a check also applies to CNewVersionCheck (new_version_check.h).
//
// A host passes a view, which shows and asks, and starts a check. The check continues while the
// thread dispatches its messages. Call CVaskSocket::Initialize before, on the same thread. The view
// must outlive the check. Do not destroy a check inside a call of its view. A failed allocation
// throws CMemoryException or std::bad_alloc.
//
// A check uses the settings of check_for_updates_profile.h. Check refuses, with a message, while a
// check is running, for an invalid address, within 15 seconds of the last check, and before the
// sockets are initialised. It refuses silently when the host's link hook
// (QuorvelSetOpenExternalLinkCallback) does not allow the address.
//
// By default servers are contacted over plain HTTP at port 80: a port in the address is ignored,
// nothing is encrypted and no server is authenticated, not even for "https://". SetTransport sets a
// transport of the host instead (update_transport.h). Such a check is always strict (below).
//
// By default every answer of status 200 is accepted, whatever its content. SetStrict makes a check
// refuse answers that a working server does not give. Each refusal ends the check with a message of
// its own, and changes neither the local updates file nor the stored date:
//
//     - a body shorter than its "Content-Length", or without its last chunk;
//     - a chunked or gzip body that cannot be decoded (a correct one is decoded), and any other
//       encoding;
//     - a body that is not an update listing, such as a network's login page;
//     - a listing dated more than a day in the future, which no later listing could exceed. A
//       stored date of this kind counts as no date;
//     - for CNewVersionCheck, a version file that is empty or does not end with a digit.
//
// Data after the length given by "Content-Length" is cut off.
//
// SetPublicKey makes a check accept only files that the publisher has signed. Then
//
//     - the check is strict and also fetches a signature in minisign's format from the file's
//       address with ".minisig" appended to the path. The signature must be valid for the file and
//       for its trusted comment, with one of the keys;
//     - a file older than the last accepted one is refused. The date is <lastBuildDate> of a
//       listing; for a version file it is "timestamp:<seconds since 1970>" in the trusted comment,
//       as minisign writes it. Once a trusted comment with "serial:<number>" was accepted, a lower
//       or missing number is refused too. The last accepted values are in the settings ("Signed
//       Date", "Signed Serial", "Signed Version Date", "Signed Version Serial"). Reset deletes
//       them;
//     - a listing dated more than a day in the future is refused.
//
// A key is the text of a minisign public key file, or only its second line. An invalid key returns
// FALSE. The check then refuses to start until it has a valid key: a mistake must not disable the
// protection. AddPublicKey adds a key, so that a publisher can change to a new one.
#pragma once

#include <quorvel/system/registry_path.h>
#include <quorvel/update/check_for_updates_view.h>
#include <quorvel/update/update_listing.h>

#include <memory>

class CUpdateTransport;

// Asks the site for the date of its update listing. If it is newer than the last downloaded listing
// and the user agrees, downloads it into the local updates file. That file is only replaced as a
// whole, by the complete answer of status 200. The new date is stored after the last byte, so that
// an incomplete download is offered again.
class QUORVEL_API CCheckForUpdates {
public:
    // The path is that of check_for_updates_profile.h. The view must outlive the object.
    CCheckForUpdates(const CRegistryPath& path, const WCHAR* localUpdatesFile,
                     CCheckForUpdatesView& view);
    CCheckForUpdates(const CCheckForUpdates&) = delete;
    CCheckForUpdates& operator=(const CCheckForUpdates&) = delete;
    ~CCheckForUpdates(); // ends a running check without a message

    // Loads the local updates file, if it exists, and shows it with the dates.
    void Open();
    // FALSE: no check was started; the view has shown why, unless the host's link hook refused.
    BOOL Check();
    BOOL IsActive() const; // whether a check is running
    void Cancel();         // ends a running check; the view gets resultCancelled
    // Asks the user and then deletes the listing and its date, but not the date of the last check.
    void Reset();
    // A view whose PostCheckFinished returned TRUE calls this later, with the same code. While no
    // check runs, a code other than 0 is reported as well.
    void OnCheckFinished(DWORD code);

    const CUpdateListing& GetListing() const; // as it was last loaded
    // The maximum length of a listing, in bytes; 64 MB by default. A longer listing ends the check
    // with a message that names the limit.
    void SetBodyLimit(ULONGLONG bytes);
    void SetStrict(BOOL strict);                    // FALSE by default; before Check
    void SetTransport(CUpdateTransport* transport); // not owned; null: plain HTTP; before Check
    BOOL SetPublicKey(const WCHAR* text);           // replaces all keys; before Check
    BOOL AddPublicKey(const WCHAR* text);           // adds a key; before Check
    // With a key: a successful check reports a listing that is older than this number of days by
    // its <lastBuildDate>, since someone may hold newer ones back. 0, the default: no limit.
    void SetMaxAge(int days);

private:
    struct Parts;
    const std::unique_ptr<Parts> m_parts;
};
