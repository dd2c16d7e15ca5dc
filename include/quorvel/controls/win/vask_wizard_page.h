// CVaskWizardPage: a page of a wizard, with its titles and its list of events. Windows only,
// user-interface thread.
#pragma once

#include <quorvel/controls/vask_event.h>
#include <quorvel/controls/win/vask_property_page.h>

namespace quorvel {
class WizardEvents;
class WizardTexts;
} // namespace quorvel

class QUORVEL_API CVaskWizardPage : public CVaskPropertyPage {
    DECLARE_DYNAMIC(CVaskWizardPage)
public:
    explicit CVaskWizardPage(UINT templateId, UINT captionTextId = 0);
    ~CVaskWizardPage() override;

    // FALSE for null, and nothing changed. The name completes the texts below. The header's titles
    // are shown over the page; set them before the wizard opens.
    BOOL SetWizardName(const WCHAR* name);
    BOOL SetHeaderTitle(const WCHAR* title);
    BOOL SetHeaderSubTitle(const WCHAR* subTitle);
    CString GetWizardName() const;
    CString GetHeaderTitle() const;
    CString GetHeaderSubTitle() const;

    // "Welcome to the ...", "Completing the ..." and that it was completed, for the first and the
    // last page.
    CString GetWelcomeText() const;
    CString GetCompletingText() const;
    CString GetCompletedText() const;

    // As in CVaskWizard.
    void AddEvent(const CVaskEvent& event);
    void AppendEvents(const std::vector<CVaskEvent>& events);
    BOOL GetEvent(int position, CVaskEvent& event) const;
    BOOL UpdateEvent(int position, const CVaskEvent& event);
    BOOL DeleteEvent(int position);
    int GetEventCount() const;

private:
    std::unique_ptr<quorvel::WizardTexts> m_texts;
    std::unique_ptr<quorvel::WizardEvents> m_events;
};
