// CVaskWizardPage: a wizard page with titles and an event list of its own (see CVaskWizard).
// Windows only, user-interface thread.
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

    // The name used in the texts below. By default it is that of the CVaskWizard that shows the
    // page. Null returns FALSE and changes nothing.
    BOOL SetWizardName(const WCHAR* name);
    CString GetWizardName() const;
    // The texts of the header above the page. Set them before the wizard opens, or in or after the
    // page's OnInitDialog. A page without a title when the wizard opens has no header. Null returns
    // FALSE and changes nothing.
    BOOL SetHeaderTitle(const WCHAR* title);
    BOOL SetHeaderSubTitle(const WCHAR* subTitle);
    CString GetHeaderTitle() const { return m_strHeaderTitle; }
    CString GetHeaderSubTitle() const { return m_strHeaderSubTitle; }

    // Texts for the first and last page: "Welcome to the ...", "Completing the ...", and the one
    // that it was completed.
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
