#include <quorvel/types/version_number.h>

#include "platform/digits.h"

#include <algorithm>
#include <compare>
#include <cstdint>

namespace {

constexpr std::uint64_t kMaximumPart = 2147483647; // parts are read as signed 32-bit numbers

bool IsSeparator(WCHAR character) {
    return character == '.' || character == ',' || character == ' ';
}

// Reads the whole token at `text` and moves to its end. "-0" is a number and not negative.
bool ReadPart(const WCHAR*& text, DWORD& part) {
    const bool minus = *text == '-';
    if (minus || *text == '+')
        ++text;
    if (!quorvel::IsDigit(*text))
        return false;
    std::uint64_t value = 0;
    for (; quorvel::IsDigit(*text); ++text)
        value = std::min(value * 10 + static_cast<unsigned>(*text - '0'), kMaximumPart);
    part = static_cast<DWORD>(value);
    return (*text == 0 || IsSeparator(*text)) && (!minus || value == 0);
}

std::strong_ordering Compare(const CVersionNumber& left, const CVersionNumber& right) {
    if (const auto order = left.GetMajorVersion() <=> right.GetMajorVersion(); order != 0)
        return order;
    if (const auto order = left.GetMinorVersion() <=> right.GetMinorVersion(); order != 0)
        return order;
    if (const auto order = left.GetRevisionNumber() <=> right.GetRevisionNumber(); order != 0)
        return order;
    return left.GetBuildNumber() <=> right.GetBuildNumber();
}

} // namespace

CVersionNumber::CVersionNumber(DWORD major, DWORD minor, DWORD revision, DWORD build) noexcept
    : m_major(major), m_minor(minor), m_revision(revision), m_build(build) {}

CVersionNumber::CVersionNumber(const WCHAR* text) noexcept {
    ParseVersionNumberString(text, m_major, m_minor, m_revision, m_build);
}

void CVersionNumber::SetNumber(DWORD major, DWORD minor, DWORD revision, DWORD build) noexcept {
    *this = CVersionNumber(major, minor, revision, build);
}

void CVersionNumber::GetNumber(DWORD& major, DWORD& minor, DWORD& revision,
                               DWORD& build) const noexcept {
    major = m_major;
    minor = m_minor;
    revision = m_revision;
    build = m_build;
}

CString CVersionNumber::GetText() const {
    CString text;
    text.Format(_T("%d.%d.%d.%d"), static_cast<int>(m_major), static_cast<int>(m_minor),
                static_cast<int>(m_revision), static_cast<int>(m_build));
    return text;
}

BOOL CVersionNumber::ParseVersionNumberString(const WCHAR* text, DWORD& major, DWORD& minor,
                                              DWORD& revision, DWORD& build) noexcept {
    major = minor = revision = build = 0;
    if (text == nullptr)
        return FALSE;
    DWORD parts[4] = {};
    for (int count = 0;; ++count) {
        while (IsSeparator(*text))
            ++text;
        if (*text == 0)
            break;
        DWORD discarded = 0;
        if (!ReadPart(text, count < 4 ? parts[count] : discarded))
            return FALSE;
    }
    major = parts[0];
    minor = parts[1];
    revision = parts[2];
    build = parts[3];
    return TRUE;
}

BOOL operator==(const CVersionNumber& left, const CVersionNumber& right) noexcept {
    return Compare(left, right) == 0;
}

BOOL operator!=(const CVersionNumber& left, const CVersionNumber& right) noexcept {
    return Compare(left, right) != 0;
}

BOOL operator<(const CVersionNumber& left, const CVersionNumber& right) noexcept {
    return Compare(left, right) < 0;
}

BOOL operator>(const CVersionNumber& left, const CVersionNumber& right) noexcept {
    return Compare(left, right) > 0;
}

BOOL operator<=(const CVersionNumber& left, const CVersionNumber& right) noexcept {
    return Compare(left, right) <= 0;
}

BOOL operator>=(const CVersionNumber& left, const CVersionNumber& right) noexcept {
    return Compare(left, right) >= 0;
}
