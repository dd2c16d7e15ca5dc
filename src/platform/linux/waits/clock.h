// The clock.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// The current time in the system's time zone (or TZ's). Any thread.
void GetLocalTime(SYSTEMTIME* time);
// The current time in UTC, in units of 100 nanoseconds since 1 January 1601. Any thread.
void GetSystemTimeAsFileTime(FILETIME* time);

} // namespace quorvel::win32
