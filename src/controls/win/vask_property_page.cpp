#include <quorvel/controls/win/vask_property_page.h>

#include "controls/win/field_validation.h"
#include "frame/win/help_target.h"

#include <prsht.h>

using quorvel::FieldValidation;
using quorvel::StateControls;

IMPLEMENT_DYNAMIC(CVaskPropertyPage, CPropertyPage)

BEGIN_MESSAGE_MAP(CVaskPropertyPage, CPropertyPage)
ON_WM_DESTROY()
ON_WM_HELPINFO()
ON_WM_SETTINGCHANGE()
ON_MESSAGE(quorvel::kChildSetFocusMessage, &CVaskPropertyPage::OnChildSetFocus)
END_MESSAGE_MAP()

CVaskPropertyPage::CVaskPropertyPage(UINT templateId, UINT captionTextId)
    : CPropertyPage(templateId, captionTextId),
      m_balloon(std::make_unique<quorvel::ValidationBalloon>()) {}

CVaskPropertyPage::~CVaskPropertyPage() = default;

void CVaskPropertyPage::UpdateFonts() {
    FieldValidation::UpdateFonts(*this, m_boldFont);
}

BOOL CVaskPropertyPage::ValidateAndSaveData() {
    return FieldValidation::ValidateAndSave(*this);
}

BOOL CVaskPropertyPage::ShowValidationErrorMessage(UINT icon, const WCHAR* title, const WCHAR* text,
                                                   const CRect& rect) {
    return m_balloon->Show(icon, title, text, rect);
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
    const BOOL setsFocus = CPropertyPage::OnInitDialog();
    UpdateFonts();
    m_balloon->Create(m_hWnd);
    SetLoaded(LoadData());
    StateControls::Load(*this); // after LoadData, which makes a list's columns
    m_areStatesLoaded = true;
    return setsFocus;
}

BOOL CVaskPropertyPage::OnSetActive() {
    m_isGoingBack = false;
    return CPropertyPage::OnSetActive();
}

BOOL CVaskPropertyPage::OnKillActive() {
    HideValidationErrorMessage();
    if (m_isGoingBack) // what is not finished yet must not hold the user here
        return TRUE;
    return CPropertyPage::OnKillActive() && (!m_isLoaded || FieldValidation::Validate(*this));
}

BOOL CVaskPropertyPage::Accept() {
    HideValidationErrorMessage();
    return !m_isLoaded || (UpdateData(TRUE) && ValidateAndSaveData());
}

BOOL CVaskPropertyPage::OnApply() {
    return IsApplyOK() && Accept() && CPropertyPage::OnApply();
}

LRESULT CVaskPropertyPage::OnWizardNext() {
    return Accept() ? CPropertyPage::OnWizardNext() : -1;
}

LRESULT CVaskPropertyPage::OnWizardBack() {
    const LRESULT page = CPropertyPage::OnWizardBack();
    m_isGoingBack = page != -1;
    return page;
}

BOOL CVaskPropertyPage::OnWizardFinish() {
    return Accept() && CPropertyPage::OnWizardFinish();
}

void CVaskPropertyPage::OnDestroy() {
    HideValidationErrorMessage();
    if (m_areStatesLoaded)
        StateControls::Save(*this);
    m_areStatesLoaded = false;
    m_isLoaded = FALSE;
    m_balloon->Forget();
    CPropertyPage::OnDestroy();
}

BOOL CVaskPropertyPage::OnHelpInfo(HELPINFO* info) {
    const CString topic = GetHelpTopic();
    if (topic.IsEmpty())
        return CPropertyPage::OnHelpInfo(info);
    quorvel::OpenHelpTarget(m_hWnd, topic);
    return TRUE;
}

void CVaskPropertyPage::OnSettingChange(UINT flags, const WCHAR* section) {
    CPropertyPage::OnSettingChange(flags, section);
    UpdateFonts();
}

LRESULT CVaskPropertyPage::OnChildSetFocus(WPARAM, LPARAM) {
    HideValidationErrorMessage(); // which may be hidden already
    return 0;
}
