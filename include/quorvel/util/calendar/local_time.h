// The clock, and conversion between local time and UTC.
//
// The platform converts: the rules that the user's time zone has in the current year are taken for
// every year, a local time that occurs twice is taken as daylight saving time, and so is one that
// is left out when the clocks go forward. Years before 1601 can't be converted. Nothing throws; any
// thread.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/platform/platform.h>

// Now in UTC, in units of 100 nanoseconds since 1 January 1601.
QUORVEL_API FILETIME AfxGetCurrentFileTime();

// Now in UTC to the second. The clock is read as local time and converted, so that it is an hour
// early in the second of two hours of the same name; the local time when it can't be converted.
QUORVEL_API COleDateTime AfxGetCurrentUTCTime();

// Both round to a second. FALSE, and the output unchanged, for a date that is not valid or can't be
// converted, and when the result lies outside COleDateTime's years. The output may be the input.
QUORVEL_API BOOL AfxUTCToLocalTime(const COleDateTime& utc, COleDateTime& local);
QUORVEL_API BOOL AfxLocalTimeToUTC(const COleDateTime& local, COleDateTime& utc);

// The platform's TzSpecificLocalTimeToSystemTime, for the user's time zone when `zone` is null.
// FALSE with error 87, and `utc` unchanged, for a null time and one that can't be converted.
QUORVEL_API BOOL AfxTzSpecificLocalTimeToSystemTime(const TIME_ZONE_INFORMATION* zone,
                                                    const SYSTEMTIME* local, SYSTEMTIME* utc);
