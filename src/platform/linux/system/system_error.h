// The one translation of errno into the platform's error codes.
#pragma once

#include <quorvel/platform/linux_api.h>

namespace quorvel {

// ERROR_GEN_FAILURE for a value that no operation of ours is known to give.
DWORD ErrorFromErrno(int error);

// Sets the last error; FALSE, for the caller to return.
inline BOOL FailWith(DWORD error) {
    win32::SetLastError(error);
    return FALSE;
}

} // namespace quorvel
