#include "update/update_flow.h"

#include <quorvel/frame/byte_size.h>
#include <quorvel/frame/exception_text.h>
#include <quorvel/frame/module.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/net/http_status_code_text.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/update/check_for_updates_profile.h>
#include <quorvel/util/text/validation.h>

#include "net/request_word.h"
#include "platform/win32.h"
#include "system/new_temporary_file.h"
#include "update/response_body.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quorvel {

namespace {

constexpr DWORD kNotSetUp = 1; // the sockets' error before they are initialised
constexpr DWORD kFirstSocketError = 10000;
constexpr DWORD kNoStatusCode = 1; // its text is that of an unknown code
constexpr int kSecondsBetweenChecks = 15;
constexpr UINT kReport = MB_OK | MB_ICONEXCLAMATION;
constexpr DWORD kOk = 200;
constexpr ULONGLONG kSignatureLimit = 16 << 10;

CString SizeText(ULONGLONG bytes) {
    return AfxFormatFileSize(static_cast<__int64>(bytes));
}

// Appends the extension to the name of the file, before a query or fragment.
CString SignatureUrl(const CString& url) {
    const int end = url.FindOneOf(_T("?#"));
    return end < 0 ? url + _T(".minisig") : url.Left(end) + _T(".minisig") + url.Mid(end);
}

} // namespace

// The connection may have the files open, so they are deleted after it.
struct UpdateFlow::Transfer {
    ~Transfer() {
        connection.reset();
        for (const CString& each : {fileName, decodedFileName})
            if (!each.IsEmpty())
                DeleteFileW(each);
    }
    CString url;
    CString fileName;
    CString decodedFileName;
    bool wasPolled = false; // since it was released
    std::unique_ptr<UpdateConnection> connection;
};

COleDateTime StoredDate(const COleDateTime& date) {
    // The bytes may come from anywhere, so the number may be out of range.
    const bool isDate = COleDateTime(date.m_dt).GetStatus() == COleDateTime::valid;
    return date.GetStatus() == COleDateTime::valid && isDate ? date : COleDateTime();
}

UpdateFlow::UpdateFlow(const CRegistryPath& path, View& view, UpdateSource& source,
                       ULONGLONG bodyLimit, UINT tooLongTextId, const AcceptedNames& acceptedNames)
    : m_path(path), m_view(view), m_source(source), m_bodyLimit(bodyLimit),
      m_tooLongTextId(tooLongTextId), m_verifier(path, acceptedNames),
      m_lastChecked(StoredDate(AfxGetProfileCheckForUpdatesLastChecked(path))) {}

UpdateFlow::~UpdateFlow() = default;

UpdateConnection* UpdateFlow::Connection() const {
    return m_transfer != nullptr ? m_transfer->connection.get() : nullptr;
}

void UpdateFlow::ShowMessage(UINT textId, UINT type, const WCHAR* insert) const {
    CString text;
    text.FormatMessage(textId, insert);
    m_view.ShowMessage(text, type);
}

void UpdateFlow::ReportFailure(const CString& cause) const {
    ShowMessage(kTextErrorCheckingForUpdates, kReport, cause);
}

CString UpdateFlow::ErrorText(DWORD code) const {
    return code < kFirstSocketError ? AfxGetHTTPStatusCodeText(code)
                                    : m_source.GetWinsockErrorText(code);
}

void UpdateFlow::ReportSocketError(DWORD error) const {
    CString cause;
    if (error != kNotSetUp || !cause.LoadString(kTextSocketsNotInitialized))
        cause = m_source.GetWinsockErrorText(error);
    ReportFailure(cause);
}

bool UpdateFlow::CanStart(CString& url) {
    CString cause;
    if (IsActive()) {
        cause.LoadString(kTextUpdatesSocketActive);
        ReportFailure(cause);
        return false;
    }
    if (IsSigned() && !m_verifier.HasKeys()) {
        cause.LoadString(kTextUpdatesKeyInvalid);
        ReportFailure(cause);
        return false;
    }
    url = AfxGetProfileCheckForUpdatesURL(m_path);
    if (!AfxIsValidURL(url) || !IsRequestWord(url)) {
        cause.LoadString(kTextUpdatesInvalidUrl);
        ReportFailure(cause);
        return false;
    }
    const auto mayOpenLink = QuorvelGetOpenExternalLinkCallback();
    if (mayOpenLink != nullptr && !mayOpenLink(url))
        return false;
    if (m_isLeft) // by the hook
        return false;
    // Deliberate: a last check in the future, from a wrong clock, counts as recent.
    const COleDateTimeSpan wait(0, 0, 0, kSecondsBetweenChecks);
    if (m_source.GetCurrentUTCTime() < m_lastChecked + wait) {
        CString text;
        text.FormatMessage(kTextUpdatesMustWait, kSecondsBetweenChecks);
        m_view.ShowMessage(text, MB_OK | MB_ICONINFORMATION);
        return false;
    }
    return true;
}

bool UpdateFlow::Open(bool withFile) {
    auto transfer = std::make_unique<Transfer>();
    if (const DWORD error = withFile ? NewTemporaryFile(transfer->fileName) : 0) {
        CString cause;
        AfxGetSystemErrorText(error, cause);
        ShowMessage(kTextSystemError, MB_OK | MB_ICONSTOP, cause);
        return false;
    }
    transfer->connection = m_source.NewConnection();
    if (const DWORD error = transfer->connection->Create()) {
        ReportSocketError(error);
        return false;
    }
    m_transfer = std::move(transfer);
    m_state = State::Running;
    return true;
}

bool UpdateFlow::Connect(UpdateRequest request) {
    if (!IsRunning())
        return false;
    m_transfer->url = request.url;
    request.localFile = m_transfer->fileName;
    request.bodyLimit = BodyLimit();
    const DWORD error = m_transfer->connection->Connect(request);
    if (error == 0)
        return true;
    ReleaseConnection();
    m_view.HideProgress();
    ReportSocketError(error);
    return false;
}

void UpdateFlow::Abandon() {
    if (IsRunning())
        m_state = State::Idle;
}

void UpdateFlow::RecordStart() {
    m_lastChecked = m_source.GetCurrentUTCTime();
    AfxWriteProfileCheckForUpdatesLastChecked(m_path, m_lastChecked);
}

DWORD UpdateFlow::ResponseCode() const {
    const UpdateConnection* const connection = Connection();
    if (connection == nullptr || !connection->IsHeaderParsed())
        return kNoStatusCode;
    const UINT code = connection->GetHeader().GetStatusCode();
    return code > 0 && code < kFirstSocketError ? code : kNoStatusCode;
}

UpdateFlow::Expected UpdateFlow::ExpectedBytes() const {
    const CHttpHeader& header = Connection()->GetHeader();
    const std::optional<ULONGLONG> length = AnnouncedLength(header);
    const ULONGLONG bytes = header.GetLength() + length.value_or(0);
    return {bytes >= header.GetLength() ? bytes : ~ULONGLONG{0}, length.has_value()};
}

bool UpdateFlow::EndsAsTooLong(ULONGLONG bytes) {
    const ULONGLONG header = Connection()->GetHeader().GetLength();
    const bool isTooLong = bytes > header && bytes - header > BodyLimit();
    if (isTooLong)
        RefuseAsTooLong();
    return isTooLong;
}

ULONGLONG UpdateFlow::BodyLimit() const {
    return m_unverified != nullptr ? kSignatureLimit : m_bodyLimit;
}

void UpdateFlow::RefuseAsTooLong() {
    const UINT textId =
        m_unverified != nullptr ? UINT{kTextUpdatesSignatureTooLong} : m_tooLongTextId;
    Refuse(WSAEMSGSIZE, textId, SizeText(BodyLimit()));
}

bool UpdateFlow::FindBody(Body& body) {
    const CHttpHeader& header = Connection()->GetHeader();
    body = {m_transfer->fileName, header.GetLength()};
    if (!IsStrict())
        return true;
    if (const DWORD error = NewTemporaryFile(m_transfer->decodedFileName)) {
        EndWithStatusError(error);
        return false;
    }
    body = {m_transfer->decodedFileName, 0};
    CString errorText;
    BodyDecoder::Outcome outcome;
    if (!DecodeResponseBody(m_transfer->fileName, header, BodyLimit(), body.fileName, outcome,
                            errorText)) {
        End(View::resultFailed, ERROR_WRITE_FAULT, errorText);
        return false;
    }
    if (outcome == BodyDecoder::Outcome::TooLong)
        RefuseAsTooLong();
    else if (outcome == BodyDecoder::Outcome::Incomplete)
        Refuse(ERROR_INVALID_DATA, kTextUpdatesIncomplete);
    else if (outcome == BodyDecoder::Outcome::Damaged)
        Refuse(ERROR_INVALID_DATA, kTextUpdatesDamaged);
    return outcome == BodyDecoder::Outcome::Complete;
}

void UpdateFlow::TakeBody() {
    Body body;
    if (!FindBody(body))
        return;
    if (IsSigned())
        FetchSignature(body);
    else
        OnBody(body);
}

// Takes the decoded body from its connection, which may still have its other file open.
void UpdateFlow::FetchSignature(const Body& body) {
    auto unverified = std::make_unique<Transfer>();
    unverified->decodedFileName = body.fileName;
    m_transfer->decodedFileName.Empty();
    UpdateRequest request;
    request.url = SignatureUrl(m_transfer->url);
    request.headerOnly = false;
    request.receiveBufferSize = UpdateRequest::kReceiveBufferSize;
    ReleaseConnection();
    if (!Open(true))
        return End(View::resultFailed);
    m_unverified = std::move(unverified);
    if (!Connect(request))
        End(View::resultFailed);
}

void UpdateFlow::OnSignatureStatus(int status) {
    const bool isClosed = status == Http::statusEnded;
    if (!isClosed && status != Http::statusHeaderParsed && status != Http::statusReceived)
        return;
    if (Connection()->IsHeaderParsed() &&
        (EndsAsTooLong(ExpectedBytes().bytes) || EndsAsTooLong(Connection()->GetBytesReceived())))
        return;
    if (isClosed && ResponseCode() == kOk)
        Verify();
    else if (isClosed)
        Refuse(ERROR_INVALID_DATA, kTextUpdatesSignatureMissing, ErrorText(ResponseCode()));
}

void UpdateFlow::Verify() {
    Body signature;
    if (!FindBody(signature))
        return;
    const Body body = {m_unverified->decodedFileName, 0};
    CString insert;
    try {
        if (const UINT textId = m_verifier.Verify(body.fileName, signature.fileName, insert))
            return Refuse(ERROR_INVALID_DATA, textId, insert);
    } catch (CException* exception) {
        AfxGetExceptionText(exception, insert);
        exception->Delete();
        return End(View::resultFailed, ERROR_READ_FAULT, insert);
    }
    OnBody(body);
}

bool UpdateFlow::IsInFuture(const COleDateTime& date) const {
    return date > m_source.GetCurrentUTCTime() + COleDateTimeSpan(1.0);
}

bool UpdateFlow::IsOlderThan(const COleDateTime& date, int days) const {
    return date + COleDateTimeSpan(static_cast<double>(days)) < m_source.GetCurrentUTCTime();
}

void UpdateFlow::ReleaseConnection() {
    m_unverified.reset();
    if (m_transfer == nullptr)
        return;
    m_transfer->connection->Close();
    m_retired.push_back(std::move(m_transfer));
}

void UpdateFlow::Refuse(DWORD code, UINT textId, const WCHAR* insert) {
    CString cause;
    cause.FormatMessage(textId, insert);
    End(View::resultFailed, code, cause);
}

// Here a code below the first socket error is a system error, not a status code of an answer.
void UpdateFlow::EndWithStatusError(DWORD error) {
    const UpdateConnection* const connection = Connection();
    CString cause = connection != nullptr ? connection->GetErrorText() : CString();
    if (error == WSAEMSGSIZE && cause.IsEmpty())
        return connection != nullptr && connection->IsHeaderParsed()
                   ? RefuseAsTooLong()
                   : Refuse(error, kTextUpdatesHeaderTooLong,
                            SizeText(UpdateRequest::kHeaderLimit));
    if (error < kFirstSocketError && cause.IsEmpty())
        AfxGetSystemErrorText(error, cause);
    End(View::resultFailed, error, cause);
}

void UpdateFlow::End(View::Result result, DWORD code, const CString& cause) {
    if (!IsRunning()) // cancelled during a box of the view
        return;
    ReleaseConnection();
    m_state = State::Ended;
    m_result = result;
    m_cause = cause;
    m_view.HideProgress();
    if (!m_view.PostCheckFinished(code))
        OnCheckFinished(code);
}

void UpdateFlow::OnCheckFinished(DWORD code) {
    if (m_state != State::Ended) {
        if (m_state == State::Idle && code != 0)
            ReportFailure(ErrorText(code)); // the code of a host
        return;
    }
    m_state = State::Idle;
    const View::Result result = m_result; // another check may run during the box below
    if (code != 0)
        ReportFailure(m_cause.IsEmpty() ? ErrorText(code) : CString(m_cause));
    m_view.OnFinished(result);
}

void UpdateFlow::Cancel() {
    if (IsRunning())
        End(View::resultCancelled);
}

void UpdateFlow::Leave() {
    m_isLeft = true;
    Cancel();
}

void UpdateFlow::OnSocketStatus(const void* sender, int status, DWORD error) {
    if (status == Http::statusClosed)
        std::erase_if(m_retired, [sender](const auto& each) {
            return each->connection->GetSender() == sender;
        });
    else if (Connection() == nullptr || sender != Connection()->GetSender())
        return; // a released connection
    else if (error != 0 && status != Http::statusReceived)
        EndWithStatusError(error);
    else if (m_unverified != nullptr)
        OnSignatureStatus(status);
    else
        OnStatus(status);
}

void UpdateFlow::Poll() {
    std::erase_if(m_retired, [](const auto& each) { return std::exchange(each->wasPolled, true); });
    DWORD error = 0;
    if (Connection() != nullptr && Connection()->HasEnded(error))
        OnSocketStatus(Connection()->GetSender(), Http::statusEnded, error);
}

} // namespace quorvel
