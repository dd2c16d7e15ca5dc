// Sorts texts for people.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// Compares by the order of the locale: differences in accents and then in letter case count last,
// and small letters are first. A negative length means up to the terminator. Returns
// CSTR_LESS_THAN, CSTR_EQUAL or CSTR_GREATER_THAN, or 0 with the last error 87 for a null text or
// an unknown locale, 1004 for flags other than 0.
int CompareStringW(LCID locale, DWORD flags, LPCWSTR first, int firstLength, LPCWSTR second,
                   int secondLength);

} // namespace quorvel::win32
