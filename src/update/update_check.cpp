#include "update/update_check.h"

#include <quorvel/res/message_ids.h>
#include <quorvel/update/check_for_updates_profile.h>
#include <quorvel/util/calendar/date_text.h>
#include <quorvel/util/calendar/local_time.h>

#include "net/http_field_values.h"
#include "platform/win32.h"
#include "update/response_body.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace quorvel {

namespace {

constexpr DWORD kOk = 200;
constexpr AcceptedNames kAcceptedNames = {_T("Signed Date"), _T("Signed Serial")};

CString LoadText(UINT id) {
    CString text;
    text.LoadString(id);
    return text;
}

constexpr int kMaximum = std::numeric_limits<int>::max(); // the catalogue's text takes 32 bits

// Rounded; 0 while nothing is expected.
// Deliberate: above 100 when the server sends more than it announced.
int PercentOf(ULONGLONG received, ULONGLONG expected) {
    if (expected == 0)
        return 0;
    const double percent = 100.0 * static_cast<double>(received) / static_cast<double>(expected);
    return static_cast<int>(std::min(percent + 0.5, static_cast<double>(kMaximum)));
}

int ForText(ULONGLONG bytes) {
    return static_cast<int>(std::min<ULONGLONG>(bytes, kMaximum));
}

// Shows a UTC date in local time.
CString DateText(COleDateTime date) {
    if (date != COleDateTime()) // the empty date is not an instant
        AfxUTCToLocalTime(date, date);
    return AfxGetLocaleShortDateTime(date);
}

bool Exists(const CString& fileName) {
    const DWORD attributes = GetFileAttributesW(fileName);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

} // namespace

CString LastCheckedText(const COleDateTime& date) {
    CString text;
    if (date != COleDateTime())
        text.FormatMessage(kTextUpdatesLastChecked, DateText(date).GetString());
    return text;
}

CString PublishedText(const COleDateTime& date, const WCHAR* localUpdatesFile) {
    CString text = LoadText(kTextUpdatesFileMissing);
    if (Exists(localUpdatesFile))
        text.FormatMessage(kTextUpdatesFileDated, DateText(date).GetString());
    return text;
}

UpdateCheck::UpdateCheck(const CRegistryPath& path, const WCHAR* localUpdatesFile,
                         CCheckForUpdatesView& view, UpdateSource& source)
    : UpdateFlow(path, view, source, kBodyLimit, kTextUpdatesListingTooLong, kAcceptedNames),
      m_fileName(localUpdatesFile),
      m_lastModified(StoredDate(AfxGetProfileCheckForUpdatesLastModified(path))) {}

void UpdateCheck::Open() {
    ShowLastChecked();
    if (!Exists(m_fileName) || !LoadListing())
        ShowPublished();
}

void UpdateCheck::ShowLastChecked() const {
    GetView().SetLastCheckedText(LastCheckedText(LastChecked()));
}

void UpdateCheck::ShowPublished() const {
    GetView().SetPublishedText(PublishedText(m_listing.GetPublishedDate(), m_fileName));
}

bool UpdateCheck::LoadListing(bool showsError) {
    CString errorText;
    UINT icon = 0;
    if (!m_listing.Load(m_fileName, errorText, icon)) {
        if (showsError)
            GetView().ShowMessage(errorText, MB_OK | icon);
        return false;
    }
    ShowPublished();
    GetView().ShowListing(m_listing);
    return true;
}

void UpdateCheck::SetLastModified(const COleDateTime& date) {
    m_lastModified = date;
    AfxWriteProfileCheckForUpdatesLastModified(Path(), date);
}

bool UpdateCheck::Check() {
    UpdateRequest request;
    if (!CanStart(request.url) || !UpdateFlow::Open(false))
        return false;
    m_phase = Phase::Checking;
    m_pendingLastModified = COleDateTime();
    GetView().ShowProgress(FALSE);
    GetView().SetProgressText(LoadText(kTextUpdatesConnecting));
    if (!Connect(request)) {
        Abandon();
        return false;
    }
    RecordStart();
    ShowLastChecked();
    return true;
}

void UpdateCheck::OnStatus(int status) {
    if (m_phase == Phase::Checking)
        OnDateStatus(status);
    else if (m_phase == Phase::Downloading)
        OnDownloadStatus(status);
}

void UpdateCheck::OnDateStatus(int status) {
    if (status == Http::statusConnected)
        GetView().SetProgressText(LoadText(kTextUpdatesConnectedChecking));
    else if (status == Http::statusEnded)
        OnDateReceived();
}

void UpdateCheck::OnDateReceived() {
    const DWORD code = ResponseCode();
    if (code != kOk)
        return End(View::resultFailed, code);
    CString value;
    Connection()->GetHeader().FindFieldValue(_T("Last-Modified"), value);
    const CString url = Connection()->GetResolvedUrl();
    ReleaseConnection();
    GetView().HideProgress();
    if (IsRunning())
        Offer(ReadHttpDate(value), url);
}

void UpdateCheck::Offer(const COleDateTime& date, const CString& url) {
    m_phase = Phase::Asking;
    if (IsStrict() && IsInFuture(date))
        return Refuse(ERROR_INVALID_DATA, kTextUpdatesDateInFuture, DateText(date));
    const bool storedDateCounts = !IsStrict() || !IsInFuture(m_lastModified);
    if (storedDateCounts && !(date > m_lastModified)) {
        GetView().ShowMessage(LoadText(kTextUpdatesNoneAvailable), MB_OK | MB_ICONINFORMATION);
        ReportStale();
        return End(View::resultUpToDate);
    }
    CString question;
    question.FormatMessage(kTextUpdatesAvailable, DateText(date).GetString());
    const int answer = GetView().ShowMessage(question, MB_YESNO | MB_ICONINFORMATION);
    if (!IsRunning()) // cancelled in the meantime
        return;
    if (answer == IDYES)
        Download(date, url);
    else
        End(View::resultDeclined);
}

void UpdateCheck::Download(const COleDateTime& date, const CString& url) {
    m_formerLastModified = m_lastModified;
    m_pendingLastModified = date;
    m_hasHeader = false;
    m_received = 0;
    m_expected = Expected();
    if (!UpdateFlow::Open(true))
        return End(View::resultFailed);
    m_phase = Phase::Downloading;
    GetView().ShowProgress(TRUE);
    GetView().SetProgressText(LoadText(kTextUpdatesConnecting));
    GetView().SetProgressFigures(0, 0, 0, _T(""));
    UpdateRequest request;
    request.url = url;
    request.headerOnly = false;
    request.receiveBufferSize = UpdateRequest::kReceiveBufferSize;
    if (!Connect(request))
        End(View::resultFailed);
}

void UpdateCheck::OnDownloadStatus(int status) {
    if (status != Http::statusHeaderParsed && status != Http::statusReceived &&
        status != Http::statusEnded)
        return;
    // Each of these may be the first to arrive: a full queue may have lost the earlier ones.
    if (!m_hasHeader && Connection()->IsHeaderParsed() && !OnHeaderReceived())
        return;
    if (m_hasHeader && status != Http::statusHeaderParsed && !OnBytesReceived())
        return;
    if (status != Http::statusEnded)
        return;
    if (m_hasHeader)
        TakeBody();
    else
        End(View::resultFailed, ResponseCode());
}

bool UpdateCheck::OnHeaderReceived() {
    m_hasHeader = true;
    if (ResponseCode() != kOk) {
        End(View::resultFailed, ResponseCode());
        return false;
    }
    m_expected = ExpectedBytes();
    GetView().SetProgressText(LoadText(kTextUpdatesConnectedDownloading));
    ShowFigures(0);
    return IsRunning() && !EndsAsTooLong(m_expected.bytes);
}

void UpdateCheck::ShowFigures(ULONGLONG received) const {
    const int percent = PercentOf(received, m_expected.bytes);
    CString text;
    text.FormatMessage(kTextDownloadProgress, ForText(received), ForText(m_expected.bytes),
                       percent);
    GetView().SetProgressFigures(received, m_expected.bytes, percent, text);
}

bool UpdateCheck::OnBytesReceived() {
    const ULONGLONG received = Connection()->GetBytesReceived();
    if (std::exchange(m_received, received) != received)
        ShowFigures(received);
    if (!IsRunning())
        return false;
    if (!IsStrict() && m_expected.isKnown && received == m_expected.bytes &&
        m_lastModified != m_pendingLastModified)
        SetLastModified(m_pendingLastModified);
    return !EndsAsTooLong(received);
}

void UpdateCheck::OnBody(const Body& body) {
    COleDateTime date;
    if (IsStrict() && !IsListing(body, date))
        return;
    const UpdateVerifier::Accepted former = Verifier().GetAccepted();
    const UpdateVerifier::Accepted verified = Verifier().GetVerified(date);
    if (IsSigned() && !MayReplace(verified))
        return;
    if (IsSigned())
        Verifier().SetAccepted(verified); // before the file: the program may end between the two
    CString errorText;
    const bool isCopied = CopyResponseBody(body.fileName, body.begin, m_fileName, errorText);
    ReleaseConnection(); // before any box: during the box the timer would report the end again
    if (!isCopied) {
        if (IsSigned())
            Verifier().SetAccepted(former);
        SetLastModified(m_formerLastModified);
        GetView().ShowMessage(errorText, MB_OK | MB_ICONEXCLAMATION);
        return End(View::resultFailed);
    }
    if (IsStrict())
        SetLastModified(m_pendingLastModified);
    const bool isLoaded = LoadListing();
    ReportStale();
    End(isLoaded ? View::resultUpdated : View::resultFailed);
}

// Returns false if the file does not load; the check has then ended.
bool UpdateCheck::IsListing(const Body& body, COleDateTime& date) {
    CUpdateListing listing;
    CString errorText;
    UINT icon = 0;
    if (listing.Load(body.fileName, errorText, icon)) {
        date = StoredDate(listing.GetPublishedDate());
        return true;
    }
    Refuse(ERROR_INVALID_DATA, kTextUpdatesNotAListing, errorText);
    return false;
}

// Whether a verified listing may replace the one accepted last; if not, the check has ended.
bool UpdateCheck::MayReplace(const UpdateVerifier::Accepted& verified) {
    if (Verifier().IsReplay(verified))
        Refuse(ERROR_INVALID_DATA, kTextUpdatesReplayed);
    else if (IsInFuture(verified.date)) // no later listing would be newer
        Refuse(ERROR_INVALID_DATA, kTextUpdatesDateInFuture, DateText(verified.date));
    else
        return true;
    return false;
}

// An attacker who withholds newer listings cannot sign an old one with today's date.
void UpdateCheck::ReportStale() {
    const COleDateTime date = Verifier().GetAccepted().date;
    if (!IsRunning() || !IsSigned() || m_maxAge < 1 || !IsOlderThan(date, m_maxAge))
        return;
    ShowMessage(kTextUpdatesStale, MB_OK | MB_ICONEXCLAMATION, DateText(date));
}

void UpdateCheck::Reset() {
    if (GetView().ShowMessage(LoadText(kTextUpdatesConfirmReset), MB_YESNO | MB_ICONQUESTION) !=
        IDYES)
        return;
    m_listing.RemoveAll();
    m_listing.SetPublishedDate(COleDateTime());
    SetLastModified(COleDateTime());
    m_formerLastModified = COleDateTime(); // a download that fails now must not restore it
    if (IsSigned())
        Verifier().SetAccepted({});
    DeleteFileW(m_fileName);
    ShowPublished();
    GetView().ShowListing(m_listing);
}

} // namespace quorvel
