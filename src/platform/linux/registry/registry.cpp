// The registry's operations check arguments, handles and rights. registry_store.cpp does the work.
#include "platform/linux/registry/registry_store.h"
#include "platform/linux/waits/handle.h"

#include <pthread.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace quorvel {

namespace {

// Never destroyed: a host's static objects may save their state after ours are destroyed. They find
// the file closed and open it again.
RegistryStore& UserRegistry() {
    static RegistryStore& store = []() -> RegistryStore& {
        auto* const made = new RegistryStore;
        pthread_atfork([] { UserRegistry().LockAndClose(); }, [] { UserRegistry().Unlock(); },
                       [] { UserRegistry().Unlock(); });
        return *made;
    }();
    static const struct Closer {
        ~Closer() { UserRegistry().Close(); }
    } closer;
    return store;
}

// The rights that the operations check; others have no effect.
constexpr DWORD kAllRights = KEY_ALL_ACCESS & 0xff;
constexpr DWORD kWritingRights = KEY_SET_VALUE | KEY_CREATE_SUB_KEY;

struct OpenKey : HandleObject {
    OpenKey(const RegistryKey& place, DWORD granted) : key(place), rights(granted) {}

    const RegistryKey key;
    const DWORD rights;
    RegistryCursor keys; // the store guards these two
    RegistryCursor values;
};

// The number of a root, from 1 in the order of the handles; 0 for any other handle.
std::int64_t RootOf(HKEY key) {
    static const HKEY kRoots[] = {HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE,
                                  HKEY_USERS, HKEY_CURRENT_CONFIG};
    const HKEY* const found = std::find(std::begin(kRoots), std::end(kRoots), key);
    return found != std::end(kRoots) ? found - kRoots + 1 : 0;
}

bool IsPerformanceRoot(HKEY key) {
    return key == HKEY_PERFORMANCE_DATA || key == HKEY_PERFORMANCE_TEXT ||
           key == HKEY_PERFORMANCE_NLSTEXT;
}

// The key behind a caller's handle.
class KeyReference {
public:
    explicit KeyReference(HKEY handle) : m_root(RootOf(handle)) {
        if (m_root == 0)
            m_open = FindHandle<OpenKey>(handle);
    }
    // ERROR_INVALID_HANDLE or ERROR_ACCESS_DENIED unless the handle is a key with these rights.
    DWORD Check(DWORD rights) const {
        if (m_root != 0)
            return ERROR_SUCCESS;
        if (m_open == nullptr)
            return ERROR_INVALID_HANDLE;
        return (m_open->rights & rights) == rights ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
    }
    bool IsRoot() const { return m_root != 0; }
    RegistryKey Key() const { return m_open != nullptr ? m_open->key : RegistryKey{m_root, 0}; }
    // The enumeration of a root starts again each time.
    RegistryCursor& Keys() { return m_open != nullptr ? m_open->keys : m_unkept; }
    RegistryCursor& Values() { return m_open != nullptr ? m_open->values : m_unkept; }

private:
    const std::int64_t m_root;
    std::shared_ptr<OpenKey> m_open;
    RegistryCursor m_unkept;
};

std::u16string_view ViewOf(LPCWSTR text) {
    return text != nullptr ? std::u16string_view(text) : std::u16string_view();
}

DWORD RightsOf(REGSAM access) {
    return access & MAXIMUM_ALLOWED ? kAllRights : access & kAllRights;
}

DWORD Publish(const RegistryKey& key, DWORD rights, HKEY* result) {
    const HANDLE handle = NewHandle(std::make_shared<OpenKey>(key, rights));
    if (handle == nullptr)
        return ERROR_NOT_ENOUGH_MEMORY;
    *result = static_cast<HKEY>(handle);
    return ERROR_SUCCESS;
}

bool IsText(DWORD kind) {
    return kind == REG_SZ || kind == REG_EXPAND_SZ || kind == REG_MULTI_SZ;
}

// Terminates a text that was stored without its terminator, if the buffer has room for it.
void Terminate(const RegistryValue& value) {
    constexpr std::int64_t kUnit = sizeof(WCHAR);
    if (!IsText(value.kind) || value.size < kUnit || value.capacity - value.size < kUnit)
        return;
    WCHAR last;
    std::memcpy(&last, value.buffer + value.size - kUnit, sizeof last);
    if (last != 0)
        std::memset(value.buffer + value.size, 0, sizeof last);
}

// Returns the value's kind and size, and the error code for a buffer that is too small.
DWORD Deliver(const RegistryValue& value, LPDWORD kind, LPDWORD size) {
    if (kind != nullptr)
        *kind = value.kind;
    if (size != nullptr)
        *size = static_cast<DWORD>(value.size);
    if (value.buffer == nullptr)
        return ERROR_SUCCESS;
    if (!value.Fits())
        return ERROR_MORE_DATA;
    Terminate(value);
    return ERROR_SUCCESS;
}

RegistryValue Wanted(LPBYTE data, LPDWORD size) {
    RegistryValue value;
    value.buffer = data;
    value.capacity = data != nullptr ? std::int64_t{*size} : -1;
    return value;
}

DWORD CopyName(std::u16string_view name, LPWSTR buffer, LPDWORD size) {
    if (name.size() >= *size)
        return ERROR_MORE_DATA;
    name.copy(buffer, name.size());
    buffer[name.size()] = 0;
    *size = static_cast<DWORD>(name.size());
    return ERROR_SUCCESS;
}

// No exception leaves the operation.
template <class Operation>
LSTATUS Guarded(Operation operation) {
    try {
        return static_cast<LSTATUS>(operation());
    } catch (const std::bad_alloc&) {
        return ERROR_NOT_ENOUGH_MEMORY;
    }
}

} // namespace

} // namespace quorvel

namespace quorvel::win32 {

LSTATUS RegCreateKeyExW(HKEY handle, LPCWSTR subKey, DWORD reserved, LPWSTR className,
                        DWORD options, REGSAM access, SECURITY_ATTRIBUTES* security, HKEY* result,
                        LPDWORD disposition) {
    return Guarded([&]() -> DWORD {
        if (reserved != 0 || className != nullptr || options != REG_OPTION_NON_VOLATILE ||
            security != nullptr || result == nullptr)
            return ERROR_INVALID_PARAMETER;
        const KeyReference parent(handle);
        if (const DWORD error = parent.Check(0))
            return error;
        RegistryKey key = {};
        bool isNew = false;
        if (const DWORD error = UserRegistry().Create(parent.Key(), ViewOf(subKey), key, isNew))
            return error;
        if (disposition != nullptr)
            *disposition = isNew ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
        return Publish(key, RightsOf(access), result);
    });
}

LSTATUS RegOpenKeyExW(HKEY handle, LPCWSTR subKey, DWORD options, REGSAM access, HKEY* result) {
    return Guarded([&]() -> DWORD {
        if (options != 0 || result == nullptr)
            return ERROR_INVALID_PARAMETER;
        const std::u16string_view path = ViewOf(subKey);
        const KeyReference parent(handle);
        if (path.empty() && (parent.IsRoot() || handle == HKEY_PERFORMANCE_DATA)) {
            *result = handle;
            return ERROR_SUCCESS;
        }
        *result = nullptr;
        if (const DWORD error = parent.Check(0))
            return error;
        RegistryKey key = {};
        const DWORD rights = RightsOf(access);
        const bool forWriting = (access & kWritingRights) != 0;
        if (const DWORD error = UserRegistry().Open(parent.Key(), path, forWriting, key))
            return error;
        return Publish(key, rights, result);
    });
}

LSTATUS RegCloseKey(HKEY key) {
    if (RootOf(key) != 0 || IsPerformanceRoot(key))
        return ERROR_SUCCESS;
    if (FindHandle<OpenKey>(key) == nullptr)
        return ERROR_INVALID_HANDLE;
    CloseHandle(key);
    return ERROR_SUCCESS;
}

LSTATUS RegDeleteKeyW(HKEY handle, LPCWSTR subKey) {
    return Guarded([&]() -> DWORD {
        const KeyReference parent(handle);
        if (const DWORD error = parent.Check(0))
            return error;
        if (subKey == nullptr)
            return ERROR_INVALID_PARAMETER;
        return UserRegistry().DeleteKey(parent.Key(), subKey);
    });
}

LSTATUS RegQueryValueExW(HKEY handle, LPCWSTR name, LPDWORD reserved, LPDWORD kind, LPBYTE data,
                         LPDWORD size) {
    return Guarded([&]() -> DWORD {
        if (reserved != nullptr || (data != nullptr && size == nullptr))
            return ERROR_INVALID_PARAMETER;
        const KeyReference key(handle);
        if (const DWORD error = key.Check(KEY_QUERY_VALUE))
            return error;
        RegistryValue value = Wanted(data, size);
        if (const DWORD error = UserRegistry().Read(key.Key(), ViewOf(name), value))
            return error;
        return Deliver(value, kind, size);
    });
}

LSTATUS RegSetValueExW(HKEY handle, LPCWSTR name, DWORD reserved, DWORD kind, const BYTE* data,
                       DWORD size) {
    return Guarded([&]() -> DWORD {
        if (reserved != 0)
            return ERROR_INVALID_PARAMETER;
        if (data == nullptr && size != 0)
            return ERROR_NOACCESS;
        const KeyReference key(handle);
        if (const DWORD error = key.Check(KEY_SET_VALUE))
            return error;
        return UserRegistry().Write(key.Key(), ViewOf(name), kind,
                                    std::string_view(reinterpret_cast<const char*>(data), size));
    });
}

LSTATUS RegDeleteValueW(HKEY handle, LPCWSTR name) {
    return Guarded([&]() -> DWORD {
        const KeyReference key(handle);
        if (const DWORD error = key.Check(KEY_SET_VALUE))
            return error;
        return UserRegistry().DeleteValue(key.Key(), ViewOf(name));
    });
}

LSTATUS RegEnumKeyExW(HKEY handle, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD reserved,
                      LPWSTR className, LPDWORD classSize, FILETIME* lastWriteTime) {
    return Guarded([&]() -> DWORD {
        if (name == nullptr || nameSize == nullptr || reserved != nullptr || className != nullptr ||
            classSize != nullptr || lastWriteTime != nullptr)
            return ERROR_INVALID_PARAMETER;
        KeyReference key(handle);
        if (const DWORD error = key.Check(KEY_ENUMERATE_SUB_KEYS))
            return error;
        std::u16string found;
        if (const DWORD error = UserRegistry().KeyAt(key.Key(), index, key.Keys(), found))
            return error;
        return CopyName(found, name, nameSize);
    });
}

LSTATUS RegEnumValueW(HKEY handle, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD reserved,
                      LPDWORD kind, LPBYTE data, LPDWORD size) {
    return Guarded([&]() -> DWORD {
        if (name == nullptr || nameSize == nullptr || reserved != nullptr ||
            (data != nullptr && size == nullptr))
            return ERROR_INVALID_PARAMETER;
        KeyReference key(handle);
        if (const DWORD error = key.Check(KEY_QUERY_VALUE))
            return error;
        std::u16string found;
        RegistryValue value = Wanted(data, size);
        if (const DWORD error =
                UserRegistry().ValueAt(key.Key(), index, key.Values(), *nameSize, found, value))
            return error;
        const DWORD error = CopyName(found, name, nameSize);
        if (error != ERROR_SUCCESS)
            value.buffer = nullptr; // the data is not changed either
        const DWORD ofData = Deliver(value, kind, size);
        return error != ERROR_SUCCESS ? error : ofData;
    });
}

} // namespace quorvel::win32
