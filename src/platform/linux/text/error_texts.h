// English texts of the system's error codes.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel {

// One ASCII sentence without a line end; null for a code without a text.
const char* SystemErrorText(DWORD code);

} // namespace quorvel
