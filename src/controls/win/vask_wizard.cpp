#include <quorvel/controls/win/vask_wizard.h>

#include "controls/wizard_model.h"

IMPLEMENT_DYNAMIC(CVaskWizard, CVaskPropertySheet)

CVaskWizard::CVaskWizard() : CVaskWizard(_T("")) {}

CVaskWizard::CVaskWizard(const WCHAR* caption, CWnd* parent, UINT firstPage)
    : CVaskPropertySheet(caption, parent, firstPage),
      m_events(std::make_unique<quorvel::WizardEvents>()) {
    SetWizardMode();
}

CVaskWizard::CVaskWizard(UINT captionTextId, CWnd* parent, UINT firstPage)
    : CVaskPropertySheet(captionTextId, parent, firstPage),
      m_events(std::make_unique<quorvel::WizardEvents>()) {
    SetWizardMode();
}

CVaskWizard::~CVaskWizard() = default;

INT_PTR CVaskWizard::DoModal() {
    ShowHeaders();
    return CVaskPropertySheet::DoModal();
}

BOOL CVaskWizard::Create(CWnd* parent) {
    ShowHeaders();
    return CVaskPropertySheet::Create(parent);
}

// Keeps another style that the host has chosen.
void CVaskWizard::ShowHeaders() {
    for (int i = 0; i < GetPageCount(); ++i) {
        if ((m_psh.dwFlags & PSH_WIZARD) != 0 && !GetPage(i)->m_strHeaderTitle.IsEmpty())
            m_psh.dwFlags = (m_psh.dwFlags & ~DWORD{PSH_WIZARD}) | PSH_WIZARD97 | PSH_HEADER;
    }
}

BOOL CVaskWizard::SetWizardName(const WCHAR* name) {
    if (name == nullptr)
        return FALSE;
    m_name = name;
    return TRUE;
}

void CVaskWizard::AddEvent(const CVaskEvent& event) {
    m_events->Add(event);
}

void CVaskWizard::AppendEvents(const std::vector<CVaskEvent>& events) {
    m_events->Append(events);
}

BOOL CVaskWizard::GetEvent(int position, CVaskEvent& event) const {
    return m_events->Get(position, event);
}

BOOL CVaskWizard::UpdateEvent(int position, const CVaskEvent& event) {
    return m_events->Update(position, event);
}

BOOL CVaskWizard::DeleteEvent(int position) {
    return m_events->Delete(position);
}

int CVaskWizard::GetEventCount() const {
    return m_events->GetCount();
}
