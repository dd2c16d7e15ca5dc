// CUpdateDlg: checks for a new version of the running program while the user waits. Windows only,
// user-interface thread.
//
// See new_version_check.h for what the check requests, does and refuses; this is its window.
// DoModal starts a check, hides the dialog when the check has ended, shows one box with the result,
// and returns. Cancel ends the check and the dialog without a box. DoModal always returns IDCANCEL,
// or -1 when the dialog cannot be created.
#pragma once

#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/framework/win/static.h>
#include <quorvel/system/registry_path.h>
#include <quorvel/types/version_number.h>
#include <quorvel/update/win/animate_progress_ctrl.h>

#include <memory>

class CUpdateTransport;

namespace quorvel {
class UpdateSource;
struct CheckOptions;
} // namespace quorvel

class QUORVEL_API CUpdateDlg : public CVaskDialog {
    DECLARE_DYNAMIC(CUpdateDlg)
public:
    // The caption is the id of a catalogue text; 0 uses the template's. The version is that of the
    // running program.
    CUpdateDlg(UINT captionId, CRegistryPath path, CVersionNumber currentVersion,
               CWnd* parent = nullptr);
    ~CUpdateDlg() override;

    // Called when the dialog opens. Returns FALSE when no check was started: a box has shown the
    // reason, unless the host's hook refused the address, and the dialog ends.
    BOOL CheckForUpdates();
    // The line above the bar. Returns FALSE and keeps the line for null, for a missing catalogue
    // text, and before the dialog has opened.
    BOOL SetStatus(const WCHAR* text);
    BOOL SetStatus(UINT stringId);
    void Close(); // ends a running check without a box

    // As in CNewVersionCheck, for the check of this dialog. Call them before the dialog opens or
    // while no check runs. The transport is not owned and must outlive the dialog.
    void SetStrict(BOOL strict);
    void SetTransport(CUpdateTransport* transport);
    BOOL SetPublicKey(const WCHAR* text);
    BOOL AddPublicKey(const WCHAR* text);

    BOOL DestroyWindow() override;

protected:
    UINT GetTemplateID() override;
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    BOOL LoadData() override;
    void OnOK() override; // does nothing: the dialog ends with the check
    void OnCancel() override;

    // Creates the source of the check's connection. The library's tests override it.
    virtual std::unique_ptr<quorvel::UpdateSource> MakeUpdateSource();

    void OnDestroy();
    void OnEndSession(BOOL isEnding);
    // Messages from the socket of the check, and from the dialog itself.
    LRESULT OnSocketStatusChanged(WPARAM socket, LPARAM status);
    LRESULT OnCheckForUpdates(WPARAM wParam, LPARAM lParam);
    LRESULT OnCheckFinished(WPARAM code, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    class Session;

    void EndSession();
    void ApplyOptions();

    const CRegistryPath m_path;
    const CVersionNumber m_currentVersion;
    CStatic m_status;
    CAnimateProgressCtrl m_progress;
    const std::unique_ptr<quorvel::CheckOptions> m_options;
    std::shared_ptr<Session> m_session; // not null while the dialog is open
};
