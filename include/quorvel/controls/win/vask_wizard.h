// CVaskWizard: a wizard with a name and a list of events, one for each thing that it will do or has
// done, which its last page shows. Windows only, user-interface thread.
//
// A page that has a header title is shown with a header; a wizard with such a page has the style
// PSH_WIZARD97, where the pages without one are those of its beginning and its end.
#pragma once

#include <quorvel/controls/vask_event.h>
#include <quorvel/controls/win/vask_property_sheet.h>

#include <memory>
#include <vector>

namespace quorvel {
class WizardEvents;
class WizardTexts;
} // namespace quorvel

class QUORVEL_API CVaskWizard : public CVaskPropertySheet {
    DECLARE_DYNAMIC(CVaskWizard)
public:
    explicit CVaskWizard(const WCHAR* caption, CWnd* parent = nullptr, UINT firstPage = 0);
    explicit CVaskWizard(UINT captionTextId, CWnd* parent = nullptr, UINT firstPage = 0);
    ~CVaskWizard() override;

    INT_PTR DoModal() override;
    BOOL Create(CWnd* parent = nullptr);

    BOOL SetWizardName(const WCHAR* name); // FALSE for null, and nothing changed
    CString GetWizardName() const;

    // Positions are counted from 0. FALSE, and nothing changed, for a position outside the list.
    void AddEvent(const CVaskEvent& event);
    void AppendEvents(const std::vector<CVaskEvent>& events);
    BOOL GetEvent(int position, CVaskEvent& event) const;
    BOOL UpdateEvent(int position, const CVaskEvent& event);
    BOOL DeleteEvent(int position);
    int GetEventCount() const;

    void UpdateCommandButtonText() override;

private:
    void ShowHeaders();

    std::unique_ptr<quorvel::WizardTexts> m_texts;
    std::unique_ptr<quorvel::WizardEvents> m_events;
};
