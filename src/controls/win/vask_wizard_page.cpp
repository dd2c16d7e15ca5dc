#include <quorvel/controls/win/vask_wizard_page.h>

#include <quorvel/controls/win/vask_wizard.h>

#include "controls/wizard_model.h"

IMPLEMENT_DYNAMIC(CVaskWizardPage, CVaskPropertyPage)

CVaskWizardPage::CVaskWizardPage(UINT templateId, UINT captionTextId, UINT headerTitleId,
                                 UINT headerSubTitleId)
    : CVaskPropertyPage(templateId, captionTextId, headerTitleId, headerSubTitleId),
      m_events(std::make_unique<quorvel::WizardEvents>()) {}

CVaskWizardPage::CVaskWizardPage(const WCHAR* templateName, UINT captionTextId)
    : CVaskPropertyPage(templateName, captionTextId),
      m_events(std::make_unique<quorvel::WizardEvents>()) {}

CVaskWizardPage::~CVaskWizardPage() = default;

BOOL CVaskWizardPage::SetWizardName(const WCHAR* name) {
    if (name == nullptr)
        return FALSE;
    m_wizardName = name;
    return TRUE;
}

BOOL CVaskWizardPage::SetHeaderTitle(const WCHAR* title) {
    return SetHeader(m_strHeaderTitle, title, PSM_SETHEADERTITLEW);
}

BOOL CVaskWizardPage::SetHeaderSubTitle(const WCHAR* subTitle) {
    return SetHeader(m_strHeaderSubTitle, subTitle, PSM_SETHEADERSUBTITLEW);
}

// The sheet has copied the texts when the page was added.
BOOL CVaskWizardPage::SetHeader(CString& text, const WCHAR* value, UINT message) {
    if (value == nullptr)
        return FALSE;
    text = value;
    if (CPropertySheet* const sheet = GetParentSheet())
        sheet->SendMessage(message, static_cast<WPARAM>(sheet->GetPageIndex(this)),
                           reinterpret_cast<LPARAM>(text.GetString()));
    return TRUE;
}

CString CVaskWizardPage::GetWizardName() const {
    const CVaskWizard* const wizard =
        m_wizardName.IsEmpty() ? dynamic_cast<CVaskWizard*>(GetParentSheet()) : nullptr;
    return wizard != nullptr ? wizard->GetWizardName() : m_wizardName;
}

CString CVaskWizardPage::GetWelcomeText() const {
    return quorvel::WizardWelcomeText(GetWizardName());
}

CString CVaskWizardPage::GetCompletingText() const {
    return quorvel::WizardCompletingText(GetWizardName());
}

CString CVaskWizardPage::GetCompletedText() const {
    return quorvel::WizardCompletedText(GetWizardName());
}

void CVaskWizardPage::AddEvent(const CVaskEvent& event) {
    m_events->Add(event);
}

void CVaskWizardPage::AppendEvents(const std::vector<CVaskEvent>& events) {
    m_events->Append(events);
}

BOOL CVaskWizardPage::GetEvent(int position, CVaskEvent& event) const {
    return m_events->Get(position, event);
}

BOOL CVaskWizardPage::UpdateEvent(int position, const CVaskEvent& event) {
    return m_events->Update(position, event);
}

BOOL CVaskWizardPage::DeleteEvent(int position) {
    return m_events->Delete(position);
}

int CVaskWizardPage::GetEventCount() const {
    return m_events->GetCount();
}
