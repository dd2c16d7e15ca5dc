// CVaskEvent: an action that a wizard will do or has done, to be listed on its last page.
//
// Copyable. One thread at a time may use an object. A failed allocation throws CMemoryException.
#pragma once

#include <quorvel/framework/string.h>

class QUORVEL_API CVaskEvent {
public:
    CVaskEvent() = default;
    explicit CVaskEvent(const WCHAR* description) : m_description(description) {} // null is empty

    BOOL SetDescription(const WCHAR* description);           // FALSE and no change for null
    CString GetDescription() const { return m_description; } // empty at first

    // Events are equal when their descriptions are, including case.
    BOOL operator==(const CVaskEvent& other) const noexcept {
        return m_description == other.m_description;
    }
    BOOL operator!=(const CVaskEvent& other) const noexcept { return !(*this == other); }

private:
    CString m_description;
};
