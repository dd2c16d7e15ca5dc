// What both checks for updates have in common: the rules before a check, one connection at a time,
// its temporary file, and how a check ends.
//
// Every call of the view may cancel the check: what goes on behind one looks whether it still runs.
//
// A connection that was let go of is kept until its last status came: a status bears its address,
// which another connection must not have before. Its temporary file goes with it. One thread.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/system/registry_path.h>
#include <quorvel/update/check_for_updates_view.h>

#include "update/update_connection.h"

#include <vector>

namespace quorvel {

// The date as it was stored; the empty one where that is none.
COleDateTime StoredDate(const COleDateTime& date);

class UpdateFlow {
public:
    UpdateFlow(const UpdateFlow&) = delete;
    UpdateFlow& operator=(const UpdateFlow&) = delete;
    virtual ~UpdateFlow();

    bool IsActive() const { return m_state != State::idle; }
    // A status of any connection, also of one that is no longer in use.
    void OnSocketStatus(const void* sender, int status, DWORD error);
    // Ends a check whose connection has ended without its last status having come. To be called
    // now and then when no status is on its way.
    void Poll();
    // Reports the code of a check that ended, and tells the view that it has.
    void OnCheckFinished(DWORD code);
    // Ends a check that is running, without a message.
    void Cancel();

    // The longest body that is taken; a check with a longer one ends with WSAEMSGSIZE.
    void SetBodyLimit(ULONGLONG limit) { m_bodyLimit = limit; }

protected:
    typedef CCheckForUpdatesView View;

    UpdateFlow(const CRegistryPath& path, View& view, UpdateSource& source, ULONGLONG bodyLimit);

    const CRegistryPath& Path() const { return m_path; }
    View& GetView() const { return m_view; }
    COleDateTime LastChecked() const { return m_lastChecked; }

    // Whether a check may start now; the view has been told why when it may not.
    bool PassesRules(CString& url);
    // A connection, with a temporary file on request. False, and the view has been told.
    bool Open(bool withFile);
    bool Connect(UpdateRequest request);
    void NoteStart(); // now is when the last check was started

    UpdateConnection* Connection() const;
    CString TemporaryFileName() const;
    // The code of the response, or one that stands for none.
    DWORD ResponseCode() const;
    // Header and body of the response, as its header tells in any letter case; of an unknown
    // length the header alone.
    struct Expected {
        ULONGLONG bytes = 0;
        bool isKnown = false;
    };
    Expected ExpectedBytes() const;
    // Whether a response of so many bytes has a longer body than is taken; it has then ended.
    bool EndsAsTooLong(ULONGLONG bytes);

    bool IsRunning() const { return m_state == State::running; }
    void Abandon(); // a check that could not connect: it was never started
    void LetGo();   // of the connection, if there is one
    void End(View::Result result, DWORD code = 0);
    void ShowMessage(UINT textId, UINT type, const WCHAR* insert) const;

    // A status without an error of the connection in use.
    virtual void OnStatus(int status) = 0;

private:
    struct Transfer;

    void ReportFailure(const CString& cause) const;
    void ReportSocketError(DWORD error) const;
    CString ErrorText(DWORD code) const;

    const CRegistryPath m_path;
    View& m_view;
    UpdateSource& m_source;
    ULONGLONG m_bodyLimit;
    COleDateTime m_lastChecked;
    enum class State { idle, running, ended /* and not yet reported */ };
    State m_state = State::idle;
    View::Result m_result = View::resultFailed;
    std::unique_ptr<Transfer> m_transfer;
    std::vector<std::unique_ptr<Transfer>> m_retired;
};

} // namespace quorvel
