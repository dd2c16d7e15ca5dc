// CVaskWizard: a wizard with a name and a list of events (actions that it will do or has done),
// which its last page can show. Windows only, user-interface thread.
//
// A page with a header title has a header. A wizard with such a page gets the style PSH_WIZARD97;
// its first and last pages are then the ones without a title.
//
// The wizard and each page have their own event lists with the same operations. A page stores the
// actions that it will do; the host combines lists with AppendEvents.
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
    // As in CPropertySheet, with the wizard mode set.
    explicit CVaskWizard(const WCHAR* caption, CWnd* parent = nullptr, UINT firstPage = 0);
    explicit CVaskWizard(UINT captionTextId, CWnd* parent = nullptr, UINT firstPage = 0);
    ~CVaskWizard() override;

    INT_PTR DoModal() override;
    BOOL Create(CWnd* parent = nullptr); // as in CPropertySheet

    // The default name for its pages. Null returns FALSE and changes nothing.
    BOOL SetWizardName(const WCHAR* name);
    CString GetWizardName() const { return m_name; }

    // Positions count from 0. A position outside the list returns FALSE and changes nothing.
    void AddEvent(const CVaskEvent& event); // at the end
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
