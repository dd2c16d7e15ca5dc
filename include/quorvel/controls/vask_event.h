// CVaskEvent: one of the things that a wizard will do or has done, for its last page to list.
//
// Copyable; one object may be used by one thread at a time. Lack of memory throws CMemoryException.
#pragma once

#include <quorvel/framework/string.h>

class QUORVEL_API CVaskEvent {
public:
    CVaskEvent() = default;
    explicit CVaskEvent(const WCHAR* description) : m_description(description) {} // null is empty

    BOOL SetDescription(const WCHAR* description); // FALSE for null, and nothing changed
    CString GetDescription() const { return m_description; }

    BOOL operator==(const CVaskEvent& other) const noexcept {
        return m_description == other.m_description;
    }
    BOOL operator!=(const CVaskEvent& other) const noexcept { return !(*this == other); }

private:
    CString m_description;
};
