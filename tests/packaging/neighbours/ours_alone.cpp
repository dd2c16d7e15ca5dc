// Our headers alone define no macro with a common word as its name, and they define all names that
// a source for both systems uses.
#include "all_headers.h"

#if !defined(_WIN32)
enum class Method { GET, DELETE };
static_assert(quorvel::win32::DELETE == 0x10000 && Method::DELETE != Method::GET);
enum { ERROR_DISK_FULL = 7 }; // a name of the host
static_assert(::ERROR_DISK_FULL == 7 && quorvel::win32::ERROR_DISK_FULL == 112);
#endif
static_assert(AF_INET6 != AF_INET && FD_CLOSE == 32 && INVALID_SOCKET == ~SOCKET{0});
static_assert(LOWORD(0x12345678) == 0x5678 && MAKELONG(1, 0x8000) == LONG{-0x7fffffff});
static_assert(sizeof(MD5_CTX) == sizeof(quorvel::MD5_CTX));
