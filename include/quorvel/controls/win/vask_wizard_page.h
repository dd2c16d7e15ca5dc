// CVaskWizardPage: a page of a wizard, with its titles and a list of events of its own (see
// CVaskWizard). Windows only, user-interface thread.
#pragma once

#include <quorvel/controls/vask_event.h>
#include <quorvel/controls/win/vask_property_page.h>

namespace quorvel {
class WizardEvents;
} // namespace quorvel

class QUORVEL_API CVaskWizardPage : public CVaskPropertyPage {
    DECLARE_DYNAMIC(CVaskWizardPage)
public:
    // As in CPropertyPage.
    explicit CVaskWizardPage(UINT templateId, UINT captionTextId = 0, UINT headerTitleId = 0,
                             UINT headerSubTitleId = 0);
    explicit CVaskWizardPage(const WCHAR* templateName, UINT captionTextId = 0);
    ~CVaskWizardPage() override;

    // Completes the texts below. A page without a name of its own has that of the CVaskWizard that
    // it is shown in. FALSE for null, and nothing changed.
    BOOL SetWizardName(const WCHAR* name);
    CString GetWizardName() const;
    // Shown over the page. Set them before the wizard opens, or from the page's OnInitDialog on; a
    // page that had no title when the wizard opened has no header. FALSE for null, and nothing
    // changed.
    BOOL SetHeaderTitle(const WCHAR* title);
    BOOL SetHeaderSubTitle(const WCHAR* subTitle);
    CString GetHeaderTitle() const { return m_strHeaderTitle; }
    CString GetHeaderSubTitle() const { return m_strHeaderSubTitle; }

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
    BOOL SetHeader(CString& text, const WCHAR* value, UINT message);

    CString m_wizardName;
    const std::unique_ptr<quorvel::WizardEvents> m_events;
};
