#include <quorvel/update/win/check_for_updates_dlg.h>

#include <quorvel/framework/win/data_exchange.h>
#include <quorvel/net/vask_socket.h>
#include <quorvel/res/resource_ids.h>
#include <quorvel/update/win/check_for_updates_settings_dlg.h>

#include "update/entry_text.h"
#include "update/update_check.h"
#include "update/win/update_progress_pane.h"
#include "update/windowed_check.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

IMPLEMENT_DYNAMIC(CCheckForUpdatesDlg, CVaskDialog)

BEGIN_MESSAGE_MAP(CCheckForUpdatesDlg, CVaskDialog)
ON_WM_SHOWWINDOW()
ON_WM_DESTROY()
ON_WM_ENDSESSION()
ON_BN_CLICKED(QUORVEL_UPDATES_CHECK, &CCheckForUpdatesDlg::OnBnClickedCheckButton)
ON_BN_CLICKED(QUORVEL_UPDATES_OPEN_SETTINGS, &CCheckForUpdatesDlg::OnBnClickedSettingsButton)
ON_BN_CLICKED(QUORVEL_UPDATES_RESET, &CCheckForUpdatesDlg::OnBnClickedResetButton)
ON_NOTIFY(LVN_ITEMCHANGED, QUORVEL_UPDATES_LIST,
          &CCheckForUpdatesDlg::OnLvnItemchangedLatestupdatesListctrl)
ON_MESSAGE(CVaskSocket::STATUS_MESSAGE, &CCheckForUpdatesDlg::OnSocketStatusChanged)
ON_MESSAGE(quorvel::kAutoCheckMessage, &CCheckForUpdatesDlg::OnAutoCheck)
ON_MESSAGE(quorvel::kCheckFinishedMessage, &CCheckForUpdatesDlg::OnCheckFinished)
END_MESSAGE_MAP()

class CCheckForUpdatesDlg::Session
    : public quorvel::WindowedCheck<CCheckForUpdatesDlg, quorvel::UpdateCheck> {
public:
    explicit Session(CCheckForUpdatesDlg& dialog)
        : WindowedCheck(dialog, dialog.MakeUpdateSource(), dialog.m_path,
                        dialog.m_localUpdatesFile.GetString()),
          m_smallPane(QUORVEL_DIALOG_UPDATES_CHECKING, [this] { CancelByPane(); }),
          m_largePane(QUORVEL_DIALOG_UPDATES_DOWNLOADING, [this] { CancelByPane(); }) {}

    bool CreatePanes() {
        return m_smallPane.Create(GetWindow()) && m_largePane.Create(GetWindow());
    }

    void ShowProgress(BOOL isDownload) override {
        if (GetWindow() != nullptr)
            (isDownload ? m_largePane : m_smallPane).Show();
    }
    void HideProgress() override {
        m_smallPane.Hide();
        m_largePane.Hide();
    }
    void SetProgressText(const WCHAR* text) override {
        if (GetWindow() == nullptr)
            return;
        m_smallPane.SetText(text);
        m_largePane.SetText(text);
    }
    void SetProgressFigures(ULONGLONG received, ULONGLONG expected, int,
                            const WCHAR* text) override {
        if (GetWindow() != nullptr)
            m_largePane.SetFigures(received, expected, text);
    }
    void SetPublishedText(const WCHAR* text) override { SetText(QUORVEL_UPDATES_PUBLISHED, text); }
    void SetLastCheckedText(const WCHAR* text) override {
        SetText(QUORVEL_UPDATES_LAST_CHECKED, text);
    }
    void ShowListing(const CUpdateListing& listing) override;
    bool IsFillingList() const { return m_isFillingList; } // its notifications do not count

private:
    struct Filling { // its end also after an exception
        explicit Filling(bool& isFilling) : m_isFilling(isFilling) { m_isFilling = true; }
        Filling(const Filling&) = delete;
        ~Filling() { m_isFilling = false; }
        bool& m_isFilling;
    };

    void SetText(int id, const WCHAR* text) {
        if (GetWindow() != nullptr)
            GetWindow()->SetDlgItemText(id, text);
    }
    void CancelByPane() {
        if (GetWindow() == nullptr)
            return;
        const auto session = GetWindow()->m_session; // the host may close the dialog now
        GetFlow().Cancel();
    }

    bool m_isFillingList = false;
    quorvel::UpdateProgressPane m_smallPane;
    quorvel::UpdateProgressPane m_largePane;
};

// The list gets copies of the entries, because the check replaces its own. A handler of the host
// may destroy the window, and the list with it.
void CCheckForUpdatesDlg::Session::ShowListing(const CUpdateListing& listing) {
    if (GetWindow() == nullptr)
        return;
    CUpdateListingListCtrl& list = GetWindow()->m_latestUpdatesListCtrl;
    std::vector<std::unique_ptr<CUpdateListingItem>> copies;
    for (const CUpdateListingItem& item : listing.GetItems())
        copies.push_back(std::make_unique<CUpdateListingItem>(item));
    std::vector<CVirtualListCtrlItem*> rows(copies.size());
    std::ranges::transform(copies, rows.begin(), [](auto& copy) { return copy.release(); });
    {
        const Filling filling(m_isFillingList);
        list.ShowItems(std::move(rows)); // its own now
        if (GetWindow() != nullptr && list.GetItemCount() > 0)
            list.SelectItem(0);
    }
    if (GetWindow() == nullptr)
        return;
    list.EnsureVisible(0, FALSE);
    GetWindow()->UpdateMessage(list.GetSelectedUpdateListingItem());
}

CCheckForUpdatesDlg::CCheckForUpdatesDlg(const CRegistryPath& path, const WCHAR* localUpdatesFile,
                                         BOOL autoCheck, const WCHAR* helpTopic, CWnd* parent)
    : CVaskDialog(QUORVEL_DIALOG_UPDATES, parent), m_path(path),
      m_localUpdatesFile(localUpdatesFile), m_autoCheck(autoCheck), m_helpTopic(helpTopic),
      m_options(std::make_unique<quorvel::CheckOptions>()) {
    m_latestUpdatesListCtrl.SetAutoDeleteItems();
}

CCheckForUpdatesDlg::~CCheckForUpdatesDlg() {
    EndSession();
}

void CCheckForUpdatesDlg::SetStrict(BOOL strict) {
    m_options->isStrict = strict != FALSE;
    ApplyOptions();
}

void CCheckForUpdatesDlg::SetTransport(CUpdateTransport* transport) {
    m_options->transport = transport;
    ApplyOptions();
}

BOOL CCheckForUpdatesDlg::SetPublicKey(const WCHAR* text) {
    const bool isKey = m_options->keys.SetKey(text);
    ApplyOptions();
    return isKey ? TRUE : FALSE;
}

BOOL CCheckForUpdatesDlg::AddPublicKey(const WCHAR* text) {
    const bool isKey = m_options->keys.AddKey(text);
    ApplyOptions();
    return isKey ? TRUE : FALSE;
}

void CCheckForUpdatesDlg::SetMaxAge(int days) {
    m_options->maxAge = days;
    ApplyOptions();
}

void CCheckForUpdatesDlg::SetBodyLimit(ULONGLONG bytes) {
    m_options->bodyLimit = bytes;
    ApplyOptions();
}

void CCheckForUpdatesDlg::ApplyOptions() {
    if (m_session == nullptr)
        return;
    m_session->SetOptions(*m_options);
    m_session->GetFlow().SetMaxAge(m_options->maxAge);
    m_session->GetFlow().SetBodyLimit(m_options->bodyLimit);
}

UINT CCheckForUpdatesDlg::GetTemplateID() {
    return QUORVEL_DIALOG_UPDATES;
}

CString CCheckForUpdatesDlg::GetHelpTopic() {
    return m_helpTopic;
}

void CCheckForUpdatesDlg::GetStateListCtrls(quorvel::ListPaths& lists, int) {
    lists.SetAt(&m_latestUpdatesListCtrl, m_path);
}

void CCheckForUpdatesDlg::GetBoldControlIDs(std::vector<int>& ids) {
    ids = {QUORVEL_UPDATES_LIST_LABEL, QUORVEL_UPDATES_TITLE_LABEL, QUORVEL_UPDATES_DATE_LABEL,
           QUORVEL_UPDATES_DESCRIPTION_LABEL, QUORVEL_UPDATES_LINK_LABEL};
}

void CCheckForUpdatesDlg::DoDataExchange(CDataExchange* exchange) {
    CVaskDialog::DoDataExchange(exchange);
    DDX_Control(exchange, QUORVEL_UPDATES_LIST, m_latestUpdatesListCtrl);
    DDX_Control(exchange, QUORVEL_UPDATES_LINK, m_hyperlinkCtrl);
}

BOOL CCheckForUpdatesDlg::LoadData() {
    m_latestUpdatesListCtrl.SetExtendedStyle(LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    m_latestUpdatesListCtrl.InsertColumns();
    m_hyperlinkCtrl.ModifyStyle(0, WS_TABSTOP);
    m_hyperlinkCtrl.SetFlags(CHyperlinkCtrl::HAS_URI | CHyperlinkCtrl::CAN_OPEN_URI |
                             CHyperlinkCtrl::CAN_COPY_URI);
    m_latestUpdatesListCtrl.DeleteAllItems(); // those of the last time
    UpdateMessage(nullptr);
    m_session = std::make_shared<Session>(*this);
    ApplyOptions();
    return m_session->CreatePanes();
}

// The columns' state, which is loaded at this point, determines the sort.
BOOL CCheckForUpdatesDlg::OnInitDialog() {
    if (!CVaskDialog::OnInitDialog())
        return FALSE;
    if (const auto session = m_session)
        session->GetFlow().Open();
    return TRUE;
}

std::unique_ptr<quorvel::UpdateSource> CCheckForUpdatesDlg::MakeUpdateSource() {
    return quorvel::MakeHttpSource(m_hWnd);
}

BOOL CCheckForUpdatesDlg::DestroyWindow() {
    EndSession();
    return CVaskDialog::DestroyWindow();
}

void CCheckForUpdatesDlg::OnDestroy() {
    EndSession();
    CVaskDialog::OnDestroy();
}

// The process ends after this message and sends no other one.
void CCheckForUpdatesDlg::OnEndSession(BOOL isEnding) {
    if (isEnding)
        EndSession();
    CVaskDialog::OnEndSession(isEnding);
}

void CCheckForUpdatesDlg::EndSession() {
    if (const auto session = std::exchange(m_session, nullptr))
        session->Leave();
}

BOOL CCheckForUpdatesDlg::LoadLocalUpdatesFile(BOOL showsError) {
    const auto session = m_session;
    return session != nullptr && session->GetFlow().LoadListing(showsError != FALSE);
}

void CCheckForUpdatesDlg::UpdateLastCheckedText(COleDateTime lastChecked) {
    SetDlgItemText(QUORVEL_UPDATES_LAST_CHECKED, quorvel::LastCheckedText(lastChecked));
}

void CCheckForUpdatesDlg::UpdatePublishedText(COleDateTime published) {
    SetDlgItemText(QUORVEL_UPDATES_PUBLISHED,
                   quorvel::PublishedText(published, m_localUpdatesFile));
}

void CCheckForUpdatesDlg::UpdateMessage(CUpdateListingItem* item) {
    CString title;
    CString date;
    CString description;
    CString link;
    if (item != nullptr) {
        title = quorvel::OneLineText(item->GetTitle());
        date = item->GetSubItemText(CUpdateListingItem::COLUMN_DATE);
        description = quorvel::MultilineText(item->GetDescription());
        link = item->GetLink();
    }
    const auto show = [this](int id, const CString& text) {
        CString shown;
        GetDlgItemText(id, shown);
        if (text != shown) // the controls draw themselves again even if it is the same
            SetDlgItemText(id, text);
    };
    show(QUORVEL_UPDATES_TITLE, title);
    show(QUORVEL_UPDATES_DATE, date);
    show(QUORVEL_UPDATES_DESCRIPTION, description);
    ShowLink(link);
}

// A disabled link has no menu. What is opened is the link as it was published, however it is shown.
void CCheckForUpdatesDlg::ShowLink(CString link) {
    link.Trim();
    m_hyperlinkCtrl.ClearURI();
    const BOOL isLink = m_hyperlinkCtrl.SetURI(link);
    if (!isLink && ::GetFocus() == m_hyperlinkCtrl.m_hWnd) // or the dialog would get no keys
        m_latestUpdatesListCtrl.SetFocus();
    m_hyperlinkCtrl.EnableWindow(isLink);
    m_hyperlinkCtrl.SetDisplayText(quorvel::OneLineText(link));
    m_hyperlinkCtrl.ShowWindow(link.IsEmpty() ? SW_HIDE : SW_SHOWNA);
}

void CCheckForUpdatesDlg::OnShowWindow(BOOL show, UINT status) {
    CVaskDialog::OnShowWindow(show, status);
    if (show && std::exchange(m_autoCheck, FALSE))
        ::PostMessageW(m_hWnd, quorvel::kAutoCheckMessage, 0, 0);
}

// A window that is only hidden then must not continue its check.
void CCheckForUpdatesDlg::OnCancel() {
    if (const auto session = m_session)
        session->GetFlow().Cancel();
    if (m_hWnd != nullptr) // a host may have closed it
        CVaskDialog::OnCancel();
}

// The calls below may destroy the dialog, so nothing may follow them.

void CCheckForUpdatesDlg::OnBnClickedCheckButton() {
    if (const auto session = m_session)
        session->GetFlow().Check();
}

void CCheckForUpdatesDlg::OnBnClickedResetButton() {
    if (const auto session = m_session)
        session->GetFlow().Reset();
}

void CCheckForUpdatesDlg::OnBnClickedSettingsButton() {
    CCheckForUpdatesSettingsDlg(m_path, this).DoModal();
}

LRESULT CCheckForUpdatesDlg::OnSocketStatusChanged(WPARAM socket, LPARAM status) {
    if (const auto session = m_session)
        session->OnSocketStatus(socket, status);
    return 0;
}

LRESULT CCheckForUpdatesDlg::OnAutoCheck(WPARAM, LPARAM) {
    OnBnClickedCheckButton();
    return 0;
}

LRESULT CCheckForUpdatesDlg::OnCheckFinished(WPARAM code, LPARAM) {
    if (const auto session = m_session)
        session->GetFlow().OnCheckFinished(static_cast<DWORD>(code));
    return 0;
}

void CCheckForUpdatesDlg::OnLvnItemchangedLatestupdatesListctrl(NMHDR* header, LRESULT* result) {
    *result = 0;
    const NMLISTVIEW& change = *reinterpret_cast<const NMLISTVIEW*>(header);
    const bool isSelection = ((change.uNewState ^ change.uOldState) & LVIS_SELECTED) != 0;
    if (isSelection && (m_session == nullptr || !m_session->IsFillingList()))
        UpdateMessage(m_latestUpdatesListCtrl.GetSelectedUpdateListingItem());
}
