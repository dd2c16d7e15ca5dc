// CCheckForUpdatesSettingsDlg: lets users set the address of the updates and the reminder. Windows
// only, user-interface thread.
//
// It shows the values stored below the path (check_for_updates_profile.h), and OK stores them. The
// address must be valid (AfxIsValidURL); surrounding blanks are ignored. If the box is checked, the
// days must be a number from 1 to 90; otherwise 0 is stored and the days are not validated. Stored
// days that are not valid are shown as 30. If a value cannot be stored, a box reports it and the
// dialog stays open.
#pragma once

#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/framework/win/spin_button_ctrl.h>
#include <quorvel/system/registry_path.h>

class QUORVEL_API CCheckForUpdatesSettingsDlg : public CVaskDialog {
    DECLARE_DYNAMIC(CCheckForUpdatesSettingsDlg)
public:
    // The path is that of check_for_updates_profile.h.
    explicit CCheckForUpdatesSettingsDlg(const CRegistryPath& path, CWnd* parent = nullptr);
    ~CCheckForUpdatesSettingsDlg() override;

protected:
    UINT GetTemplateID() override;
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL LoadData() override;
    BOOL ValidateData(UINT& icon, CString& title, CString& text, CRect& rect) override;
    BOOL SaveData() override;

    void OnBnClickedReminderCheck();
    // Both are enabled while the box is checked.
    void OnUpdateDaysEdit(CCmdUI* ui);
    void OnUpdateDaysSpinButtonCtrl(CCmdUI* ui);
    DECLARE_MESSAGE_MAP()

private:
    CString GetURL() const;

    const CRegistryPath m_path;
    CSpinButtonCtrl m_daysSpinButtonCtrl;
};
