#include <quorvel/controls/win/vask_dialog.h>

#include <quorvel/res/resource_ids.h>

#include "controls/win/field_validation.h"
#include "frame/win/help_target.h"

#include <utility>

using quorvel::FieldValidation;
using quorvel::StateControls;
using quorvel::StillHasWindow;

IMPLEMENT_DYNAMIC(CVaskDialog, CDialog)

BEGIN_MESSAGE_MAP(CVaskDialog, CDialog)
ON_WM_DESTROY()
ON_WM_MOVE()
ON_WM_SHOWWINDOW()
ON_MESSAGE(WM_ACTIVATEAPP, &CVaskDialog::OnActivateProgram)
ON_WM_SETCURSOR()
ON_WM_HELPINFO()
ON_COMMAND(IDHELP, &CVaskDialog::OnHelp)
ON_WM_SETTINGCHANGE()
ON_MESSAGE(WM_KICKIDLE, &CVaskDialog::OnKickIdle)
ON_MESSAGE(quorvel::kChildSetFocusMessage, &CVaskDialog::OnChildSetFocus)
ON_UPDATE_COMMAND_UI(IDOK, &CVaskDialog::OnUpdateOK)
END_MESSAGE_MAP()

HHOOK CVaskDialog::m_hookValidation = nullptr;
quorvel::ActiveValidations CVaskDialog::m_mapActiveValidation(m_hookValidation,
                                                              &ValidationHookProc);

LRESULT CALLBACK CVaskDialog::ValidationHookProc(int code, WPARAM wParam, LPARAM lParam) {
    return m_mapActiveValidation.PassOn(code, wParam, lParam);
}

CVaskDialog::CVaskDialog() : CVaskDialog(static_cast<const WCHAR*>(nullptr)) {}

CVaskDialog::CVaskDialog(const WCHAR* templateName, CWnd* parent)
    : CDialog(templateName, parent),
      m_balloon(std::make_unique<quorvel::ValidationBalloon>(m_mapActiveValidation)) {}

CVaskDialog::CVaskDialog(UINT templateId, CWnd* parent)
    : CVaskDialog(MAKEINTRESOURCEW(templateId), parent) {}

CVaskDialog::~CVaskDialog() = default;

void CVaskDialog::TakeTemplate() {
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
    FieldValidation::UpdateFonts(*this, m_boldFont, m_boldIds);
}

BOOL CVaskDialog::ValidateAndSaveData() {
    return FieldValidation::ValidateAndSave(*this);
}

BOOL CVaskDialog::CreateValidationToolTipWindow() {
    return m_balloon->Create(m_hWnd);
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
    m_areStatesLoaded = false;
    m_isSaving = false; // if the former window was destroyed while OK saved
    if (!CDialog::OnInitDialog())
        return FALSE; // it has closed the dialog
    UpdateDialogControls(this, FALSE);
    if (CString caption; m_captionId != 0 && caption.LoadString(m_captionId))
        SetWindowText(caption);
    m_firstButton.SubclassDlgItem(QUORVEL_DIALOG_BUTTON_1, this);
    m_secondButton.SubclassDlgItem(QUORVEL_DIALOG_BUTTON_2, this);
    UpdateFonts();
    CreateValidationToolTipWindow();
    const HWND window = m_hWnd;
    const BOOL isLoaded = LoadData();
    if (!StillHasWindow(this, window))
        return FALSE;
    if (!isLoaded || !UpdateData(FALSE)) { // shows the values that LoadData has set
        EndDialog(-1);
        return FALSE;
    }
    LoadStateControls(); // after LoadData, which creates a list's columns
    if (!StillHasWindow(this, window))
        return FALSE;
    UpdateDialogControls(this, FALSE);
    return TRUE;
}

// SaveData may handle messages, which may press OK again, cancel, or destroy the dialog.
void CVaskDialog::OnOK() {
    if (m_isBusy || m_isSaving || !IsOK())
        return;
    struct Saving {
        explicit Saving(CVaskDialog* dialog) : m_dialog(dialog), m_window(dialog->m_hWnd) {
            m_dialog->m_isSaving = true;
        }
        ~Saving() {
            if (IsThere())
                m_dialog->m_isSaving = false;
        }
        bool IsThere() const { return StillHasWindow(m_dialog, m_window); }
        CVaskDialog* const m_dialog;
        const HWND m_window;
    };
    const Saving saving(this);
    if (ValidateAndSaveData() && saving.IsThere())
        EndDialog(IDOK);
}

void CVaskDialog::OnCancel() {
    if (!m_isSaving)
        CDialog::OnCancel();
}

void CVaskDialog::LoadStateControls() {
    if (StateControls::Load(*this))
        m_areStatesLoaded = true;
}

BOOL CVaskDialog::SaveStateControls() {
    if (!m_areStatesLoaded)
        return FALSE;
    StateControls::Save(*this);
    return TRUE;
}

void CVaskDialog::OnDestroy() {
    m_balloon->Forget();
    CDialog::OnDestroy();
    if (std::exchange(m_areStatesLoaded, false)) // last, because a hook may throw
        StateControls::Save(*this);
}

void CVaskDialog::OnMove(int x, int y) {
    CDialog::OnMove(x, y);
    m_balloon->Follow();
}

void CVaskDialog::OnShowWindow(BOOL isShown, UINT status) {
    CDialog::OnShowWindow(isShown, status);
    if (!isShown)
        HideValidationErrorMessage(); // a separate window, which would stay
}

LRESULT CVaskDialog::OnActivateProgram(WPARAM isActive, LPARAM) {
    if (!isActive)
        HideValidationErrorMessage(); // it is above the windows of all programs
    return Default();
}

BOOL CVaskDialog::OnSetCursor(CWnd* wnd, UINT hitTest, UINT message) {
    if (!m_isBusy)
        return CDialog::OnSetCursor(wnd, hitTest, message);
    ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
    return TRUE;
}

BOOL CVaskDialog::OnHelpInfo(HELPINFO* info) {
    if (GetHelpTopic().IsEmpty())
        return CDialog::OnHelpInfo(info);
    OnHelp();
    return TRUE;
}

void CVaskDialog::OnHelp() {
    if (const CString topic = GetHelpTopic(); !topic.IsEmpty())
        quorvel::OpenHelpTarget(m_hWnd, topic);
}

void CVaskDialog::OnSettingChange(UINT flags, const WCHAR* section) {
    CDialog::OnSettingChange(flags, section);
    UpdateFonts();
}

LRESULT CVaskDialog::OnKickIdle(WPARAM wParam, LPARAM lParam) {
    const HWND window = m_hWnd;
    const LRESULT wantsMore = CDialog::OnKickIdle(wParam, lParam);
    if (!StillHasWindow(this, window))
        return FALSE;
    return OnIdle(static_cast<LONG>(lParam)) || wantsMore;
}

LRESULT CVaskDialog::OnChildSetFocus(WPARAM, LPARAM balloonNumber) {
    m_balloon->OnFocusChange(balloonNumber);
    return 0;
}

void CVaskDialog::OnUpdateOK(CCmdUI* ui) {
    ui->Enable(!m_isBusy && !m_isSaving && IsOK());
}
