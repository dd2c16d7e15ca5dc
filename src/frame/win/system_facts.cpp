#include "frame/system_facts.h"

namespace quorvel {

// GetSystemInfo tells a 32-bit process on a 64-bit system of the processor it pretends; the native
// form is younger than the oldest systems served.
WORD NativeProcessor() {
    typedef void(WINAPI * SystemInfoQuery)(SYSTEM_INFO*);
    SYSTEM_INFO info = {};
    const auto native = reinterpret_cast<SystemInfoQuery>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(_T("kernel32.dll")), "GetNativeSystemInfo")));
    if (native != nullptr)
        native(&info);
    else
        GetSystemInfo(&info);
    return info.wProcessorArchitecture;
}

} // namespace quorvel
