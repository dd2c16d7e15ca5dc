// The texts of a wizard and its pages: texts with the wizard's name, events, and the texts of
// buttons in wizards and property sheets.
//
// Used on the user-interface thread. Throws CMemoryException when memory runs out.
#pragma once

#include <quorvel/controls/vask_event.h>

#include <vector>

namespace quorvel {

// The events of a wizard or of one of its pages, in order.
class WizardEvents {
public:
    void Add(const CVaskEvent& event) { m_events.push_back(event); }
    void Append(const std::vector<CVaskEvent>& events) {
        m_events.insert(m_events.end(), events.begin(), events.end());
    }
    int GetCount() const { return static_cast<int>(m_events.size()); }
    // Returns FALSE, without a change, for an index outside 0 to the count.
    BOOL Get(int index, CVaskEvent& event) const;
    BOOL Update(int index, const CVaskEvent& event);
    BOOL Delete(int index);

private:
    bool IsIndex(int index) const { return index >= 0 && index < GetCount(); }

    std::vector<CVaskEvent> m_events;
};

// The texts of a wizard's first and last pages; each contains its name.
CString WizardWelcomeText(const CString& name);
CString WizardCompletingText(const CString& name);
CString WizardCompletedText(const CString& name);

// The catalogue text of a button with the system's id; 0 for any other button.
UINT SheetButtonText(int buttonId);
UINT WizardButtonText(int buttonId);

} // namespace quorvel
