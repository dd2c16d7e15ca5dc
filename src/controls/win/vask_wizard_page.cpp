#include <quorvel/controls/win/vask_wizard_page.h>

#include "controls/wizard_model.h"

IMPLEMENT_DYNAMIC(CVaskWizardPage, CVaskPropertyPage)

CVaskWizardPage::CVaskWizardPage(UINT templateId, UINT captionTextId)
    : CVaskPropertyPage(templateId, captionTextId),
      m_texts(std::make_unique<quorvel::WizardTexts>()),
      m_events(std::make_unique<quorvel::WizardEvents>()) {}

CVaskWizardPage::~CVaskWizardPage() = default;

BOOL CVaskWizardPage::SetWizardName(const WCHAR* name) {
    return m_texts->SetName(name);
}

BOOL CVaskWizardPage::SetHeaderTitle(const WCHAR* title) {
    if (!m_texts->SetHeaderTitle(title))
        return FALSE;
    m_strHeaderTitle = title;
    return TRUE;
}

BOOL CVaskWizardPage::SetHeaderSubTitle(const WCHAR* subTitle) {
    if (!m_texts->SetHeaderSubTitle(subTitle))
        return FALSE;
    m_strHeaderSubTitle = subTitle;
    return TRUE;
}

CString CVaskWizardPage::GetWizardName() const {
    return m_texts->GetName();
}

CString CVaskWizardPage::GetHeaderTitle() const {
    return m_texts->GetHeaderTitle();
}

CString CVaskWizardPage::GetHeaderSubTitle() const {
    return m_texts->GetHeaderSubTitle();
}

CString CVaskWizardPage::GetWelcomeText() const {
    return m_texts->GetWelcomeText();
}

CString CVaskWizardPage::GetCompletingText() const {
    return m_texts->GetCompletingText();
}

CString CVaskWizardPage::GetCompletedText() const {
    return m_texts->GetCompletedText();
}

void CVaskWizardPage::AddEvent(const CVaskEvent& event) {
    m_events->Add(event);
}

void CVaskWizardPage::AppendEvents(const std::vector<CVaskEvent>& events) {
    for (const CVaskEvent& event : events)
        m_events->Add(event);
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
