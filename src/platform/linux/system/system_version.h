// What the system says about itself.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// Fills a record of either size: the kernel's release numbers, no service pack, and a platform of
// 4, which is none of the three that Windows knows. ERROR_INSUFFICIENT_BUFFER for any other size.
BOOL GetVersionExW(OSVERSIONINFOW* version);
// 0 for SM_SERVERR2 and for every index that is not known, as on Windows.
int GetSystemMetrics(int index);

} // namespace quorvel::win32
