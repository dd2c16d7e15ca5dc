// The system's version and properties.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// Fills a record of either size: the kernel's release numbers, no service pack, and platform 4,
// which Windows does not use. ERROR_INSUFFICIENT_BUFFER for any other size.
BOOL GetVersionExW(OSVERSIONINFOW* version);
// 0 for SM_SERVERR2 and, as on Windows, for every unknown index.
int GetSystemMetrics(int index);

} // namespace quorvel::win32
