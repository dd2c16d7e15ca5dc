// The clock.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// Now, in the system's time zone (or TZ's). Any thread.
void GetLocalTime(SYSTEMTIME* time);

} // namespace quorvel::win32
