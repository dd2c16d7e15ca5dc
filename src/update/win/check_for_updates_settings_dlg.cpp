#include <quorvel/update/win/check_for_updates_settings_dlg.h>

#include <quorvel/frame/exception_text.h>
#include <quorvel/frame/message_box.h>
#include <quorvel/framework/win/cmd_ui.h>
#include <quorvel/framework/win/data_exchange.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/res/resource_ids.h>

#include "update/update_settings.h"

using quorvel::UpdateSettings;

IMPLEMENT_DYNAMIC(CCheckForUpdatesSettingsDlg, CVaskDialog)

BEGIN_MESSAGE_MAP(CCheckForUpdatesSettingsDlg, CVaskDialog)
ON_BN_CLICKED(QUORVEL_UPDATES_REMIND, &CCheckForUpdatesSettingsDlg::OnBnClickedReminderCheck)
ON_UPDATE_COMMAND_UI(QUORVEL_UPDATES_DAYS, &CCheckForUpdatesSettingsDlg::OnUpdateDaysEdit)
ON_UPDATE_COMMAND_UI(QUORVEL_UPDATES_DAYS_SPIN,
                     &CCheckForUpdatesSettingsDlg::OnUpdateDaysSpinButtonCtrl)
END_MESSAGE_MAP()

namespace {

// The reason why the key of the path cannot be written.
DWORD WriteErrorOf(const CRegistryPath& path) {
    HKEY key = nullptr;
    const LONG error = path.CreateSubKey(key);
    if (error != ERROR_SUCCESS)
        return static_cast<DWORD>(error);
    ::RegCloseKey(key);
    return ERROR_CANTWRITE;
}

} // namespace

CCheckForUpdatesSettingsDlg::CCheckForUpdatesSettingsDlg(const CRegistryPath& path, CWnd* parent)
    : CVaskDialog(QUORVEL_DIALOG_UPDATES_SETTINGS, parent), m_path(path) {}

CCheckForUpdatesSettingsDlg::~CCheckForUpdatesSettingsDlg() = default;

UINT CCheckForUpdatesSettingsDlg::GetTemplateID() {
    return QUORVEL_DIALOG_UPDATES_SETTINGS;
}

void CCheckForUpdatesSettingsDlg::DoDataExchange(CDataExchange* exchange) {
    CVaskDialog::DoDataExchange(exchange);
    DDX_Control(exchange, QUORVEL_UPDATES_DAYS_SPIN, m_daysSpinButtonCtrl);
}

CString CCheckForUpdatesSettingsDlg::GetURL() const {
    CString url;
    GetDlgItemText(QUORVEL_UPDATES_URL, url);
    return url.Trim();
}

BOOL CCheckForUpdatesSettingsDlg::LoadData() {
    const UpdateSettings settings = quorvel::LoadUpdateSettings(m_path);
    SetDlgItemText(QUORVEL_UPDATES_URL, settings.url);
    CheckDlgButton(QUORVEL_UPDATES_REMIND, settings.reminds ? BST_CHECKED : BST_UNCHECKED);
    m_daysSpinButtonCtrl.SetRange32(UpdateSettings::kMinimumDays, UpdateSettings::kMaximumDays);
    m_daysSpinButtonCtrl.SetPos32(settings.days);
    return TRUE;
}

BOOL CCheckForUpdatesSettingsDlg::ValidateData(UINT&, CString&, CString& text, CRect& rect) {
    int field = QUORVEL_UPDATES_URL;
    if (const UINT refusal = quorvel::ValidateUpdateUrl(GetURL())) {
        text.LoadString(refusal);
    } else {
        CString days;
        GetDlgItemText(QUORVEL_UPDATES_DAYS, days);
        const bool reminds = IsDlgButtonChecked(QUORVEL_UPDATES_REMIND) != BST_UNCHECKED;
        const UINT daysRefusal = quorvel::ValidateReminderDays(reminds, days);
        if (daysRefusal == 0) {
            if (reminds) // the control reads fewer texts, and would keep the number before
                m_daysSpinButtonCtrl.SetPos32(quorvel::ReminderDaysOf(days));
            return TRUE;
        }
        text.FormatMessage(daysRefusal, UpdateSettings::kMinimumDays, UpdateSettings::kMaximumDays);
        field = QUORVEL_UPDATES_DAYS;
    }
    GetDlgItem(field)->GetWindowRect(rect);
    return FALSE;
}

BOOL CCheckForUpdatesSettingsDlg::SaveData() {
    UpdateSettings settings;
    settings.url = GetURL();
    settings.reminds = IsDlgButtonChecked(QUORVEL_UPDATES_REMIND) != BST_UNCHECKED;
    settings.days = m_daysSpinButtonCtrl.GetPos32();
    if (quorvel::SaveUpdateSettings(m_path, settings))
        return TRUE;
    CString cause;
    AfxGetSystemErrorText(WriteErrorOf(m_path), cause);
    AfxFormatStringErrorMessageBox(quorvel::kTextErrorWritingRegistry, MB_OK | MB_ICONEXCLAMATION,
                                   0, cause.GetString());
    return FALSE;
}

// Updates at once, not only when no messages are waiting.
void CCheckForUpdatesSettingsDlg::OnBnClickedReminderCheck() {
    UpdateDialogControls(this, FALSE);
}

void CCheckForUpdatesSettingsDlg::OnUpdateDaysEdit(CCmdUI* ui) {
    ui->Enable(IsDlgButtonChecked(QUORVEL_UPDATES_REMIND) != BST_UNCHECKED);
}

void CCheckForUpdatesSettingsDlg::OnUpdateDaysSpinButtonCtrl(CCmdUI* ui) {
    OnUpdateDaysEdit(ui);
}
