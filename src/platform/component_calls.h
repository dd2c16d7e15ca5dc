// The component model for the library's own sources, with the counting that its objects need: the
// SDK on Windows, its twin on Linux.
#pragma once

#include "platform/win32.h"

#include <quorvel/platform/component_model.h>

#if !defined(_WIN32)
#include "platform/linux/system/interlocked.h"
#endif
