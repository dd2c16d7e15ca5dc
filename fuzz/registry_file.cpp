// A registry file of any bytes: calls give error codes that the registry has, a damaged file ends
// up aside, and after that a new one serves.
#include "platform/linux/registry_store.h"

#include "fuzz_input.h"
#include "support/temporary_folder.h"

#include <initializer_list>

using namespace quorvel;

namespace {

constexpr RegistryKey kUser = {2, 0};

bool IsOneOf(DWORD error, std::initializer_list<DWORD> codes) {
    return std::find(codes.begin(), codes.end(), error) != codes.end();
}

void CheckError(DWORD error) {
    Require(IsOneOf(error, {ERROR_SUCCESS, ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED,
                            ERROR_NO_MORE_ITEMS, ERROR_KEY_DELETED, ERROR_REGISTRY_CORRUPT,
                            ERROR_REVISION_MISMATCH, ERROR_BADDB, ERROR_BUSY, ERROR_DISK_FULL,
                            ERROR_NOT_ENOUGH_MEMORY, ERROR_NO_SYSTEM_RESOURCES}));
}

void Enumerate(RegistryStore& store, const RegistryKey& key, int depth) {
    RegistryCursor cursor;
    std::u16string name;
    BYTE buffer[64];
    for (DWORD index = 0; index < 20; ++index) {
        RegistryValue value;
        value.buffer = buffer;
        value.capacity = sizeof buffer;
        const DWORD error = store.ValueAt(key, index, cursor, name, value);
        CheckError(error);
        if (error != ERROR_SUCCESS)
            break;
        CheckError(store.Read(key, name, value));
    }
    RegistryCursor keys;
    for (DWORD index = 0; index < 10 && depth < 4; ++index) {
        RegistryKey below = {};
        const DWORD error = store.KeyAt(key, index, keys, name);
        CheckError(error);
        if (error != ERROR_SUCCESS)
            break;
        if (store.Open(key, name, false, below) == ERROR_SUCCESS)
            Enumerate(store, below, depth + 1);
    }
}

DWORD Change(RegistryStore& store) {
    RegistryKey key = {};
    bool isNew = false;
    DWORD error = store.Create(kUser, u"Software\\A\\B", key, isNew);
    CheckError(error);
    if (error != ERROR_SUCCESS)
        return error;
    error = store.Write(key, u"v", REG_BINARY, std::string(5000, 'x'));
    CheckError(error);
    CheckError(store.DeleteValue(key, u"v"));
    CheckError(store.DeleteKey(key, u""));
    return error;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 256 * 1024)
        return 0;
    const TemporaryFolder folder;
    folder.Write(_T("r"), std::string(data, data + size));
    RegistryStore store{std::string(CStringA(folder.Path(_T("r"))))};
    Enumerate(store, kUser, 0);
    for (int call = 0; call < 20; ++call) {
        if (Change(store) != ERROR_REGISTRY_CORRUPT)
            return 0; // it serves, or is refused
        Require(folder.Has(_T("r.damaged-1")));
    }
    std::abort(); // a new file is damaged again and again
}
