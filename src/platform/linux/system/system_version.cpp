#include "platform/linux/system/system_version.h"

#include "platform/linux/system/system_error.h"

#include <sys/utsname.h>

#include <cstdio>
#include <cstring>

namespace quorvel::win32 {

namespace {
constexpr DWORD kLinuxPlatform = 4;
}

BOOL GetVersionExW(OSVERSIONINFOW* version) {
    const DWORD size = version->dwOSVersionInfoSize;
    if (size != sizeof(OSVERSIONINFOW) && size != sizeof(OSVERSIONINFOEXW))
        return FailWith(ERROR_INSUFFICIENT_BUFFER);
    utsname system;
    unsigned major = 0;
    unsigned minor = 0;
    unsigned patch = 0;
    if (uname(&system) == 0) // "6.1.0-18-amd64": missing numbers stay 0
        std::sscanf(system.release, "%9u.%9u.%9u", &major, &minor, &patch);

    OSVERSIONINFOEXW result = {};
    static_assert(sizeof(OSVERSIONINFOW) == offsetof(OSVERSIONINFOEXW, wServicePackMajor));
    result.dwOSVersionInfoSize = size;
    result.dwMajorVersion = major;
    result.dwMinorVersion = minor;
    result.dwBuildNumber = patch;
    result.dwPlatformId = kLinuxPlatform;
    std::memcpy(static_cast<void*>(version), &result, size);
    return TRUE;
}

int GetSystemMetrics(int) {
    return 0;
}

} // namespace quorvel::win32
