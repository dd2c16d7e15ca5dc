#include "frame/system_facts.h"

#include <memory>
#include <type_traits>

namespace quorvel {

namespace {

struct CloseKey {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
typedef std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey> RegistryKey;

LSTATUS OpenMachineKey(const WCHAR* path, RegistryKey& key) {
    HKEY opened = nullptr;
    const LSTATUS error = RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, KEY_QUERY_VALUE, &opened);
    key.reset(opened);
    return error;
}

DWORD QueryProductType(BYTE* data, DWORD* size) {
    RegistryKey key;
    if (const LSTATUS error =
            OpenMachineKey(_T("SYSTEM\\CurrentControlSet\\Control\\ProductOptions"), key))
        return static_cast<DWORD>(error);
    return static_cast<DWORD>(
        RegQueryValueExW(key.get(), _T("ProductType"), nullptr, nullptr, data, size));
}

bool HasServicePack6a() {
    RegistryKey key;
    return OpenMachineKey(_T("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Hotfix\\Q246009"),
                          key) == ERROR_SUCCESS;
}

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

} // namespace

void ReadMachineFacts(SystemFacts& facts) {
    facts.nativeProcessor = NativeProcessor();
    facts.queryProductType = QueryProductType;
    facts.hasServicePack6a = HasServicePack6a;
}

} // namespace quorvel
