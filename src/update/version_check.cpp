#include "update/version_check.h"

#include <quorvel/res/message_ids.h>

#include "platform/win32.h"
#include "update/response_body.h"

#include <string_view>

namespace quorvel {

namespace {

constexpr ULONGLONG kBodyLimit = 64 << 10;
constexpr DWORD kOk = 200;
constexpr AcceptedNames kAcceptedNames = {_T("Signed Version Date"), _T("Signed Version Serial")};

// A text that ends otherwise was cut or is empty, and would be read as another version.
bool EndsWithDigit(const CStringA& version) {
    const std::string_view text = version.GetString();
    return !text.empty() && text.back() >= '0' && text.back() <= '9';
}

} // namespace

UINT CompareVersionText(const WCHAR* text, const CVersionNumber& current, CVersionNumber& latest) {
    DWORD major, minor, revision, build;
    if (!CVersionNumber::ParseVersionNumberString(text, major, minor, revision, build))
        return kTextNewVersionInvalid;
    latest.SetNumber(major, minor, revision, build);
    if (latest == current)
        return kTextNewVersionUpToDate;
    return latest > current ? kTextNewVersionAvailable : kTextNewVersionAhead;
}

VersionCheck::VersionCheck(const CRegistryPath& path, const CVersionNumber& current,
                           CCheckForUpdatesView& view, UpdateSource& source)
    : UpdateFlow(path, view, source, kBodyLimit, kTextUpdatesVersionTooLong, kAcceptedNames),
      m_current(current) {}

bool VersionCheck::Check() {
    UpdateRequest request;
    if (!CanStart(request.url) || !Open(true))
        return false;
    GetView().ShowProgress(FALSE);
    request.headerOnly = false;
    request.receiveBufferSize = UpdateRequest::kReceiveBufferSize;
    if (!Connect(request)) {
        Abandon();
        return false;
    }
    RecordStart();
    return true;
}

void VersionCheck::OnStatus(int status) {
    const bool isClosed = status == Http::statusEnded;
    if (!isClosed && status != Http::statusHeaderParsed && status != Http::statusReceived)
        return;
    if (Connection()->IsHeaderParsed() &&
        (EndsAsTooLong(ExpectedBytes().bytes) || EndsAsTooLong(Connection()->GetBytesReceived())))
        return;
    if (isClosed && ResponseCode() == kOk)
        TakeBody();
    else if (isClosed)
        End(View::resultFailed, ResponseCode());
}

void VersionCheck::OnBody(const Body& body) {
    if (IsSigned()) {
        const UpdateVerifier::Accepted verified =
            Verifier().GetVerified(Verifier().GetSignedDate());
        if (Verifier().IsReplay(verified))
            return Refuse(ERROR_INVALID_DATA, kTextUpdatesReplayed);
        if (!IsInFuture(verified.date)) // no later version would be newer
            Verifier().SetAccepted(verified);
    }
    CStringA version;
    CString text;
    const bool isRead = ReadResponseBody(body.fileName, body.begin, version, text);
    ReleaseConnection();
    GetView().HideProgress();
    if (!IsRunning())
        return;
    UINT type = MB_OK | MB_ICONEXCLAMATION;
    View::Result result = View::resultFailed;
    if (isRead) {
        CVersionNumber latest;
        const UINT textId =
            IsStrict() && !EndsWithDigit(version)
                ? UINT{kTextNewVersionInvalid}
                : CompareVersionText(CString(version.GetString()), m_current, latest);
        text.FormatMessage(textId, m_current.GetText().GetString(), latest.GetText().GetString());
        if (textId != kTextNewVersionInvalid) {
            type = MB_OK | MB_ICONINFORMATION;
            result =
                textId == kTextNewVersionAvailable ? View::resultUpdated : View::resultUpToDate;
        }
    }
    GetView().ShowMessage(text, type);
    End(result);
}

} // namespace quorvel
