// The part of the shell that names folders: the SDK on Windows, its twin on Linux. Apart from
// win32.h, since the SDK's header brings much that only its few users should pay for.
#pragma once

#include "platform/win32.h"

#if defined(_WIN32)
#include <shlobj.h>
#else
#include "platform/linux/files/shell_folders.h"
#endif
