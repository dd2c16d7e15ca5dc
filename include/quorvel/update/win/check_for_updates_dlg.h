// CCheckForUpdatesDlg: the check for a newer update listing, with the entries of the last one.
// Windows only, user-interface thread.
//
// See check_for_updates.h for what a check requests, does and refuses; this is its window. It shows
// the local updates file when it opens. The dialog stays usable during a check; a small window over
// it shows the progress and can cancel it. Closing the dialog ends a running check without a
// message.
//
// The title, date, description and link of the selected entry are shown below the list. They are
// data of the site: texts are shown as plain text, whatever they contain, and very long ones are
// shortened. A link is opened as CHyperlinkCtrl opens links, so it starts no program. A link that
// is not a valid address is shown as text. White space around a link is ignored.
//
// The arrangement of the list's columns is stored below the path, and the values of checks in its
// key "Check For Updates" (check_for_updates_profile.h).
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
    // With `autoCheck` a check starts when the dialog is first shown. GetHelpTopic returns the help
    // topic, a web address or an HTML Help topic; null or empty: no help.
    CCheckForUpdatesDlg(const CRegistryPath& path, const WCHAR* localUpdatesFile, BOOL autoCheck,
                        const WCHAR* helpTopic, CWnd* parent = nullptr);
    ~CCheckForUpdatesDlg() override;

    // As in CCheckForUpdates, for the checks of this dialog. Call them before the dialog opens or
    // while no check runs. The transport is not owned and must outlive the dialog.
    void SetStrict(BOOL strict);
    void SetTransport(CUpdateTransport* transport);
    BOOL SetPublicKey(const WCHAR* text);
    BOOL AddPublicKey(const WCHAR* text);
    void SetMaxAge(int days);
    void SetBodyLimit(ULONGLONG bytes);

    BOOL DestroyWindow() override;

protected:
    // Shows the local updates file. Returns FALSE and keeps the list when it cannot be loaded, and
    // before the dialog has opened. With `showsError` a box shows the reason.
    BOOL LoadLocalUpdatesFile(BOOL showsError);
    // Dates are in UTC and shown in local time. The empty date (no check yet) shows no text; as the
    // date of a local updates file it is shown like any other.
    void UpdateLastCheckedText(COleDateTime lastChecked);
    void UpdatePublishedText(COleDateTime published);
    void UpdateMessage(CUpdateListingItem* item); // below the list; null: no entry

    UINT GetTemplateID() override;
    CString GetHelpTopic() override;
    void GetStateListCtrls(quorvel::ListPaths& lists, int isSaving) override;
    using CVaskDialog::GetStateListCtrls;
    void GetBoldControlIDs(std::vector<int>& ids) override;
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    BOOL LoadData() override;
    void OnCancel() override; // ends a check that is running

    // Creates the source of the checks' connections. The library's tests override it.
    virtual std::unique_ptr<quorvel::UpdateSource> MakeUpdateSource();

    void OnShowWindow(BOOL show, UINT status);
    void OnDestroy();
    void OnEndSession(BOOL isEnding);
    void OnBnClickedCheckButton();
    void OnBnClickedSettingsButton();
    void OnBnClickedResetButton();
    void OnLvnItemchangedLatestupdatesListctrl(NMHDR* header, LRESULT* result);
    // Messages from the sockets of the check, and from the dialog itself.
    LRESULT OnSocketStatusChanged(WPARAM socket, LPARAM status);
    LRESULT OnAutoCheck(WPARAM wParam, LPARAM lParam);
    LRESULT OnCheckFinished(WPARAM code, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    class Session;

    void EndSession();
    void ApplyOptions();
    void ShowLink(CString link);

    const CRegistryPath m_path;
    const CString m_localUpdatesFile;
    BOOL m_autoCheck;
    const CString m_helpTopic;
    CUpdateListingListCtrl m_latestUpdatesListCtrl;
    CHyperlinkCtrl m_hyperlinkCtrl;
    const std::unique_ptr<quorvel::CheckOptions> m_options;
    std::shared_ptr<Session> m_session; // not null while the dialog is open
};
