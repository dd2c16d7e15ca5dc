// Creates a new file in the temporary folder. Shows no message.
#pragma once

#include <quorvel/framework/string.h>

namespace quorvel {

// Returns 0, or the system's error code; `fileName` is then unchanged.
DWORD NewTemporaryFile(CString& fileName);

} // namespace quorvel
