// What the library's own sources include to call the platform: the SDK on Windows, its twin of the
// same names on Linux.
#pragma once

#include <quorvel/platform/platform.h>

#if defined(_WIN32)
#include <shlwapi.h>
#else
#include "platform/linux/api.h"
#endif

using namespace quorvel::win32; // empty on Windows
