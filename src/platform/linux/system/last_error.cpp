#include <quorvel/platform/linux_api.h>

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

int WSAGetLastError() {
    return static_cast<int>(t_lastError);
}

void WSASetLastError(int error) {
    t_lastError = static_cast<DWORD>(error);
}

} // namespace quorvel::win32
