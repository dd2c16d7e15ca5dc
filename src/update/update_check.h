// The check for updates. Asks the site for the date of its listing. If that is newer than the last
// download and the user agrees, downloads the listing into the local updates file.
//
//     idle -> checking the date -> asking -> downloading -> idle
//
// Errors, refusals and Cancel return to idle. Only a response of status 200 replaces the local
// file, and always as a whole. "Last Modified" is stored when all bytes have arrived, so that an
// interrupted download is offered again. It is restored if the local file cannot be written. A
// strict check replaces the file only by a listing that loads, and then stores the date.
#pragma once

#include <quorvel/update/update_listing.h>

#include "update/update_flow.h"

namespace quorvel {

// Texts for the view: the date of the last check, and the date of the local updates file (empty if
// there is no such file). Dates are in UTC, the texts in the user's local time.
CString LastCheckedText(const COleDateTime& date);
CString PublishedText(const COleDateTime& date, const WCHAR* localUpdatesFile);

class UpdateCheck : public UpdateFlow {
public:
    static constexpr ULONGLONG kBodyLimit = 64 << 20; // unless another one is set

    UpdateCheck(const CRegistryPath& path, const WCHAR* localUpdatesFile,
                CCheckForUpdatesView& view, UpdateSource& source);

    const CUpdateListing& GetListing() const { return m_listing; }
    // Loads the local updates file, if it exists, and sets the view's lines.
    void Open();
    // Loads the local updates file. On failure the listing does not change, and a box shows the
    // reason if `showsError`.
    bool LoadListing(bool showsError = true);
    // Starts a check. Returns false if it may not or cannot start; the view has shown the reason.
    // Only for a link that the host refuses nothing is shown.
    bool Check();
    // Asks the user, then deletes the listing: its file and the date of the last download, but not
    // the date of the last check.
    void Reset();
    // Reports a verified listing that is older than this number of days; 0 disables this.
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
    COleDateTime m_formerLastModified; // from before the download
    COleDateTime m_pendingLastModified;
    bool m_hasHeader = false;
    ULONGLONG m_received = 0;
    Expected m_expected;
};

} // namespace quorvel
