// What a wizard and its pages say: their names and titles, their events, and the texts of the
// buttons of wizards and property sheets.
//
// Used on the user-interface thread. Lack of memory throws CMemoryException.
#pragma once

#include <quorvel/controls/vask_event.h>

#include <vector>

namespace quorvel {

// The events of a wizard or of one of its pages, in order.
class WizardEvents {
public:
    void Add(const CVaskEvent& event) { m_events.push_back(event); }
    // Those of another list behind these; the list itself doubles.
    void Append(const WizardEvents& events);
    int GetCount() const { return static_cast<int>(m_events.size()); }
    // FALSE, and nothing changed, for an index outside 0 to the count.
    BOOL Get(int index, CVaskEvent& event) const;
    BOOL Update(int index, const CVaskEvent& event);
    BOOL Delete(int index);

private:
    bool IsIndex(int index) const { return index >= 0 && index < GetCount(); }

    std::vector<CVaskEvent> m_events;
};

// The name of a wizard, which also completes the texts of its first and last pages. Texts are set
// as they are given; null is refused with FALSE.
class WizardTexts {
public:
    BOOL SetName(const WCHAR* name) { return Set(m_name, name); }
    BOOL SetHeaderTitle(const WCHAR* title) { return Set(m_headerTitle, title); }
    BOOL SetHeaderSubTitle(const WCHAR* title) { return Set(m_headerSubTitle, title); }
    const CString& GetName() const { return m_name; }
    const CString& GetHeaderTitle() const { return m_headerTitle; }
    const CString& GetHeaderSubTitle() const { return m_headerSubTitle; }

    CString GetWelcomeText() const;
    CString GetCompletingText() const;
    CString GetCompletedText() const;

private:
    static BOOL Set(CString& text, const WCHAR* value);

    CString m_name;
    CString m_headerTitle;
    CString m_headerSubTitle;
};

// The catalogue text of a button by the id that the system gives it; 0 for any other.
UINT SheetButtonText(int buttonId);
UINT WizardButtonText(int buttonId);

} // namespace quorvel
