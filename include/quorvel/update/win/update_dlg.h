// CUpdateDlg: checks whether there is a new version of the running program, while the user waits.
// Windows only, user-interface thread.
//
// What the check asks, does and refuses is in new_version_check.h; this is its window. DoModal
// starts a check, hides the dialog when that has ended, shows one box with the outcome, whatever it
// is, and ends. Cancel ends the check and the dialog without a box. The result is IDCANCEL in any
// case, and -1 when the dialog could not be made.
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
    // The caption is a text of the catalogue; 0: that of the template. The version is that of the
    // running program.
    CUpdateDlg(UINT captionId, CRegistryPath path, CVersionNumber currentVersion,
               CWnd* parent = nullptr);
    ~CUpdateDlg() override;

    // What the dialog does by itself when it opens. FALSE when no check was started: a box has
    // shown why, unless the host's hook refused the address, and the dialog ends.
    BOOL CheckForUpdates();
    // The line above the bar. FALSE, and the line as it was, for null, for a text that the
    // catalogue does not have, and before the dialog has opened.
    BOOL SetStatus(const WCHAR* text);
    BOOL SetStatus(UINT stringId);
    void Close(); // ends a check that is running, without a box

    // As those of CNewVersionCheck, for the check of this dialog. Call them before the dialog opens
    // or while no check runs. The transport is not owned and must outlive the dialog.
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
    void OnOK() override; // nothing: the dialog ends with the check
    void OnCancel() override;

    // Where the connection of the check comes from. The library's tests replace it.
    virtual std::unique_ptr<quorvel::UpdateSource> MakeUpdateSource();

    void OnDestroy();
    void OnEndSession(BOOL isEnding);
    // Posted by the socket of the check, and by the dialog to itself.
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
    std::shared_ptr<Session> m_session; // while the dialog is open
};
