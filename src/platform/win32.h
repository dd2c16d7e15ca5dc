// The library's own sources include this to call the platform: the SDK on Windows, replacements
// with the same names on Linux.
#pragma once

#include <quorvel/platform/platform.h>

#if defined(_WIN32)

#include <shlwapi.h>

// On Linux POSIX has functions of these names in the global namespace. So calls name this
// namespace, on both systems.
namespace quorvel::win32 {
using ::accept;
using ::bind;
using ::closesocket;
using ::connect;
using ::getpeername;
using ::getsockname;
using ::getsockopt;
using ::ioctlsocket;
using ::listen;
using ::recv;
using ::recvfrom;
using ::send;
using ::sendto;
using ::setsockopt;
using ::shutdown;
using ::socket;
} // namespace quorvel::win32

#else
#include "platform/linux/api.h"
#endif

using namespace quorvel::win32;
