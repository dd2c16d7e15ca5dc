// What both checks for updates have in common: the rules before a check, one connection at a time,
// its temporary file, and how a check ends.
//
// Every call of the view may cancel the check: what goes on behind one looks whether it still runs.
//
// A connection that was let go of is kept until its last status came, or until that must have been
// lost: a status bears its address, which another connection must not have before. Its temporary
// files go with it. One thread.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/system/registry_path.h>
#include <quorvel/update/check_for_updates_view.h>

#include "update/update_connection.h"
#include "update/update_verifier.h"

#include <vector>

namespace quorvel {

// The date as it was stored; the empty one where that is none.
COleDateTime StoredDate(const COleDateTime& date);

class UpdateFlow {
public:
    UpdateFlow(const UpdateFlow&) = delete;
    UpdateFlow& operator=(const UpdateFlow&) = delete;
    virtual ~UpdateFlow();

    bool IsActive() const { return m_state != State::Idle; }
    // A status of any connection, also of one that is no longer in use.
    void OnSocketStatus(const void* sender, int status, DWORD error);
    // Finds the ends of connections whose last status was lost: ends the check, and destroys the
    // connections that were let go of before the last call. To be called now and then, when all
    // statuses posted so far have come.
    void Poll();
    // Reports the code of a check that ended, and tells the view that it has.
    void OnCheckFinished(DWORD code);
    // Ends a check that is running, without a message.
    void Cancel();

    // The longest body that is accepted; a check with a longer one ends with WSAEMSGSIZE.
    void SetBodyLimit(ULONGLONG limit) { m_bodyLimit = limit; }
    // Whether answers are refused that no healthy server gives; check_for_updates.h lists them.
    void SetStrict(bool isStrict) { m_isStrict = isStrict; }
    // The keys of the publisher: with some, a body counts only with a good signature.
    UpdateVerifier& Verifier() { return m_verifier; }

protected:
    typedef CCheckForUpdatesView View;

    // The text says that a body is too long; its insert is the limit.
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

    // Whether a check may start now; the view has shown why when it may not.
    bool PassesRules(CString& url);
    // A connection, with a temporary file on request. False, and the view has shown why.
    bool Open(bool withFile);
    bool Connect(UpdateRequest request);
    void NoteStart(); // now is when the last check was started

    UpdateConnection* Connection() const;
    // The code of the response, or one that stands for none.
    DWORD ResponseCode() const;
    // Header and body of the response, as its header tells in any letter case; of an unknown
    // length the header alone.
    struct Expected {
        ULONGLONG bytes = 0;
        bool isKnown = false;
    };
    Expected ExpectedBytes() const;
    // Whether a response of so many bytes has a longer body than is accepted; the check has then
    // ended.
    bool EndsAsTooLong(ULONGLONG bytes);
    // Where the body of the response that has come is: behind its header in the temporary file, or
    // decoded in a file of its own. Both go with the connection.
    struct Body {
        CString fileName;
        ULONGLONG begin = 0;
    };
    // The whole response has come: OnBody follows at once, or when the signature of the body has
    // come and is good. A body that is refused ends the check.
    void TakeBody();

    bool IsRunning() const { return m_state == State::Running; }
    void Abandon(); // a check that could not connect: it was never started
    void LetGo();   // of the connection, if there is one
    // The cause is what the user reads; the code has a text of its own for when it is empty.
    void End(View::Result result, DWORD code = 0, const CString& cause = CString());
    // Ends as failed, for a reason that is a text of the catalogue.
    void Refuse(DWORD code, UINT textId, const WCHAR* insert = _T(""));
    void ShowMessage(UINT textId, UINT type, const WCHAR* insert) const;

    // A status without an error of the connection in use.
    virtual void OnStatus(int status) = 0;
    // The body may be used until LetGo.
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
    View::Result m_result = View::resultFailed;
    CString m_cause;
    std::unique_ptr<Transfer> m_transfer;
    // While its signature is fetched: the body, without a connection.
    std::unique_ptr<Transfer> m_unverified;
    std::vector<std::unique_ptr<Transfer>> m_retired;
};

} // namespace quorvel
