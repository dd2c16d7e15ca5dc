// Translates errno into the platform's error codes.
#pragma once

#include <quorvel/platform/linux_api.h>

namespace quorvel {

// ERROR_GEN_FAILURE for a value that our operations are not known to cause.
DWORD ErrorFromErrno(int error);

// Sets the last error and returns FALSE, for the caller to return.
inline BOOL FailWith(DWORD error) {
    win32::SetLastError(error);
    return FALSE;
}

} // namespace quorvel
