// Dates and times as text. Any thread.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// Writes a date from d, M, y and g, or a time from h, H, m, s and t. With a null picture uses the
// form of the locale: DATE_SHORTDATE (the default), DATE_LONGDATE, or a time with seconds unless
// TIME_NOSECONDS is set. The names are ICU's. The calendar is Gregorian in every language. There
// are no user settings, so LOCALE_NOUSEROVERRIDE has no effect. Returns the length with the
// terminator; a length of 0 asks for it. Returns 0 with 87 for an unknown locale, a bad buffer, or
// an invalid date or one before 1601 (of a time only the time counts), 1004 for other flags and for
// flags together with a picture (Windows accepts TIME_NOSECONDS there), and 122 for a buffer that
// is too small, which is then unchanged. `time` may not be null.
int GetDateFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, LPCWSTR picture, LPWSTR text,
                   int length);
int GetTimeFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, LPCWSTR picture, LPWSTR text,
                   int length);

} // namespace quorvel::win32
