#include <quorvel/controls/win/vask_property_page.h>

#include "controls/win/field_validation.h"
#include "frame/win/help_target.h"

#include <prsht.h>

#include <utility>

using quorvel::FieldValidation;
using quorvel::StateControls;
using quorvel::StillHasWindow;

IMPLEMENT_DYNAMIC(CVaskPropertyPage, CPropertyPage)

BEGIN_MESSAGE_MAP(CVaskPropertyPage, CPropertyPage)
ON_WM_DESTROY()
ON_WM_HELPINFO()
ON_WM_SETTINGCHANGE()
ON_MESSAGE(quorvel::kChildSetFocusMessage, &CVaskPropertyPage::OnChildSetFocus)
ON_MESSAGE(quorvel::kShowRefusalMessage, &CVaskPropertyPage::OnShowRefusal)
END_MESSAGE_MAP()

HHOOK CVaskPropertyPage::m_hookValidation = nullptr;
quorvel::ActiveValidations CVaskPropertyPage::m_mapActive(m_hookValidation, &ValidationHookProc);

LRESULT CALLBACK CVaskPropertyPage::ValidationHookProc(int code, WPARAM wParam, LPARAM lParam) {
    return m_mapActive.PassOn(code, wParam, lParam);
}

CVaskPropertyPage::CVaskPropertyPage(UINT templateId, UINT captionTextId, UINT headerTitleId,
                                     UINT headerSubTitleId)
    : CPropertyPage(templateId, captionTextId, headerTitleId, headerSubTitleId),
      m_balloon(std::make_unique<quorvel::ValidationBalloon>(m_mapActive)) {}

CVaskPropertyPage::CVaskPropertyPage(const WCHAR* templateName, UINT captionTextId)
    : CPropertyPage(templateName, captionTextId),
      m_balloon(std::make_unique<quorvel::ValidationBalloon>(m_mapActive)) {}

CVaskPropertyPage::~CVaskPropertyPage() = default;

void CVaskPropertyPage::UpdateFonts() {
    FieldValidation::UpdateFonts(*this, m_boldFont, m_boldIds);
}

BOOL CVaskPropertyPage::ValidateAndSaveData() {
    return FieldValidation::ValidateAndSave(*this);
}

BOOL CVaskPropertyPage::CreateValidationToolTipWindow() {
    return m_balloon->Create(m_hWnd);
}

BOOL CVaskPropertyPage::ShowValidationErrorMessage(UINT icon, const WCHAR* title, const WCHAR* text,
                                                   const CRect& rect) {
    if (m_hWnd == nullptr || IsWindowVisible() || title == nullptr || text == nullptr)
        return m_balloon->Show(icon, title, text, rect);
    // The sheet brings the page that refused OK to the front and gives it the focus.
    m_refusal = std::make_unique<quorvel::Refusal>(quorvel::Refusal{icon, title, text, rect});
    return PostMessage(quorvel::kShowRefusalMessage);
}

LRESULT CVaskPropertyPage::OnShowRefusal(WPARAM, LPARAM) {
    const auto refusal = std::move(m_refusal);
    if (refusal != nullptr && IsWindowVisible())
        m_balloon->Show(refusal->icon, refusal->title, refusal->text, refusal->rect);
    return 0;
}

BOOL CVaskPropertyPage::HideValidationErrorMessage() {
    return m_balloon->Hide();
}

BOOL CVaskPropertyPage::IsValidationErrorMessageShowing() const {
    return m_balloon->IsShowing();
}

BOOL CVaskPropertyPage::ClosePropertySheet() {
    const HWND sheet = ::GetParent(m_hWnd);
    return m_hWnd != nullptr && sheet != nullptr &&
           ::PostMessageW(sheet, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
}

CString CVaskPropertyPage::GetHelpTopic() {
    return {};
}

void CVaskPropertyPage::GetStateAutoCompleteEditCtrls(quorvel::EditKeys&, int) {}
void CVaskPropertyPage::GetStateAutoCompleteEditCtrls(quorvel::EditSections&, int) {}
void CVaskPropertyPage::GetStateListCtrls(quorvel::ListKeys&, int) {}
void CVaskPropertyPage::GetStateListCtrls(quorvel::ListSections&, int) {}
void CVaskPropertyPage::GetStateListCtrls(quorvel::ListPaths&, int) {}
void CVaskPropertyPage::PreLoadStateControls() {}
void CVaskPropertyPage::PostLoadStateControls() {}
void CVaskPropertyPage::PreSaveStateControls() {}
void CVaskPropertyPage::PostSaveStateControls() {}

BOOL CVaskPropertyPage::ValidateData(UINT&, CString&, CString&, CRect&) {
    return TRUE;
}

BOOL CVaskPropertyPage::IsApplyOK() {
    return TRUE;
}

BOOL CVaskPropertyPage::SaveData() {
    return TRUE;
}

BOOL CVaskPropertyPage::LoadData() {
    return TRUE;
}

void CVaskPropertyPage::GetBoldControlIDs(std::vector<int>&) {}

BOOL CVaskPropertyPage::OnInitDialog() {
    m_areStatesLoaded = false;
    m_leaving = Leaving::Validated;
    if (!CPropertyPage::OnInitDialog())
        return FALSE; // the page is like one whose LoadData failed
    UpdateFonts();
    CreateValidationToolTipWindow();
    const HWND window = m_hWnd;
    const BOOL isLoaded = LoadData();
    if (!StillHasWindow(this, window))
        return FALSE;
    SetLoaded(isLoaded && UpdateData(FALSE)); // shows the values that LoadData has set
    if (m_isLoaded)
        LoadStateControls(); // after LoadData, which creates a list's columns
    return TRUE;
}

void CVaskPropertyPage::LoadStateControls() {
    if (StateControls::Load(*this))
        m_areStatesLoaded = true;
}

BOOL CVaskPropertyPage::SaveStateControls() {
    if (!m_areStatesLoaded)
        return FALSE;
    StateControls::Save(*this);
    return TRUE;
}

BOOL CVaskPropertyPage::OnSetActive() {
    // After Back, the page's controls show input that the exchange has not read yet.
    return std::exchange(m_leaving, Leaving::Validated) == Leaving::Back ||
           CPropertyPage::OnSetActive();
}

BOOL CVaskPropertyPage::OnKillActive() {
    HideValidationErrorMessage();
    // Back does not require a finished page, and saved data are not validated a second time.
    if (m_leaving != Leaving::Validated || !m_isLoaded)
        return TRUE;
    return CPropertyPage::OnKillActive() && FieldValidation::Validate(*this);
}

// Done here and not in the handlers, because a derived class may override these.
BOOL CVaskPropertyPage::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (!CPropertyPage::OnNotify(wParam, lParam, result))
        return FALSE;
    const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
    if (code == PSN_WIZBACK)
        m_leaving = Leaving::Back;
    const bool isAnswer = code == PSN_WIZBACK || code == PSN_WIZNEXT || code == PSN_KILLACTIVE;
    const bool isRefused = code == PSN_KILLACTIVE ? *result != 0 : *result == -1;
    if (isAnswer && isRefused)
        m_leaving = Leaving::Validated;
    return TRUE;
}

BOOL CVaskPropertyPage::Accept() {
    m_leaving = Leaving::Validated;
    return !m_isLoaded || ValidateAndSaveData();
}

BOOL CVaskPropertyPage::OnApply() {
    return IsApplyOK() && Accept() && CPropertyPage::OnApply();
}

LRESULT CVaskPropertyPage::OnWizardNext() {
    if (!Accept())
        return -1;
    m_leaving = Leaving::Saved;
    return CPropertyPage::OnWizardNext();
}

BOOL CVaskPropertyPage::OnWizardFinish() {
    return Accept() && CPropertyPage::OnWizardFinish();
}

void CVaskPropertyPage::OnDestroy() {
    m_balloon->Forget();
    m_refusal.reset();
    m_isLoaded = FALSE;
    CPropertyPage::OnDestroy();
    if (std::exchange(m_areStatesLoaded, false)) // last, because a hook may throw
        StateControls::Save(*this);
}

BOOL CVaskPropertyPage::HasHelp() {
    return !GetHelpTopic().IsEmpty();
}

void CVaskPropertyPage::OnHelp() {
    if (const CString topic = GetHelpTopic(); !topic.IsEmpty())
        quorvel::OpenHelpTarget(m_hWnd, topic);
}

BOOL CVaskPropertyPage::OnHelpInfo(HELPINFO* info) {
    if (!HasHelp())
        return CPropertyPage::OnHelpInfo(info);
    OnHelp();
    return TRUE;
}

void CVaskPropertyPage::OnSettingChange(UINT flags, const WCHAR* section) {
    CPropertyPage::OnSettingChange(flags, section);
    UpdateFonts();
}

LRESULT CVaskPropertyPage::OnChildSetFocus(WPARAM, LPARAM balloonNumber) {
    m_balloon->OnFocusChange(balloonNumber);
    return 0;
}
