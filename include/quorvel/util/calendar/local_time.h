// The clock, and conversion between local time and UTC.
//
// The platform converts. It applies the current year's rules of the user's time zone to every
// year. It takes a local time that occurs twice as daylight saving time, and also one that is
// skipped when the clocks go forward. It cannot convert years before 1601. Nothing throws. Any
// thread.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/platform/platform.h>

// The current time in UTC, in units of 100 nanoseconds since 1 January 1601.
QUORVEL_API FILETIME AfxGetCurrentFileTime();

// The current time in UTC, to the second. The clock is read as local time and converted: in the
// hour that repeats at the end of daylight saving it is one hour early. Local time if that fails.
QUORVEL_API COleDateTime AfxGetCurrentUTCTime();

// Both round to a second. Return FALSE and change nothing for a date that is not valid or cannot be
// converted, or a result outside COleDateTime's years. The output may be the input.
QUORVEL_API BOOL AfxUTCToLocalTime(const COleDateTime& utc, COleDateTime& local);
QUORVEL_API BOOL AfxLocalTimeToUTC(const COleDateTime& local, COleDateTime& utc);

// The platform's TzSpecificLocalTimeToSystemTime. A null `zone` means the user's. A null time, or
// one that cannot be converted, returns FALSE with error 87 and leaves `utc` unchanged.
QUORVEL_API BOOL AfxTzSpecificLocalTimeToSystemTime(const TIME_ZONE_INFORMATION* zone,
                                                    const SYSTEMTIME* local, SYSTEMTIME* utc);
