// CCheckForUpdatesReminderDlg: asks whether the user wants to check for updates now. Windows only,
// user-interface thread.
//
// An application shows it when AfxIsCheckForUpdatesReminderDue (check_for_updates_profile.h)
// returns TRUE. DoModal returns the user's answer, IDYES or IDNO, or IDCANCEL when the dialog was
// dismissed or closed without an answer. Dismissing stores the current time as the last dismissal,
// so that no reminder is due until the days have passed again. Other answers store nothing. In the
// dialog the user can also change the settings of the check.
#pragma once

#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/system/registry_path.h>

class QUORVEL_API CCheckForUpdatesReminderDlg : public CVaskDialog {
    DECLARE_DYNAMIC(CCheckForUpdatesReminderDlg)
public:
    // The path is that of check_for_updates_profile.h.
    explicit CCheckForUpdatesReminderDlg(const CRegistryPath& path, CWnd* parent = nullptr);
    ~CCheckForUpdatesReminderDlg() override;

    // The line above the question, such as the time since the last check; initially empty. May be
    // called while the dialog is open. Null returns FALSE and changes nothing.
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
