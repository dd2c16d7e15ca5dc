// The check for updates: asks the site for the date of its listing, and when that is newer than the
// one downloaded last, and the user wants it, downloads it into the local updates file.
//
//     idle -> checking the date -> asking -> downloading -> idle
//
// Any error, refusal and Cancel lead back to idle. The local file is replaced as a whole, by a
// response of status 200 only; "Last Modified" is stored once every byte has come, so that a broken
// download is offered again, and taken back when the local file can't be written. A strict check
// replaces the file by a listing that loads, and stores the date after that.
#pragma once

#include <quorvel/update/update_listing.h>

#include "update/update_flow.h"

namespace quorvel {

// What a view shows: the date of the last check, and that of the local updates file, unless there
// is no such file. Dates are in UTC; the texts in the user's local time.
CString LastCheckedText(const COleDateTime& date);
CString PublishedText(const COleDateTime& date, const WCHAR* localUpdatesFile);

class UpdateCheck : public UpdateFlow {
public:
    UpdateCheck(const CRegistryPath& path, const WCHAR* localUpdatesFile,
                CCheckForUpdatesView& view, UpdateSource& source);

    const CUpdateListing& GetListing() const { return m_listing; }
    // Loads the local updates file, if there is one, and sets the view's lines.
    void Open();
    // Loads the local updates file. When that fails the listing stays as it was, and a box shows
    // the reason if it may.
    bool LoadListing(bool showsError = true);
    // Starts a check. False when it may not start or can't, and the view has shown why; a link
    // that the host does not allow is refused in silence.
    bool Check();
    // Asks, and then forgets the listing: its file and the date of the last download, not that of
    // the last check.
    void Reset();
    // A verified listing older than so many days is reported; 0 for none.
    void SetMaxAge(int days) { m_maxAge = days; }

private:
    enum class Phase { Checking, Asking, Downloading };

    void OnStatus(int status) override;
    void OnDateStatus(int status);
    void OnDateReceived();
    void Offer(const COleDateTime& date, const CString& url);
    void Download(const COleDateTime& date, const CString& url);
    void OnDownloadStatus(int status);
    bool OnHeaderReceived();
    bool OnBytesReceived();
    void ShowFigures(ULONGLONG received) const;
    void OnBody(const Body& body) override;
    bool IsListing(const Body& body, COleDateTime& date);
    bool MayReplace(const UpdateVerifier::Accepted& verified);
    void ReportStale();
    void SetLastModified(const COleDateTime& date);
    void ShowLastChecked() const;
    void ShowPublished() const;

    const CString m_fileName;
    int m_maxAge = 0;
    CUpdateListing m_listing;
    Phase m_phase = Phase::Checking;
    COleDateTime m_lastModified;
    COleDateTime m_formerLastModified; // before the download
    COleDateTime m_pendingLastModified;
    bool m_hasHeader = false;
    ULONGLONG m_received = 0;
    Expected m_expected;
};

} // namespace quorvel
