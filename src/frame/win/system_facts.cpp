#include "frame/system_facts.h"

namespace quorvel {

// To a 32-bit process on a 64-bit system GetSystemInfo reports an emulated processor. The oldest
// supported systems lack GetNativeSystemInfo.
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
