#include <quorvel/controls/win/vask_dialog.h>

#include <quorvel/res/resource_ids.h>

#include "controls/win/field_validation.h"
#include "frame/win/help_target.h"

using quorvel::FieldValidation;
using quorvel::StateControls;

IMPLEMENT_DYNAMIC(CVaskDialog, CDialog)

BEGIN_MESSAGE_MAP(CVaskDialog, CDialog)
ON_WM_DESTROY()
ON_WM_MOVE()
ON_WM_SETCURSOR()
ON_WM_HELPINFO()
ON_WM_SETTINGCHANGE()
ON_MESSAGE(WM_KICKIDLE, &CVaskDialog::OnKickIdle)
ON_MESSAGE(quorvel::kChildSetFocusMessage, &CVaskDialog::OnChildSetFocus)
ON_UPDATE_COMMAND_UI(IDOK, &CVaskDialog::OnUpdateOK)
END_MESSAGE_MAP()

CVaskDialog::CVaskDialog() : m_balloon(std::make_unique<quorvel::ValidationBalloon>()) {}

CVaskDialog::CVaskDialog(const WCHAR* templateName, CWnd* parent)
    : CDialog(templateName, parent), m_balloon(std::make_unique<quorvel::ValidationBalloon>()) {}

CVaskDialog::CVaskDialog(UINT templateId, CWnd* parent)
    : CVaskDialog(MAKEINTRESOURCEW(templateId), parent) {}

CVaskDialog::~CVaskDialog() = default;

void CVaskDialog::TakeTemplate() {
    if (m_lpszTemplateName != nullptr)
        return;
    if (const UINT id = GetTemplateID(); id != 0)
        m_lpszTemplateName = MAKEINTRESOURCEW(id);
}

INT_PTR CVaskDialog::DoModal() {
    TakeTemplate();
    return CDialog::DoModal();
}

BOOL CVaskDialog::Create(CWnd* parent) {
    TakeTemplate();
    return CDialog::Create(m_lpszTemplateName, parent);
}

void CVaskDialog::SetBusy(BOOL isBusy) {
    m_isBusy = isBusy;
    if (m_hWnd != nullptr)
        UpdateDialogControls(this, FALSE);
}

void CVaskDialog::UpdateFonts() {
    FieldValidation::UpdateFonts(*this, m_boldFont);
}

BOOL CVaskDialog::ValidateAndSaveData() {
    return FieldValidation::ValidateAndSave(*this);
}

BOOL CVaskDialog::ShowValidationErrorMessage(UINT icon, const WCHAR* title, const WCHAR* text,
                                             const CRect& rect) {
    return m_balloon->Show(icon, title, text, rect);
}

BOOL CVaskDialog::HideValidationErrorMessage() {
    return m_balloon->Hide();
}

BOOL CVaskDialog::IsValidationErrorMessageShowing() const {
    return m_balloon->IsShowing();
}

UINT CVaskDialog::GetTemplateID() {
    return m_lpszTemplateName != nullptr && IS_INTRESOURCE(m_lpszTemplateName)
               ? static_cast<UINT>(reinterpret_cast<ULONG_PTR>(m_lpszTemplateName))
               : 0;
}

CString CVaskDialog::GetHelpTopic() {
    return {};
}

void CVaskDialog::GetStateAutoCompleteEditCtrls(quorvel::EditKeys&, int) {}
void CVaskDialog::GetStateAutoCompleteEditCtrls(quorvel::EditSections&, int) {}
void CVaskDialog::GetStateListCtrls(quorvel::ListKeys&, int) {}
void CVaskDialog::GetStateListCtrls(quorvel::ListSections&, int) {}
void CVaskDialog::GetStateListCtrls(quorvel::ListPaths&, int) {}

void CVaskDialog::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
}

BOOL CVaskDialog::OnIdle(LONG) {
    return FALSE;
}

void CVaskDialog::PreLoadStateControls() {}
void CVaskDialog::PostLoadStateControls() {}
void CVaskDialog::PreSaveStateControls() {}
void CVaskDialog::PostSaveStateControls() {}

BOOL CVaskDialog::ValidateData(UINT&, CString&, CString&, CRect&) {
    return TRUE;
}

BOOL CVaskDialog::IsOK() {
    return TRUE;
}

BOOL CVaskDialog::SaveData() {
    return TRUE;
}

BOOL CVaskDialog::LoadData() {
    return TRUE;
}

void CVaskDialog::GetBoldControlIDs(std::vector<int>&) {}
void CVaskDialog::GetDialogPageTreeCtrls(std::vector<CWnd*>&) {}

BOOL CVaskDialog::OnInitDialog() {
    const BOOL setsFocus = CDialog::OnInitDialog();
    UpdateDialogControls(this, FALSE);
    if (CString caption; m_captionId != 0 && caption.LoadString(m_captionId))
        SetWindowText(caption);
    m_firstButton.SubclassDlgItem(QUORVEL_DIALOG_BUTTON_1, this);
    m_secondButton.SubclassDlgItem(QUORVEL_DIALOG_BUTTON_2, this);
    UpdateFonts();
    m_balloon->Create(m_hWnd);
    if (!LoadData()) {
        EndDialog(-1);
        return setsFocus;
    }
    LoadStateControls(); // after LoadData, which makes a list's columns
    UpdateDialogControls(this, FALSE);
    return setsFocus;
}

void CVaskDialog::OnOK() {
    if (!m_isBusy && IsOK() && UpdateData(TRUE) && ValidateAndSaveData())
        EndDialog(IDOK);
}

void CVaskDialog::LoadStateControls() {
    StateControls::Load(*this);
    m_areStatesLoaded = true;
}

BOOL CVaskDialog::SaveStateControls() {
    if (!m_areStatesLoaded)
        return FALSE;
    StateControls::Save(*this);
    return TRUE;
}

void CVaskDialog::OnDestroy() {
    HideValidationErrorMessage();
    SaveStateControls();
    m_areStatesLoaded = false;
    m_balloon->Forget();
    CDialog::OnDestroy();
}

void CVaskDialog::OnMove(int x, int y) {
    CDialog::OnMove(x, y);
    m_balloon->Follow();
}

BOOL CVaskDialog::OnSetCursor(CWnd* wnd, UINT hitTest, UINT message) {
    if (!m_isBusy)
        return CDialog::OnSetCursor(wnd, hitTest, message);
    ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
    return TRUE;
}

BOOL CVaskDialog::OnHelpInfo(HELPINFO* info) {
    const CString topic = GetHelpTopic();
    if (topic.IsEmpty())
        return CDialog::OnHelpInfo(info);
    quorvel::OpenHelpTarget(m_hWnd, topic);
    return TRUE;
}

void CVaskDialog::OnSettingChange(UINT flags, const WCHAR* section) {
    CDialog::OnSettingChange(flags, section);
    UpdateFonts();
}

LRESULT CVaskDialog::OnKickIdle(WPARAM wParam, LPARAM lParam) {
    const LRESULT wantsMore = CDialog::OnKickIdle(wParam, lParam);
    return OnIdle(static_cast<LONG>(lParam)) || wantsMore;
}

LRESULT CVaskDialog::OnChildSetFocus(WPARAM, LPARAM) {
    HideValidationErrorMessage(); // which may be hidden already
    return 0;
}

void CVaskDialog::OnUpdateOK(CCmdUI* ui) {
    ui->Enable(!m_isBusy && IsOK());
}
