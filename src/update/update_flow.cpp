#include "update/update_flow.h"

#include <quorvel/frame/exception_text.h>
#include <quorvel/frame/module.h>
#include <quorvel/net/http_status_code_text.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/update/check_for_updates_profile.h>
#include <quorvel/util/text/validation.h>

#include "net/http_field_values.h"
#include "net/request_word.h"
#include "platform/win32.h"
#include "system/new_temporary_file.h"

#include <algorithm>
#include <string_view>

namespace quorvel {

namespace {

constexpr DWORD kNotSetUp = 1;           // what the sockets say before they are initialised
constexpr DWORD kMessageTooLong = 10040; // WSAEMSGSIZE
constexpr DWORD kFirstSocketError = 10000;
constexpr DWORD kNoStatusCode = 1; // has the text of an unknown code
constexpr int kSecondsBetweenChecks = 15;
constexpr UINT kReport = MB_OK | MB_ICONEXCLAMATION;

} // namespace

// The file is removed after the connection, which may still have it open.
struct UpdateFlow::Transfer {
    ~Transfer() {
        connection.reset();
        if (!fileName.IsEmpty())
            DeleteFileW(fileName);
    }
    CString fileName;
    std::unique_ptr<UpdateConnection> connection;
};

COleDateTime StoredDate(const COleDateTime& date) {
    return date.GetStatus() == COleDateTime::valid ? date : COleDateTime();
}

UpdateFlow::UpdateFlow(const CRegistryPath& path, View& view, UpdateSource& source,
                       ULONGLONG bodyLimit)
    : m_path(path), m_view(view), m_source(source), m_bodyLimit(bodyLimit),
      m_lastChecked(StoredDate(AfxGetProfileCheckForUpdatesLastChecked(path))) {}

UpdateFlow::~UpdateFlow() = default;

UpdateConnection* UpdateFlow::Connection() const {
    return m_transfer != nullptr ? m_transfer->connection.get() : nullptr;
}

CString UpdateFlow::TemporaryFileName() const {
    return m_transfer != nullptr ? m_transfer->fileName : CString();
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

bool UpdateFlow::PassesRules(CString& url) {
    CString cause;
    if (IsActive()) {
        cause.LoadString(kTextUpdatesSocketActive);
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
    // Deliberate: a last check in the future, by a clock that was wrong, counts as a recent one.
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
    m_state = State::running;
    return true;
}

bool UpdateFlow::Connect(UpdateRequest request) {
    if (!IsRunning())
        return false;
    request.localFile = m_transfer->fileName;
    const DWORD error = m_transfer->connection->Connect(request);
    if (error == 0)
        return true;
    LetGo();
    m_view.HideProgress();
    ReportSocketError(error);
    return false;
}

void UpdateFlow::Abandon() {
    if (IsRunning())
        m_state = State::idle;
}

void UpdateFlow::NoteStart() {
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
    CString value;
    const bool isKnown = header.FindFieldValue(_T("Content-Length"), value) &&
                         (ReadContentLength(value) > 0 || value == _T("0"));
    const ULONGLONG bytes = header.GetLength() + ReadContentLength(value);
    return {bytes >= header.GetLength() ? bytes : ~ULONGLONG{0}, isKnown};
}

bool UpdateFlow::EndsAsTooLong(ULONGLONG bytes) {
    const ULONGLONG header = Connection()->GetHeader().GetLength();
    const bool isTooLong = bytes > header && bytes - header > m_bodyLimit;
    if (isTooLong)
        End(View::resultFailed, kMessageTooLong);
    return isTooLong;
}

void UpdateFlow::LetGo() {
    if (m_transfer == nullptr)
        return;
    m_transfer->connection->Close();
    m_retired.push_back(std::move(m_transfer));
}

void UpdateFlow::End(View::Result result, DWORD code) {
    if (!IsRunning()) // a box of the view let it be cancelled
        return;
    LetGo();
    m_state = State::ended;
    m_result = result;
    m_view.HideProgress();
    if (!m_view.PostCheckFinished(code))
        OnCheckFinished(code);
}

void UpdateFlow::OnCheckFinished(DWORD code) {
    if (m_state != State::ended)
        return;
    m_state = State::idle;
    const View::Result result = m_result; // the box below may let another check run
    if (code != 0)
        ReportFailure(ErrorText(code));
    m_view.OnFinished(result);
}

void UpdateFlow::Cancel() {
    if (IsRunning())
        End(View::resultCancelled);
}

void UpdateFlow::OnSocketStatus(const void* sender, int status, DWORD error) {
    if (status == Http::statusClosed)
        std::erase_if(m_retired, [sender](const auto& each) {
            return each->connection->GetSender() == sender;
        });
    else if (Connection() == nullptr || sender != Connection()->GetSender())
        return; // it was let go of
    else if (error != 0 && status != Http::statusReceived)
        End(View::resultFailed, error);
    else
        OnStatus(status);
}

void UpdateFlow::Poll() {
    DWORD error = 0;
    if (Connection() != nullptr && Connection()->HasEnded(error))
        OnSocketStatus(Connection()->GetSender(), Http::statusEnded, error);
}

} // namespace quorvel
