#include "platform/linux/waits/clock.h"

#include <ctime>

namespace quorvel::win32 {

void GetLocalTime(SYSTEMTIME* time) {
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    tm local;
    localtime_r(&now.tv_sec, &local);
    *time = {static_cast<WORD>(local.tm_year + 1900), static_cast<WORD>(local.tm_mon + 1),
             static_cast<WORD>(local.tm_wday),        static_cast<WORD>(local.tm_mday),
             static_cast<WORD>(local.tm_hour),        static_cast<WORD>(local.tm_min),
             static_cast<WORD>(local.tm_sec),         static_cast<WORD>(now.tv_nsec / 1000000)};
}

void GetSystemTimeAsFileTime(FILETIME* time) {
    constexpr std::uint64_t kSecondsFrom1601To1970 = 11644473600;
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    const std::uint64_t units =
        (static_cast<std::uint64_t>(now.tv_sec) + kSecondsFrom1601To1970) * 10000000 +
        static_cast<std::uint64_t>(now.tv_nsec / 100);
    *time = {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
}

} // namespace quorvel::win32
