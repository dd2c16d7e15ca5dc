// Opens files and addresses with the user's program for them: the SDK's shell on Windows, a
// replacement on Linux.
#pragma once

#include "platform/win32.h"

#if defined(_WIN32)
#include <shellapi.h>
#else
#include "platform/linux/system/desktop_opener.h"
#endif
