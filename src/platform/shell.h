// The shell's functions for folders: the SDK on Windows, a replacement on Linux. Separate from
// win32.h, because the SDK's header is large and few sources need it.
#pragma once

#include "platform/win32.h"

#if defined(_WIN32)
#include <shlobj.h>
#else
#include "platform/linux/files/shell_folders.h"
#endif
