// CCheckForUpdatesDlg: the check for a newer update listing, with the entries of the last one.
// Windows only, user-interface thread.
//
// What a check asks, does and refuses is in check_for_updates.h; this is its window. It shows the
// local updates file when it opens. A check runs while the dialog stays usable; a small window over
// it shows how far the check is and cancels it. When the dialog is closed a check that is running
// ends without a word, and nothing of it is left.
//
// The title, the date, the description and the link of the selected entry are shown below the list.
// They are what a site publishes: texts are shown as such, whatever they hold, and shortened when
// they are very long; a link is opened as CHyperlinkCtrl opens links, so that it starts no program.
// A link that is no valid address is shown as a text.
//
// The arrangement of the list's columns is kept below the path, those values that a check keeps in
// its key "Check For Updates" (check_for_updates_profile.h).
#pragma once

#include <quorvel/controls/win/hyperlink_ctrl.h>
#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/framework/date_time.h>
#include <quorvel/update/win/update_listing_list_ctrl.h>

#include <memory>

class CUpdateTransport;

namespace quorvel {
class UpdateSource;
struct CheckOptions;
} // namespace quorvel

class QUORVEL_API CCheckForUpdatesDlg : public CVaskDialog {
    DECLARE_DYNAMIC(CCheckForUpdatesDlg)
public:
    // With `autoCheck` a check is started when the dialog is first shown. The help topic is what
    // GetHelpTopic gives: a web address or a topic; null or empty: no help.
    CCheckForUpdatesDlg(const CRegistryPath& path, const WCHAR* localUpdatesFile, BOOL autoCheck,
                        const WCHAR* helpTopic, CWnd* parent = nullptr);
    ~CCheckForUpdatesDlg() override;

    // As those of CCheckForUpdates, for the checks of this dialog. Call them before the dialog
    // opens or while no check runs. The transport is not owned and must outlive the dialog.
    void SetStrict(BOOL strict);
    void SetTransport(CUpdateTransport* transport);
    BOOL SetPublicKey(const WCHAR* text);
    BOOL AddPublicKey(const WCHAR* text);
    void SetMaxAge(int days);

    BOOL DestroyWindow() override;

protected:
    // Shows the local updates file. FALSE when it can't be loaded, and before the dialog has
    // opened: the list stays as it was. With `showsError` a box shows the reason.
    BOOL LoadLocalUpdatesFile(BOOL showsError);
    // Dates in UTC. They are shown in local time; of the empty date, for no check, nothing.
    void UpdateLastCheckedText(COleDateTime lastChecked);
    void UpdatePublishedText(COleDateTime published);
    void UpdateMessage(CUpdateListingItem* item); // below the list; null: nothing

    UINT GetTemplateID() override;
    CString GetHelpTopic() override;
    void GetStateListCtrls(quorvel::ListPaths& lists, int isSaving) override;
    using CVaskDialog::GetStateListCtrls;
    void GetBoldControlIDs(std::vector<int>& ids) override;
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    BOOL LoadData() override;

    // Where the connections of the checks come from. The library's tests replace it.
    virtual std::unique_ptr<quorvel::UpdateSource> MakeUpdateSource();

    void OnShowWindow(BOOL show, UINT status);
    void OnDestroy();
    void OnEndSession(BOOL isEnding);
    void OnBnClickedCheckButton();
    void OnBnClickedSettingsButton();
    void OnBnClickedResetButton();
    void OnLvnItemchangedLatestupdatesListctrl(NMHDR* header, LRESULT* result);
    // Posted by the sockets of the check, and by the dialog to itself.
    LRESULT OnSocketStatusChanged(WPARAM socket, LPARAM status);
    LRESULT OnAutoCheck(WPARAM wParam, LPARAM lParam);
    LRESULT OnCheckFinished(WPARAM code, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    class Session;

    void EndSession();
    void ApplyOptions();
    void ShowLink(const CString& link);

    const CRegistryPath m_path;
    const CString m_localUpdatesFile;
    BOOL m_autoCheck;
    const CString m_helpTopic;
    CUpdateListingListCtrl m_latestUpdatesListCtrl;
    CHyperlinkCtrl m_hyperlinkCtrl;
    const std::unique_ptr<quorvel::CheckOptions> m_options;
    std::shared_ptr<Session> m_session; // while the dialog is open
};
