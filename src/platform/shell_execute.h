// Opening files and addresses with the program that the user has for them: the SDK's shell on
// Windows, its twin on Linux.
#pragma once

#include "platform/win32.h"

#if defined(_WIN32)
#include <shellapi.h>
#else
#include "platform/linux/system/desktop_opener.h"
#endif
