#include "platform/linux/registry/registry_store.h"

#include "platform/case_fold.h"
#include "platform/linux/registry/registry_place.h"

#include <time.h>

#include <utility>

namespace quorvel {

namespace {

constexpr std::size_t kLongestPart = 255;
constexpr std::size_t kLongestName = 16'383;
constexpr int kDeepestKey = 512;
constexpr std::size_t kLargestValue = 1'000'000'000; // SQLite's limit

// Encodes each unit by itself like UTF-8. So lone surrogates may be names, and the bytes sort in
// the order of the units.
template <class Map>
void EncodeName(std::u16string_view name, std::string& bytes, Map map) {
    bytes.resize(3 * name.size());
    char* out = bytes.data();
    for (const char16_t unit : name) {
        const unsigned mapped = map(unit);
        if (mapped < 0x80) {
            *out++ = static_cast<char>(mapped);
            continue;
        }
        if (mapped < 0x800) {
            *out++ = static_cast<char>(0xc0 | mapped >> 6);
        } else {
            *out++ = static_cast<char>(0xe0 | mapped >> 12);
            *out++ = static_cast<char>(0x80 | (mapped >> 6 & 0x3f));
        }
        *out++ = static_cast<char>(0x80 | (mapped & 0x3f));
    }
    bytes.resize(static_cast<std::size_t>(out - bytes.data()));
}

void FoldName(std::u16string_view name, std::string& bytes) {
    EncodeName(name, bytes, [](char16_t unit) { return FoldCase(unit); });
}

void EncodeName(std::u16string_view name, std::string& bytes) {
    EncodeName(name, bytes, [](char16_t unit) { return unit; });
}

// For bytes that never occur in our names the result is unspecified, but not longer.
std::u16string DecodeName(std::string_view bytes) {
    std::u16string name;
    for (std::size_t i = 0; i < bytes.size();) {
        const auto next = [&]() -> unsigned {
            return i < bytes.size() ? static_cast<unsigned char>(bytes[i++]) : 0u;
        };
        unsigned unit = next();
        if (unit >= 0xe0)
            unit = (unit & 0x0f) << 12 | (next() & 0x3f) << 6;
        else if (unit >= 0xc0)
            unit = (unit & 0x1f) << 6;
        if (unit >= 0x80)
            unit |= next() & 0x3f;
        name += static_cast<char16_t>(unit);
    }
    return name;
}

// Splits a path into its parts. Skips empty parts, for example between two backslashes.
DWORD Split(std::u16string_view path, std::vector<std::u16string_view>& parts) {
    if (!path.empty() && path[0] == '\\')
        return ERROR_BAD_PATHNAME;
    for (std::size_t begin = 0; begin < path.size();) {
        const std::size_t end = std::min(path.find(u'\\', begin), path.size());
        if (end - begin > kLongestPart)
            return ERROR_INVALID_PARAMETER;
        if (end > begin)
            parts.push_back(path.substr(begin, end - begin));
        begin = end + 1;
    }
    return ERROR_SUCCESS;
}

bool IsWantOfRoom(DWORD error) {
    return error == ERROR_DISK_FULL || error == ERROR_FILE_TOO_LARGE;
}

// Several statements that others see as one step. Rolled back unless committed.
class Transaction {
public:
    Transaction(RegistryFile& file, RegistrySql begin)
        : m_file(file), m_error(RegistryQuery(file, begin).Run()) {}
    Transaction(const Transaction&) = delete;
    ~Transaction() {
        if (m_error == ERROR_SUCCESS && m_file.IsInTransaction())
            RegistryQuery(m_file, RegistrySql::Rollback).Run();
    }
    DWORD Error() const { return m_error; }
    DWORD Commit() { return RegistryQuery(m_file, RegistrySql::Commit).Run(); }

private:
    RegistryFile& m_file;
    const DWORD m_error;
};

// Copies the data if it fits in the buffer.
DWORD TakeData(const RegistryQuery& row, int column, RegistryValue& value) {
    if (!value.Fits())
        return ERROR_SUCCESS;
    const std::string_view data = row.Bytes(column);
    if (static_cast<std::int64_t>(data.size()) != value.size)
        return ERROR_REGISTRY_CORRUPT; // not a blob
    data.copy(reinterpret_cast<char*>(value.buffer), data.size());
    return ERROR_SUCCESS;
}

// The name at which an enumeration starts to search, and the number of entries to skip. An
// enumeration that starts again sees entries that were added before its cursor.
struct Start {
    std::string fold;
    DWORD offset;
};
Start StartOf(const RegistryCursor& cursor, DWORD index) {
    if (index == 0 || cursor.fold.empty())
        return {std::string(), index};
    if (index == cursor.index)
        return {cursor.fold, 0};
    if (index == cursor.index + 1)
        return {cursor.fold + '\0', 0}; // the first name that can follow it
    return {std::string(), index};
}

} // namespace

bool RegistryStore::LastCheck::IsOver() {
    timespec now;
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    const std::int64_t tick = now.tv_sec * 20 + now.tv_nsec / 50'000'000;
    return std::exchange(m_tick, tick) != tick;
}

template <class Operation>
DWORD RegistryStore::Run(Access access, const RegistryKey& key, Operation operation) {
    const std::lock_guard lock(m_mutex);
    DWORD error = Prepare(access);
    if (error == ERROR_FILE_NOT_FOUND && !key.IsRoot())
        return ERROR_KEY_DELETED; // its file was deleted too
    if (error != ERROR_SUCCESS)
        return error;
    error = operation();
    // The log itself may have filled a small disk, so merging it may help.
    if (IsWantOfRoom(error) && m_file.MergeLog())
        error = operation();
    if (error == ERROR_REGISTRY_CORRUPT)
        m_file.CloseDamaged();
    return error;
}

DWORD RegistryStore::Prepare(Access access) {
    const bool changes = access != Access::Read;
    // The reason that prevented writing may no longer exist, so the file is opened again.
    if (m_file.IsOpen() &&
        ((changes && m_file.WriteError() != ERROR_SUCCESS) ||
         ((changes || m_lastCheck.IsOver()) && (m_file.IsUnchanging() || !m_file.IsInPlace()))))
        m_file.Close();
    if (!m_file.IsOpen()) {
        std::string path = m_path;
        if (path.empty())
            if (const DWORD error = LocateRegistry(path))
                return error;
        if (const DWORD error = m_file.Open(path, access == Access::Create))
            return error;
    }
    return changes ? m_file.WriteError() : DWORD{ERROR_SUCCESS};
}

DWORD RegistryStore::RequireKey(const RegistryKey& key, DWORD otherwise) {
    RegistryQuery query(m_file, RegistrySql::HasKey, key.id);
    if (query.Next())
        return otherwise;
    return query.Error() != ERROR_SUCCESS ? query.Error() : ERROR_KEY_DELETED;
}

DWORD RegistryStore::Find(std::int64_t parent, std::u16string_view name, std::int64_t& id) {
    FoldName(name, m_fold);
    RegistryQuery query(m_file, RegistrySql::FindKey, parent, m_fold);
    if (!query.Next())
        return query.Error() != ERROR_SUCCESS ? query.Error() : ERROR_FILE_NOT_FOUND;
    id = query.Number(0);
    return ERROR_SUCCESS;
}

DWORD RegistryStore::Walk(const RegistryKey& parent, const Parts& parts, RegistryKey& key) {
    RegistryKey place = parent;
    DWORD error = parts.empty() ? RequireKey(parent, ERROR_SUCCESS) : ERROR_SUCCESS;
    for (const std::u16string_view part : parts) {
        error = Find(place.id, part, place.id);
        if (error != ERROR_SUCCESS)
            break;
        ++place.depth;
    }
    if (error == ERROR_FILE_NOT_FOUND && place.depth == parent.depth)
        return RequireKey(parent, error);
    if (error == ERROR_SUCCESS)
        key = place;
    return error;
}

DWORD RegistryStore::AddMissing(const RegistryKey& parent, const Parts& parts, RegistryKey& key,
                                bool& isNew) {
    RegistryKey place = parent;
    if (const DWORD error = RequireKey(parent, ERROR_SUCCESS))
        return error;
    isNew = false;
    for (const std::u16string_view part : parts) {
        const std::int64_t above = place.id;
        ++place.depth;
        const DWORD error = Find(above, part, place.id);
        if (error == ERROR_SUCCESS)
            continue;
        if (error != ERROR_FILE_NOT_FOUND)
            return error;
        EncodeName(part, m_name);
        RegistryQuery add(m_file, RegistrySql::AddKey, above, m_fold, m_name);
        if (!add.Next())
            return add.Error();
        place.id = add.Number(0);
        isNew = true;
        add.Next(); // the insertion is complete only after this
        if (add.Error() != ERROR_SUCCESS)
            return add.Error();
    }
    key = place;
    return ERROR_SUCCESS;
}

DWORD RegistryStore::Open(const RegistryKey& parent, std::u16string_view path, bool forWriting,
                          RegistryKey& key) {
    Parts parts;
    if (const DWORD error = Split(path, parts))
        return error;
    return Run(Access::Read, parent, [&]() -> DWORD {
        // On a full disk the key can be opened; only writes fail.
        const DWORD refusal = m_file.WriteError();
        if (forWriting && refusal != ERROR_SUCCESS && !IsWantOfRoom(refusal))
            return refusal;
        const Transaction transaction(m_file, RegistrySql::Begin);
        return transaction.Error() != ERROR_SUCCESS ? transaction.Error()
                                                    : Walk(parent, parts, key);
    });
}

DWORD RegistryStore::Create(const RegistryKey& parent, std::u16string_view path, RegistryKey& key,
                            bool& isNew) {
    Parts parts;
    if (const DWORD error = Split(path, parts))
        return error;
    if (parts.size() > static_cast<std::size_t>(kDeepestKey - parent.depth))
        return ERROR_INVALID_PARAMETER;
    return Run(Access::Create, parent, [&] {
        // Usually the key exists, and a read need not wait for writers.
        {
            const Transaction reading(m_file, RegistrySql::Begin);
            const DWORD error =
                reading.Error() != ERROR_SUCCESS ? reading.Error() : Walk(parent, parts, key);
            isNew = false;
            if (error != ERROR_FILE_NOT_FOUND)
                return error;
        }
        Transaction writing(m_file, RegistrySql::BeginWriting);
        if (writing.Error() != ERROR_SUCCESS)
            return writing.Error();
        const DWORD error = AddMissing(parent, parts, key, isNew);
        return error != ERROR_SUCCESS ? error : writing.Commit();
    });
}

DWORD RegistryStore::Remove(const RegistryKey& key) {
    if (key.IsRoot())
        return ERROR_ACCESS_DENIED;
    {
        RegistryQuery below(m_file, RegistrySql::HasKeys, key.id);
        if (below.Next())
            return ERROR_ACCESS_DENIED;
        if (below.Error() != ERROR_SUCCESS)
            return below.Error();
    }
    if (const DWORD error = RegistryQuery(m_file, RegistrySql::RemoveAll, key.id).Run())
        return error;
    return RegistryQuery(m_file, RegistrySql::RemoveKey, key.id).Run();
}

DWORD RegistryStore::DeleteKey(const RegistryKey& parent, std::u16string_view path) {
    Parts parts;
    if (const DWORD error = Split(path, parts))
        return error;
    return Run(Access::Change, parent, [&] {
        Transaction writing(m_file, RegistrySql::BeginWriting);
        RegistryKey key = parent;
        DWORD error = writing.Error();
        if (error == ERROR_SUCCESS)
            error = Walk(parent, parts, key);
        if (error == ERROR_SUCCESS)
            error = Remove(key);
        return error != ERROR_SUCCESS ? error : writing.Commit();
    });
}

DWORD RegistryStore::KeyAt(const RegistryKey& parent, DWORD index, RegistryCursor& cursor,
                           std::u16string& name) {
    const DWORD error = Run(Access::Read, parent, [&] {
        const Start start = StartOf(cursor, index);
        RegistryQuery query(m_file, RegistrySql::KeyFrom, parent.id, start.fold,
                            std::int64_t{start.offset});
        if (!query.Next())
            return query.Error() != ERROR_SUCCESS ? query.Error()
                                                  : RequireKey(parent, ERROR_NO_MORE_ITEMS);
        cursor = {index, std::string(query.Bytes(0))};
        name = DecodeName(query.Bytes(1));
        return DWORD{ERROR_SUCCESS};
    });
    return error == ERROR_FILE_NOT_FOUND ? ERROR_NO_MORE_ITEMS : error; // no file: no keys
}

DWORD RegistryStore::Read(const RegistryKey& key, std::u16string_view name, RegistryValue& value) {
    return Run(Access::Read, key, [&] {
        FoldName(name, m_fold);
        const bool wantsData = value.buffer != nullptr;
        RegistryQuery query(m_file, wantsData ? RegistrySql::Read : RegistrySql::ReadSize, key.id,
                            m_fold);
        if (!query.Next())
            return query.Error() != ERROR_SUCCESS ? query.Error()
                                                  : RequireKey(key, ERROR_FILE_NOT_FOUND);
        value.kind = static_cast<DWORD>(query.Number(0));
        value.size = wantsData ? std::int64_t(query.Bytes(1).size()) : query.Number(1);
        return TakeData(query, 1, value);
    });
}

DWORD RegistryStore::Write(const RegistryKey& key, std::u16string_view name, DWORD kind,
                           std::string_view data) {
    if (name.size() > kLongestName)
        return ERROR_INVALID_PARAMETER;
    if (data.size() > kLargestValue)
        return ERROR_NO_SYSTEM_RESOURCES;
    return Run(Access::Create, key, [&] {
        FoldName(name, m_fold);
        EncodeName(name, m_name);
        return RegistryQuery(m_file, RegistrySql::Write, key.id, m_fold, m_name, std::int64_t{kind},
                             data)
            .Run();
    });
}

DWORD RegistryStore::DeleteValue(const RegistryKey& key, std::u16string_view name) {
    return Run(Access::Change, key, [&] {
        FoldName(name, m_fold);
        const DWORD error = RegistryQuery(m_file, RegistrySql::Remove, key.id, m_fold).Run();
        if (error != ERROR_SUCCESS || m_file.Changes() > 0)
            return error;
        return RequireKey(key, ERROR_FILE_NOT_FOUND);
    });
}

DWORD RegistryStore::ValueAt(const RegistryKey& key, DWORD index, RegistryCursor& cursor,
                             DWORD nameRoom, std::u16string& name, RegistryValue& value) {
    const DWORD error = Run(Access::Read, key, [&] {
        const Start start = StartOf(cursor, index);
        RegistryQuery query(m_file, RegistrySql::ValueFrom, key.id, start.fold,
                            std::int64_t{start.offset}, value.capacity);
        if (!query.Next())
            return query.Error() != ERROR_SUCCESS ? query.Error()
                                                  : RequireKey(key, ERROR_NO_MORE_ITEMS);
        cursor = {index, std::string(query.Bytes(0))};
        name = DecodeName(query.Bytes(1));
        value.kind = static_cast<DWORD>(query.Number(2));
        value.size = query.Number(3);
        return name.size() < nameRoom ? TakeData(query, 4, value) : ERROR_SUCCESS;
    });
    return error == ERROR_FILE_NOT_FOUND ? ERROR_NO_MORE_ITEMS : error; // no file: no values
}

void RegistryStore::Close() {
    const std::lock_guard lock(m_mutex);
    m_file.Close();
}

void RegistryStore::LockAndClose() {
    m_mutex.lock();
    m_file.Close();
}

} // namespace quorvel
