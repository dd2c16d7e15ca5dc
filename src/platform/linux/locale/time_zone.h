// Local time and UTC. Any thread.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// A null zone is the zone of the system (or of TZ) at its first use in the process. Like on Windows
// it has the rules of the current year for every year. A local time that occurs twice is the first
// of the two; one that is skipped counts as daylight saving time. Returns FALSE with 87 and leaves
// the output unchanged for an invalid date, for times before 1601 on either side, and for rules
// that are incomplete or for one year only (Windows accepts those).
BOOL SystemTimeToTzSpecificLocalTime(const TIME_ZONE_INFORMATION* zone, const SYSTEMTIME* utc,
                                     SYSTEMTIME* local);
BOOL TzSpecificLocalTimeToSystemTime(const TIME_ZONE_INFORMATION* zone, const SYSTEMTIME* local,
                                     SYSTEMTIME* utc);

} // namespace quorvel::win32
