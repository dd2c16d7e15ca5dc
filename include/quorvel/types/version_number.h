// CVersionNumber: a version of four parts, major.minor.revision.build.
//
// Every combination of four values is valid. No operation throws, except GetText, which allocates.
// One thread at a time may use an object.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

#include <concepts>

class QUORVEL_API CVersionNumber {
public:
    CVersionNumber() noexcept = default; // 0.0.0.0
    // The parts in the order of the text.
    CVersionNumber(DWORD major, DWORD minor, DWORD revision, DWORD build) noexcept;
    // As ParseVersionNumberString, but a text that it refuses, such as "1.2-beta", gives 0.0.0.0.
    // For a text from outside call ParseVersionNumberString, which says whether it was a version.
    CVersionNumber(const WCHAR* text) noexcept;
    // Integers do not compile: 0 would be a null text. For version 5.0.0.0 write all four parts.
    template <std::integral Integer>
    CVersionNumber(Integer) = delete;
    CVersionNumber(const CVersionNumber& other) noexcept = default;
    CVersionNumber& operator=(const CVersionNumber& other) noexcept = default;

    // All four parts, in the order of the text.
    void SetNumber(DWORD major, DWORD minor, DWORD revision, DWORD build) noexcept;
    void GetNumber(DWORD& major, DWORD& minor, DWORD& revision, DWORD& build) const noexcept;

    // A setter leaves the other parts unchanged.
    DWORD GetMajorVersion() const noexcept { return m_major; }
    DWORD GetMinorVersion() const noexcept { return m_minor; }
    DWORD GetRevisionNumber() const noexcept { return m_revision; }
    DWORD GetBuildNumber() const noexcept { return m_build; }
    void SetMajorVersion(DWORD major) noexcept { m_major = major; }
    void SetMinorVersion(DWORD minor) noexcept { m_minor = minor; }
    void SetRevisionNumber(DWORD revision) noexcept { m_revision = revision; }
    void SetBuildNumber(DWORD build) noexcept { m_build = build; }

    // Each adds 1 to its own part (4294967295 wraps to 0) and leaves the lower parts unchanged.
    void IncrementMajorVersion() noexcept { ++m_major; }
    void IncrementMinorVersion() noexcept { ++m_minor; }
    void IncrementRevisionNumber() noexcept { ++m_revision; }
    void IncrementBuildNumber() noexcept { ++m_build; }

    // All four parts as signed decimals ("%d.%d.%d.%d"): 4294967295 prints as -1.
    CString GetText() const;

    // Reads up to four parts, separated by any run of commas, full stops and spaces. Missing parts
    // are 0, so a text without any part is 0.0.0.0. A part is an optional sign and decimal digits;
    // a part above 2147483647 counts as 2147483647. Further parts are tested and discarded. Returns
    // FALSE and four zeros for a null text and for a part that is negative or not a number.
    static BOOL ParseVersionNumberString(const WCHAR* text, DWORD& major, DWORD& minor,
                                         DWORD& revision, DWORD& build) noexcept;

private:
    DWORD m_major = 0;
    DWORD m_minor = 0;
    DWORD m_revision = 0;
    DWORD m_build = 0;
};

// The first part that differs decides. Parts are unsigned.
QUORVEL_API BOOL operator==(const CVersionNumber& left, const CVersionNumber& right) noexcept;
QUORVEL_API BOOL operator!=(const CVersionNumber& left, const CVersionNumber& right) noexcept;
QUORVEL_API BOOL operator<(const CVersionNumber& left, const CVersionNumber& right) noexcept;
QUORVEL_API BOOL operator>(const CVersionNumber& left, const CVersionNumber& right) noexcept;
QUORVEL_API BOOL operator<=(const CVersionNumber& left, const CVersionNumber& right) noexcept;
QUORVEL_API BOOL operator>=(const CVersionNumber& left, const CVersionNumber& right) noexcept;
