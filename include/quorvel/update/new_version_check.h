// CNewVersionCheck: checks for a new version of the running program, without windows of its own.
// See check_for_updates.h for its requirements and refusals.
#pragma once

#include <quorvel/system/registry_path.h>
#include <quorvel/types/version_number.h>
#include <quorvel/update/check_for_updates_view.h>

#include <memory>

class CUpdateTransport;

// Downloads the number of the latest version, a text of at most 64 KB, from the address of the
// updates, and shows how the version of the running program compares with it. A check shows exactly
// one message, or, after Cancel, no message.
class QUORVEL_API CNewVersionCheck {
public:
    // The address is stored at the path. The view must outlive the object.
    CNewVersionCheck(const CRegistryPath& path, const CVersionNumber& currentVersion,
                     CCheckForUpdatesView& view);
    CNewVersionCheck(const CNewVersionCheck&) = delete;
    CNewVersionCheck& operator=(const CNewVersionCheck&) = delete;
    ~CNewVersionCheck(); // ends a running check without a message

    BOOL Check();                                   // these four: as in CCheckForUpdates
    BOOL IsActive() const;                          // whether a check is running
    void Cancel();                                  // ends a running check
    void OnCheckFinished(DWORD code);               // see CCheckForUpdatesView::PostCheckFinished
    void SetStrict(BOOL strict);                    // FALSE by default; before Check
    void SetTransport(CUpdateTransport* transport); // not owned; null: plain HTTP; before Check
    BOOL SetPublicKey(const WCHAR* text);           // replaces all keys; before Check
    BOOL AddPublicKey(const WCHAR* text);           // adds a key; before Check

private:
    struct Parts;
    const std::unique_ptr<Parts> m_parts;
};
