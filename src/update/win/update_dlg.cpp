#include <quorvel/update/win/update_dlg.h>

#include <quorvel/framework/win/data_exchange.h>
#include <quorvel/net/vask_socket.h>
#include <quorvel/res/resource_ids.h>

#include "framework/win/dialog_template.h"
#include "update/version_check.h"
#include "update/windowed_check.h"

#include <utility>

IMPLEMENT_DYNAMIC(CUpdateDlg, CVaskDialog)

BEGIN_MESSAGE_MAP(CUpdateDlg, CVaskDialog)
ON_WM_DESTROY()
ON_WM_ENDSESSION()
ON_MESSAGE(CVaskSocket::STATUS_MESSAGE, &CUpdateDlg::OnSocketStatusChanged)
ON_MESSAGE(quorvel::kAutoCheckMessage, &CUpdateDlg::OnCheckForUpdates)
ON_MESSAGE(quorvel::kCheckFinishedMessage, &CUpdateDlg::OnCheckFinished)
END_MESSAGE_MAP()

class CUpdateDlg::Session : public quorvel::WindowedCheck<CUpdateDlg, quorvel::VersionCheck> {
public:
    explicit Session(CUpdateDlg& dialog)
        : WindowedCheck(dialog, dialog.MakeUpdateSource(), dialog.m_path, dialog.m_currentVersion) {
    }

    bool IsLeft() const { return GetWindow() == nullptr; }

    // It stays the active window, so that the box of the outcome belongs to it.
    void HideProgress() override {
        if (GetWindow() != nullptr)
            quorvel::HideBeforeOwner(GetWindow()->m_hWnd);
    }
    int ShowMessage(const WCHAR* text, UINT type) override {
        if (!GetFlow().IsActive()) // otherwise the box refuses a second check, and the first one
                                   // continues
            HideProgress();
        return WindowedCheck::ShowMessage(text, type);
    }
    void OnFinished(Result) override {
        if (GetWindow() != nullptr)
            GetWindow()->OnCancel();
    }
};

CUpdateDlg::CUpdateDlg(UINT captionId, CRegistryPath path, CVersionNumber currentVersion,
                       CWnd* parent)
    : CVaskDialog(QUORVEL_DIALOG_NEW_VERSION, parent), m_path(path),
      m_currentVersion(currentVersion), m_options(std::make_unique<quorvel::CheckOptions>()) {
    SetCaptionID(captionId);
}

CUpdateDlg::~CUpdateDlg() {
    EndSession();
}

void CUpdateDlg::SetStrict(BOOL strict) {
    m_options->isStrict = strict != FALSE;
    ApplyOptions();
}

void CUpdateDlg::SetTransport(CUpdateTransport* transport) {
    m_options->transport = transport;
    ApplyOptions();
}

BOOL CUpdateDlg::SetPublicKey(const WCHAR* text) {
    const bool isKey = m_options->keys.SetKey(text);
    ApplyOptions();
    return isKey ? TRUE : FALSE;
}

BOOL CUpdateDlg::AddPublicKey(const WCHAR* text) {
    const bool isKey = m_options->keys.AddKey(text);
    ApplyOptions();
    return isKey ? TRUE : FALSE;
}

void CUpdateDlg::ApplyOptions() {
    if (m_session == nullptr)
        return;
    m_session->SetOptions(*m_options);
}

UINT CUpdateDlg::GetTemplateID() {
    return QUORVEL_DIALOG_NEW_VERSION;
}

void CUpdateDlg::DoDataExchange(CDataExchange* exchange) {
    CVaskDialog::DoDataExchange(exchange);
    DDX_Control(exchange, QUORVEL_UPDATES_PROGRESS_TEXT, m_status);
    DDX_Control(exchange, QUORVEL_UPDATES_PROGRESS_BAR, m_progress);
}

BOOL CUpdateDlg::LoadData() {
    m_session = std::make_shared<Session>(*this);
    ApplyOptions();
    return TRUE;
}

BOOL CUpdateDlg::OnInitDialog() {
    if (!CVaskDialog::OnInitDialog())
        return FALSE;
    m_progress.Start();
    ::PostMessageW(m_hWnd, quorvel::kAutoCheckMessage, 0, 0);
    return TRUE;
}

std::unique_ptr<quorvel::UpdateSource> CUpdateDlg::MakeUpdateSource() {
    return quorvel::MakeHttpSource(m_hWnd);
}

BOOL CUpdateDlg::SetStatus(const WCHAR* text) {
    if (text == nullptr || m_hWnd == nullptr)
        return FALSE;
    return m_status.SetWindowText(text);
}

BOOL CUpdateDlg::SetStatus(UINT stringId) {
    CString text;
    return text.LoadString(stringId) && SetStatus(text.GetString());
}

// Calls into a check may destroy the dialog: afterwards only the session knows whether it exists.
BOOL CUpdateDlg::CheckForUpdates() {
    const auto session = m_session;
    if (session == nullptr)
        return FALSE;
    if (session->GetFlow().Check())
        return TRUE;
    if (!session->IsLeft() && !session->GetFlow().IsActive())
        OnCancel();
    return FALSE;
}

void CUpdateDlg::Close() {
    if (const auto session = m_session)
        session->GetFlow().Cancel();
}

void CUpdateDlg::OnOK() {}

void CUpdateDlg::OnCancel() {
    Close();
    CVaskDialog::OnCancel();
}

BOOL CUpdateDlg::DestroyWindow() {
    EndSession();
    return CVaskDialog::DestroyWindow();
}

void CUpdateDlg::OnDestroy() {
    EndSession();
    CVaskDialog::OnDestroy();
}

// The process ends after this message and sends no other one.
void CUpdateDlg::OnEndSession(BOOL isEnding) {
    if (isEnding)
        EndSession();
    CVaskDialog::OnEndSession(isEnding);
}

void CUpdateDlg::EndSession() {
    if (const auto session = std::exchange(m_session, nullptr))
        session->Leave();
}

LRESULT CUpdateDlg::OnSocketStatusChanged(WPARAM socket, LPARAM status) {
    if (const auto session = m_session)
        session->OnSocketStatus(socket, status);
    return 0;
}

LRESULT CUpdateDlg::OnCheckForUpdates(WPARAM, LPARAM) {
    CheckForUpdates();
    return 0;
}

LRESULT CUpdateDlg::OnCheckFinished(WPARAM code, LPARAM) {
    if (const auto session = m_session)
        session->GetFlow().OnCheckFinished(static_cast<DWORD>(code));
    return 0;
}
