#include <quorvel/update/win/check_for_updates_reminder_dlg.h>

#include <quorvel/res/resource_ids.h>
#include <quorvel/update/check_for_updates_profile.h>
#include <quorvel/update/win/check_for_updates_settings_dlg.h>

IMPLEMENT_DYNAMIC(CCheckForUpdatesReminderDlg, CVaskDialog)

BEGIN_MESSAGE_MAP(CCheckForUpdatesReminderDlg, CVaskDialog)
ON_BN_CLICKED(IDYES, &CCheckForUpdatesReminderDlg::OnBnClickedYesButton)
ON_BN_CLICKED(IDNO, &CCheckForUpdatesReminderDlg::OnBnClickedNoButton)
ON_BN_CLICKED(QUORVEL_UPDATES_DISMISS, &CCheckForUpdatesReminderDlg::OnBnClickedDismissButton)
ON_BN_CLICKED(QUORVEL_UPDATES_OPEN_SETTINGS,
              &CCheckForUpdatesReminderDlg::OnBnClickedSettingsButton)
END_MESSAGE_MAP()

CCheckForUpdatesReminderDlg::CCheckForUpdatesReminderDlg(const CRegistryPath& path, CWnd* parent)
    : CVaskDialog(QUORVEL_DIALOG_UPDATES_REMINDER, parent), m_path(path) {}

CCheckForUpdatesReminderDlg::~CCheckForUpdatesReminderDlg() = default;

UINT CCheckForUpdatesReminderDlg::GetTemplateID() {
    return QUORVEL_DIALOG_UPDATES_REMINDER;
}

BOOL CCheckForUpdatesReminderDlg::SetStatus(const WCHAR* text) {
    if (text == nullptr)
        return FALSE;
    m_status = text;
    if (m_hWnd != nullptr)
        SetDlgItemText(QUORVEL_UPDATES_REMINDER_STATUS, m_status);
    return TRUE;
}

BOOL CCheckForUpdatesReminderDlg::LoadData() {
    SetDlgItemText(QUORVEL_UPDATES_REMINDER_STATUS, m_status);
    return TRUE;
}

void CCheckForUpdatesReminderDlg::OnBnClickedYesButton() {
    EndDialog(IDYES);
}

void CCheckForUpdatesReminderDlg::OnBnClickedNoButton() {
    EndDialog(IDNO);
}

void CCheckForUpdatesReminderDlg::OnBnClickedDismissButton() {
    AfxWriteProfileCheckForUpdatesLastDismissed(m_path, COleDateTime::GetCurrentTime());
    EndDialog(IDCANCEL);
}

void CCheckForUpdatesReminderDlg::OnBnClickedSettingsButton() {
    CCheckForUpdatesSettingsDlg(m_path, this).DoModal();
}
