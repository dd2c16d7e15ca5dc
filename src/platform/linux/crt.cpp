#include "platform/win32.h"

namespace quorvel::win32 {

int _vscwprintf(const WCHAR*, va_list) {
    return -1;
}
int _vscprintf(const char*, va_list) {
    return -1;
}
int _vsnwprintf(WCHAR*, std::size_t, const WCHAR*, va_list) {
    return -1;
}
int _vsnprintf(char*, std::size_t, const char*, va_list) {
    return -1;
}

} // namespace quorvel::win32
