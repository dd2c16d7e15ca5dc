#include "frame/system_facts.h"

#include "framework/scoped_key.h"

namespace quorvel {

namespace {

LSTATUS OpenMachineKey(const WCHAR* path, ScopedKey& key) {
    return RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, KEY_QUERY_VALUE, &key.Receive());
}

DWORD QueryProductType(BYTE* data, DWORD* size) {
    ScopedKey key;
    if (const LSTATUS error =
            OpenMachineKey(_T("SYSTEM\\CurrentControlSet\\Control\\ProductOptions"), key))
        return static_cast<DWORD>(error);
    return static_cast<DWORD>(
        RegQueryValueExW(key.Get(), _T("ProductType"), nullptr, nullptr, data, size));
}

bool HasServicePack6a() {
    ScopedKey key;
    return OpenMachineKey(_T("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Hotfix\\Q246009"),
                          key) == ERROR_SUCCESS;
}

} // namespace

void ReadMachineFacts(SystemFacts& facts) {
    facts.nativeProcessor = NativeProcessor();
    facts.queryProductType = QueryProductType;
    facts.hasServicePack6a = HasServicePack6a;
}

} // namespace quorvel
