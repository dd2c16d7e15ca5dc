// CCheckForUpdatesReminderDlg: asks whether the user wants to check for updates now. Windows only,
// user-interface thread.
//
// An application shows it when AfxIsCheckForUpdatesReminderDue (check_for_updates_profile.h) says
// so. The result of DoModal is IDYES or IDNO as the user answered, and IDCANCEL when the dialog was
// dismissed or closed without an answer. To dismiss it stores now as the time of the last
// dismissal, so that no reminder is due until the days have passed again; no other answer stores
// anything. The user may change the settings of the check meanwhile.
#pragma once

#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/system/registry_path.h>

class QUORVEL_API CCheckForUpdatesReminderDlg : public CVaskDialog {
    DECLARE_DYNAMIC(CCheckForUpdatesReminderDlg)
public:
    explicit CCheckForUpdatesReminderDlg(const CRegistryPath& path, CWnd* parent = nullptr);
    ~CCheckForUpdatesReminderDlg() override;

    // The line above the question, such as how long ago the last check was; empty at first. Before
    // the dialog opens or while it is open. FALSE for null, and the text as it was.
    BOOL SetStatus(const WCHAR* text);

protected:
    UINT GetTemplateID() override;
    BOOL LoadData() override;

    void OnBnClickedYesButton();
    void OnBnClickedNoButton();
    void OnBnClickedDismissButton();
    void OnBnClickedSettingsButton();
    DECLARE_MESSAGE_MAP()

private:
    const CRegistryPath m_path;
    CString m_status;
};
