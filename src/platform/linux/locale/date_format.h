// Dates and times as text. Any thread.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// Write a date by d, M, y and g, and a time by h, H, m, s and t, or the way of the locale when the
// picture is null: DATE_SHORTDATE (also without a flag), DATE_LONGDATE, and times with their
// seconds unless TIME_NOSECONDS says otherwise. The names are ICU's, the calendar is Gregorian in
// every language, and there are no settings of the user for LOCALE_NOUSEROVERRIDE to leave out.
// Return the length with the terminator; a length of 0 asks for it. 0 and 87 for an unknown locale,
// a bad buffer, a date that does not exist or is before 1601 (of a time only the time counts), 1004
// for other flags and for any flag beside a picture (Windows then takes TIME_NOSECONDS), 122 for a
// buffer too small, which is then unchanged. The time may not be null.
int GetDateFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, LPCWSTR picture, LPWSTR text,
                   int length);
int GetTimeFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, LPCWSTR picture, LPWSTR text,
                   int length);

} // namespace quorvel::win32
