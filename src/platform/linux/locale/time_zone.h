// Local time and UTC. Any thread.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// A null zone is the system's (or TZ's) as the process found it first, with the rules
// of the current year for every year, as Windows has it. A local time that occurs twice is the
// first of the two, one that is left out counts as daylight saving time. FALSE and 87, and the
// output unchanged, for a date that does not exist, for times before 1601 on either side, and for
// rules that are incomplete or for one year only (which Windows takes).
BOOL SystemTimeToTzSpecificLocalTime(const TIME_ZONE_INFORMATION* zone, const SYSTEMTIME* utc,
                                     SYSTEMTIME* local);
BOOL TzSpecificLocalTimeToSystemTime(const TIME_ZONE_INFORMATION* zone, const SYSTEMTIME* local,
                                     SYSTEMTIME* utc);

} // namespace quorvel::win32
