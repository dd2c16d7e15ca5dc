// CCheckForUpdatesSettingsDlg: where users set the address of the updates and whether they want to
// be reminded. Windows only, user-interface thread.
//
// It shows what is stored below the path (check_for_updates_profile.h) and stores it on OK. The
// address must be valid (AfxIsValidURL); blanks around it do not count. While the box is ticked the
// days must be a number from 1 to 90; otherwise 0 is stored, and the days are not looked at. Days
// that are stored but not valid are shown as 30. When a value can't be stored, a box says so and
// the dialog stays.
#pragma once

#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/framework/win/spin_button_ctrl.h>
#include <quorvel/system/registry_path.h>

class QUORVEL_API CCheckForUpdatesSettingsDlg : public CVaskDialog {
    DECLARE_DYNAMIC(CCheckForUpdatesSettingsDlg)
public:
    explicit CCheckForUpdatesSettingsDlg(const CRegistryPath& path, CWnd* parent = nullptr);
    ~CCheckForUpdatesSettingsDlg() override;

protected:
    UINT GetTemplateID() override;
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL LoadData() override;
    BOOL ValidateData(UINT& icon, CString& title, CString& text, CRect& rect) override;
    BOOL SaveData() override;

    void OnBnClickedReminderCheck();
    // Both are enabled while the box is ticked.
    void OnUpdateDaysEdit(CCmdUI* ui);
    void OnUpdateDaysSpinButtonCtrl(CCmdUI* ui);
    DECLARE_MESSAGE_MAP()

private:
    CString GetURL() const;

    const CRegistryPath m_path;
    CSpinButtonCtrl m_daysSpinButtonCtrl;
};
