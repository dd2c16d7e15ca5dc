// A registry file with any bytes: every call ends, a damaged file is moved aside, and afterwards a
// new file works.
#include "platform/linux/registry/registry_store.h"

#include "fuzz_input.h"
#include "support/temporary_folder.h"

using namespace quorvel;

constexpr RegistryKey kUser = {2, 0};

static void Enumerate(RegistryStore& store, const RegistryKey& key, int depth) {
    RegistryCursor cursor;
    std::u16string name;
    BYTE buffer[64];
    for (DWORD index = 0; index < 20; ++index) {
        RegistryValue value;
        value.buffer = buffer, value.capacity = sizeof buffer;
        if (store.ValueAt(key, index, cursor, UINT_MAX, name, value) != ERROR_SUCCESS)
            break;
        store.Read(key, name, value);
    }
    RegistryCursor keys;
    for (DWORD index = 0; index < 10 && depth < 4; ++index) {
        RegistryKey below = {};
        if (store.KeyAt(key, index, keys, name) != ERROR_SUCCESS)
            break;
        if (store.Open(key, name, false, below) == ERROR_SUCCESS)
            Enumerate(store, below, depth + 1);
    }
}

static DWORD Change(RegistryStore& store) {
    RegistryKey key = {};
    bool isNew = false;
    if (const DWORD error = store.Create(kUser, u"Software\\A\\B", key, isNew))
        return error;
    const DWORD error = store.Write(key, u"v", REG_BINARY, std::string(5000, 'x'));
    store.DeleteValue(key, u"v");
    store.DeleteKey(key, u"");
    return error;
}

FUZZ_TARGET(input) {
    const TemporaryFolder folder;
    folder.Write(_T("r"), input.Bytes());
    RegistryStore store{std::string(CStringA(folder.Path(_T("r"))))};
    Enumerate(store, kUser, 0);
    for (int call = 0; call < 20; ++call) {
        if (Change(store) != ERROR_REGISTRY_CORRUPT)
            return; // the file works or is refused
        Require(folder.Has(_T("r.damaged-1")));
    }
    std::abort(); // a new file is damaged again and again
}
