// CVaskWizard: a wizard with a name and a list of events, one for each thing that it will do or has
// done, for its last page to show. Windows only, user-interface thread.
//
// A page that has a header title is shown with a header; a wizard with such a page has the style
// PSH_WIZARD97, where the pages without one are those of its beginning and its end.
//
// The wizard and each of its pages have a list of events of their own, with the same operations. A
// page keeps what it will do; the host joins the lists it wants to show with AppendEvents.
#pragma once

#include <quorvel/controls/vask_event.h>
#include <quorvel/controls/win/vask_property_sheet.h>

#include <memory>
#include <vector>

namespace quorvel {
class WizardEvents;
} // namespace quorvel

class QUORVEL_API CVaskWizard : public CVaskPropertySheet {
    DECLARE_DYNAMIC(CVaskWizard)
public:
    CVaskWizard();
    explicit CVaskWizard(const WCHAR* caption, CWnd* parent = nullptr, UINT firstPage = 0);
    explicit CVaskWizard(UINT captionTextId, CWnd* parent = nullptr, UINT firstPage = 0);
    ~CVaskWizard() override;

    INT_PTR DoModal() override;
    BOOL Create(CWnd* parent = nullptr);

    // The name of pages that have none of their own. FALSE for null, and nothing changed.
    BOOL SetWizardName(const WCHAR* name);
    CString GetWizardName() const { return m_name; }

    // Positions are counted from 0. FALSE, and nothing changed, for a position outside the list.
    void AddEvent(const CVaskEvent& event);
    void AppendEvents(const std::vector<CVaskEvent>& events);
    BOOL GetEvent(int position, CVaskEvent& event) const;
    BOOL UpdateEvent(int position, const CVaskEvent& event);
    BOOL DeleteEvent(int position);
    int GetEventCount() const;

private:
    void ShowHeaders();

    CString m_name;
    const std::unique_ptr<quorvel::WizardEvents> m_events;
};
