// The component model for the library's own sources, and the interlocked functions for its objects:
// the SDK on Windows, a replacement on Linux.
#pragma once

#include "platform/win32.h"

#include <quorvel/platform/component_model.h>

#if !defined(_WIN32)
#include "platform/linux/system/interlocked.h"
#endif
