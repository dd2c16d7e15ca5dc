#include "platform/win32.h"

namespace quorvel::win32 {

namespace {
thread_local DWORD t_lastError = 0;
}

DWORD GetLastError() {
    return t_lastError;
}

void SetLastError(DWORD error) {
    t_lastError = error;
}

} // namespace quorvel::win32
