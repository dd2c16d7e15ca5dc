// CNewVersionCheck: the check for a new version of the running program, without windows of its own.
// check_for_updates.h says what it needs and refuses.
#pragma once

#include <quorvel/system/registry_path.h>
#include <quorvel/types/version_number.h>
#include <quorvel/update/check_for_updates_view.h>

#include <memory>

class CUpdateTransport;

// Downloads the number of the latest version, as text of at most 64 KB at the address of the
// updates, and shows how the version of the running program compares with it. Exactly one message
// is shown, and none after Cancel.
class QUORVEL_API CNewVersionCheck {
public:
    CNewVersionCheck(const CRegistryPath& path, const CVersionNumber& currentVersion,
                     CCheckForUpdatesView& view);
    CNewVersionCheck(const CNewVersionCheck&) = delete;
    CNewVersionCheck& operator=(const CNewVersionCheck&) = delete;
    ~CNewVersionCheck();

    BOOL Check();
    BOOL IsActive() const;
    void Cancel();
    void OnCheckFinished(DWORD code);
    void SetStrict(BOOL strict);                    // FALSE by default; before Check
    void SetTransport(CUpdateTransport* transport); // not owned; null: plain HTTP; before Check
    BOOL SetPublicKey(const WCHAR* text);           // the only one; before Check
    BOOL AddPublicKey(const WCHAR* text);           // one more

private:
    struct Parts;
    const std::unique_ptr<Parts> m_parts;
};
