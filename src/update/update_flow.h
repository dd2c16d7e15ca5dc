// The common part of both checks for updates: the rules before a check, one connection at a time,
// its temporary file, and the end of a check.
//
// Every call of the view may cancel the check, so the code after such a call tests IsRunning.
//
// A released connection is kept until its last status has arrived or must have been lost: a status
// contains its address, which no other connection may have before that. Its temporary files are
// deleted with it. One thread.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/system/registry_path.h>
#include <quorvel/update/check_for_updates_view.h>

#include "update/update_connection.h"
#include "update/update_verifier.h"

#include <vector>

namespace quorvel {

// The stored date; the empty date if it is invalid.
COleDateTime StoredDate(const COleDateTime& date);

class UpdateFlow {
public:
    UpdateFlow(const UpdateFlow&) = delete;
    UpdateFlow& operator=(const UpdateFlow&) = delete;
    virtual ~UpdateFlow();

    bool IsActive() const { return m_state != State::Idle; }
    // Handles a status of any connection, also of a released one.
    void OnSocketStatus(const void* sender, int status, DWORD error);
    // Finds connections that have ended but whose last status was lost: ends the check, and
    // destroys the connections that were released before the last call. Call it periodically, when
    // all statuses posted so far have arrived.
    void Poll();
    // Reports the code of a check that has ended, and notifies the view of the end.
    void OnCheckFinished(DWORD code);
    // Ends a running check without a message.
    void Cancel();
    // Cancel, and no check starts any more: also not one that asks the host's hook just now.
    void Leave();

    // The longest body that is accepted; a check with a longer one fails with WSAEMSGSIZE.
    void SetBodyLimit(ULONGLONG limit) { m_bodyLimit = limit; }
    // Whether to refuse answers that no correct server sends; check_for_updates.h lists them.
    void SetStrict(bool isStrict) { m_isStrict = isStrict; }
    // The publisher's keys. With at least one key, a body is accepted only with a valid signature.
    UpdateVerifier& Verifier() { return m_verifier; }

protected:
    typedef CCheckForUpdatesView View;

    // The text for a body that is too long; its insert is the limit.
    UpdateFlow(const CRegistryPath& path, View& view, UpdateSource& source, ULONGLONG bodyLimit,
               UINT tooLongTextId, const AcceptedNames& acceptedNames);

    const CRegistryPath& Path() const { return m_path; }
    View& GetView() const { return m_view; }
    COleDateTime LastChecked() const { return m_lastChecked; }
    bool IsStrict() const { return m_isStrict || IsSigned() || m_source.IsStrict(); }
    bool IsSigned() const { return m_verifier.IsOn(); }
    const UpdateVerifier& Verifier() const { return m_verifier; }
    // Whether a date in UTC is more than a day ahead.
    bool IsInFuture(const COleDateTime& date) const;
    bool IsOlderThan(const COleDateTime& date, int days) const;

    // Whether a check may start now. If not, the view has shown the reason.
    bool CanStart(CString& url);
    // A connection, on request with a temporary file. If false, the view has shown the reason.
    bool Open(bool withFile);
    bool Connect(UpdateRequest request);
    void RecordStart(); // stores the current time as the last check

    UpdateConnection* Connection() const;
    // The status code of the response, or kNoStatusCode.
    DWORD ResponseCode() const;
    // The size of header and body by the header's fields, in any letter case. If the length is
    // unknown, the size of the header.
    struct Expected {
        ULONGLONG bytes = 0;
        bool isKnown = false;
    };
    Expected ExpectedBytes() const;
    // Whether a response of `bytes` bytes has a body that is longer than accepted. The check has
    // then ended.
    bool EndsAsTooLong(ULONGLONG bytes);
    // The place of the received body: after its header in the temporary file, or decoded in its own
    // file. Both files are deleted with the connection.
    struct Body {
        CString fileName;
        ULONGLONG begin = 0;
    };
    // Handles the complete response. Calls OnBody at once, or after the body's signature has
    // arrived and is valid. A refused body ends the check.
    void TakeBody();

    bool IsRunning() const { return m_state == State::Running; }
    void Abandon(); // a check that could not connect counts as not started
    void ReleaseConnection();
    // `cause` is the text for the user. If it is empty, the code's own text is used.
    void End(View::Result result, DWORD code = 0, const CString& cause = CString());
    // Ends as failed, with a text of the catalogue as reason.
    void Refuse(DWORD code, UINT textId, const WCHAR* insert = _T(""));
    void ShowMessage(UINT textId, UINT type, const WCHAR* insert) const;

    // A status without an error, from the current connection.
    virtual void OnStatus(int status) = 0;
    // The body may be used until the connection is released.
    virtual void OnBody(const Body& body) = 0;

private:
    struct Transfer;

    bool FindBody(Body& body);
    void FetchSignature(const Body& body);
    void OnSignatureStatus(int status);
    void Verify();
    ULONGLONG BodyLimit() const;
    void RefuseAsTooLong();
    void ReportFailure(const CString& cause) const;
    void ReportSocketError(DWORD error) const;
    CString ErrorText(DWORD code) const;
    void EndWithStatusError(DWORD error);

    const CRegistryPath m_path;
    View& m_view;
    UpdateSource& m_source;
    ULONGLONG m_bodyLimit;
    const UINT m_tooLongTextId;
    bool m_isStrict = false;
    UpdateVerifier m_verifier;
    COleDateTime m_lastChecked;
    enum class State { Idle, Running, Ended /* and not yet reported */ };
    State m_state = State::Idle;
    bool m_isLeft = false;
    View::Result m_result = View::resultFailed;
    CString m_cause;
    std::unique_ptr<Transfer> m_transfer;
    // The body while its signature is fetched, without a connection.
    std::unique_ptr<Transfer> m_unverified;
    std::vector<std::unique_ptr<Transfer>> m_retired;
};

} // namespace quorvel
