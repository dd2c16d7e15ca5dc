// Dates, month names and time zones from text, as feeds and HTTP headers write them. English words
// in any letter case, whatever the user's locale. Nothing throws or allocates; any thread.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/platform/platform.h>

// Reads a date and, in UTC where the text names a zone and as it stands otherwise, a time of day.
//
// The text is tried against these forms in this order, and the first that it begins with decides.
// As in scanf a blank stands for any white space or none, numbers may have leading white space, and
// what follows a form is ignored.
//
//     month day, year h:m:s [zone]
//     weekday month day, year h:m:s [zone]
//     weekday day month year h:m:s [zone]      RFC 822, RFC 1123: Sun, 04 Mar 2007 05:06:07 +0100
//     n/n/n h:m:s [zone]
//     day month year h:m:s [zone]              RFC 822 without the weekday
//     weekday day month year h:m [zone]
//     n/n/n h:m [zone]
//     day month year h:m [zone]
//     year-month-dayTh:m:s[zone]               ISO 8601, RFC 3339: 2007-03-04T05:06:07+01:00
//     year-month-dayTh:m[zone]
//     n/n/n                                    this and the next four: the day at 00:00
//     day month year
//     month day, year
//     year-month-day
//     day-mon-year                             with the three letters of a month
//     weekday day-mon-year h:m:s [zone]        RFC 850: Sunday, 06-Nov-94 08:49:37 GMT
//     weekday,day month year h:m:s [zone]      RFC 822 with no blank after the comma
//     weekday,day month year h:m [zone]
//     weekday month day h:m:s year             asctime: Sun Nov  6 08:49:37 1994
//
// `order` tells what n/n/n is, numbered as LOCALE_IDATE: 0 is month/day/year, 1 day/month/year and
// 2 year/month/day. A weekday is any word and is not compared with the date. Years follow RFC 5322,
// 4.3: of two digits they are 1950 to 2049, of three they count from 1900. Seconds may have a
// fraction, which is cut off, and a second 60 is the next one. A zone is what
// AfxStringToUTCTimeZoneBias takes; any other word of three to five letters counts as UTC.
//
// FALSE, and `date` unchanged, for null, when no form fits, for another order, an unknown zone, and
// a date or time that does not exist or is outside COleDateTime's years.
QUORVEL_API BOOL AfxStringToDate(const WCHAR* text, COleDateTime& date, int order);

// 1 to 12 for an English name of a month or at least its first three letters; 0 for any other text.
QUORVEL_API int AfxStringToMonth(const WCHAR* text);

// The minutes to add to the local time of a zone to get UTC: "EST" and "-0500" give 300. Takes
// +hhmm, +hh:mm and +hh with either sign, UT, UTC, GMT, the American and European words (EST, CEST,
// ...), and the military letters, which all mean UTC: RFC 822 gives them the wrong signs, so that
// they tell nothing (RFC 1123, 5.2.14). FALSE, and `bias` unchanged, for null and any other text.
QUORVEL_API BOOL AfxStringToUTCTimeZoneBias(const WCHAR* text, int& bias);
