// The order of texts for people.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// CSTR_LESS_THAN, CSTR_EQUAL or CSTR_GREATER_THAN by the order of the locale, in which accents and
// then letter case count last and small letters come first. A negative length means up to the
// terminator. 0 with the last error 87 for a null text or an unknown locale, 1004 for flags: there
// is only 0.
int CompareStringW(LCID locale, DWORD flags, LPCWSTR first, int firstLength, LPCWSTR second,
                   int secondLength);

} // namespace quorvel::win32
