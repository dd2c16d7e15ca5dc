// Dates and times as text.
//
// Dates are rounded to a second. The text is empty for a date that is not valid. Where the platform
// formats, it is also empty when the platform cannot: before 1601 (the locale functions for dates,
// and all that join a date and a time), for a text above 254 characters, and for a picture that the
// platform refuses. Any thread.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/platform/platform.h>

// Formats with the user's default locale. `format` is a picture for the platform's GetDateFormatW
// ("dd/MM/yyyy") or GetTimeFormatW ("HH:mm:ss"). Null means the locale's own default, without the
// user's changes to it: the short date, or the time with seconds.
QUORVEL_API CString AfxFormatLocaleDate(COleDateTime date, const WCHAR* format);
QUORVEL_API CString AfxFormatLocaleTime(COleDateTime date, const WCHAR* format);
// The two texts with a blank between them.
QUORVEL_API CString AfxFormatLocaleDateTime(COleDateTime date, const WCHAR* dateFormat,
                                            const WCHAR* timeFormat);

// The short and the long date with the user's settings.
QUORVEL_API CString AfxGetLocaleShortDate(COleDateTime date);
QUORVEL_API CString AfxGetLocaleLongDate(COleDateTime date);
// The short date, a blank, and the time without seconds, all with the user's settings.
QUORVEL_API CString AfxGetLocaleDateTime(COleDateTime date);
// The short or long date, a blank, and the time as AfxFormatLocaleTime formats it for null.
QUORVEL_API CString AfxGetLocaleShortDateTime(COleDateTime date);
QUORVEL_API CString AfxGetLocaleLongDateTime(COleDateTime date);

// "04 Mar 2007 05:06:07" as in RFC 822, followed by " GMT" if `appendZone` is set; English in every
// locale. The time is taken as UTC.
QUORVEL_API CString AfxFormatUTCTimeUsingRFC822(COleDateTime date, BOOL appendZone);
// "2007-03-04T05:06:07", the form of ISO 8601 without a zone.
QUORVEL_API CString AfxFormatUTCTimeUsingISO8601(COleDateTime date);

// "06:07" with the user's time separator: the last two numbers, each with at least two digits.
// Deliberate: the first number does not appear.
QUORVEL_API CString AfxFormatElapsedTime(int hours, int minutes, int seconds);
