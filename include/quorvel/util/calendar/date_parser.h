// Parses dates, month names and time zones as feeds and HTTP headers write them: English words in
// any letter case, in every locale of the user. Nothing throws or allocates. Any thread.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/platform/platform.h>

// Reads a date and time. With a zone in the text the result is in UTC, otherwise as written.
//
// The parser tries these forms in this order; the first form that the text begins with decides. As
// in scanf, a blank means any amount of white space, and numbers may have leading white space. Text
// after the form is ignored.
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
// `order` says how to read n/n/n, numbered as LOCALE_IDATE: 0 is month/day/year, 1 day/month/year
// and 2 year/month/day. A weekday is any word and is not compared with the date. Years follow RFC
// 5322, 4.3: two digits mean 1950 to 2049, three digits count from 1900. A fraction of a second is
// cut off, and second 60 becomes the next second. A zone is one that AfxStringToUTCTimeZoneBias
// accepts; any other word of three to five letters counts as UTC.
//
// Returns FALSE and leaves `date` unchanged for null, when no form fits, for any other order, for
// an unknown zone, and for a date or time that does not exist or is outside COleDateTime's years.
QUORVEL_API BOOL AfxStringToDate(const WCHAR* text, COleDateTime& date, int order);

// 1 to 12 for an English month name or its first three or more letters; 0 for any other text.
QUORVEL_API int AfxStringToMonth(const WCHAR* text);

// The minutes to add to the local time of a zone to get UTC: "EST" and "-0500" give 300. Accepts
// +hhmm, +hh:mm and +hh with either sign; UT, UTC and GMT; American and European names (EST, CEST,
// ...); and military letters, which all count as UTC, since RFC 822 gave them wrong signs (RFC
// 1123, 5.2.14). Returns FALSE and leaves `bias` unchanged for null and for any other text.
QUORVEL_API BOOL AfxStringToUTCTimeZoneBias(const WCHAR* text, int& bias);
