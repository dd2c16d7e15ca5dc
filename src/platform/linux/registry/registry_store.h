// The keys and values of a registry file. Any thread.
//
// Results are the error codes of the registry's operations. The first call opens the file, the
// first write creates it, and it is opened again when another file has replaced it. A call that
// detects damage returns ERROR_REGISTRY_CORRUPT and moves the file aside.
#pragma once

#include "platform/linux/registry/registry_file.h"

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

struct RegistryKey {
    std::int64_t id; // of a root: 1 to 5
    int depth;       // of a root: 0
    bool IsRoot() const { return depth == 0; }
};

// A value that is read: its kind and size, and its bytes if they all fit in the buffer.
struct RegistryValue {
    std::int64_t capacity = -1; // of the buffer; -1 when there is none
    BYTE* buffer = nullptr;
    DWORD kind = REG_NONE;
    std::int64_t size = 0;

    bool Fits() const { return size <= capacity; }
};

// The position of an enumeration, so that the next step need not count from the start.
struct RegistryCursor {
    DWORD index = 0;
    std::string fold; // empty before the first
};

class RegistryStore {
public:
    // Without a path this is the user's registry; its location is determined when it is opened.
    explicit RegistryStore(std::string path = std::string()) : m_path(std::move(path)) {}

    // For writing, returns ERROR_ACCESS_DENIED or a similar error when the file is read-only. On a
    // full disk the key can still be opened.
    DWORD Open(const RegistryKey& parent, std::u16string_view path, bool forWriting,
               RegistryKey& key);
    DWORD Create(const RegistryKey& parent, std::u16string_view path, RegistryKey& key,
                 bool& isNew);
    DWORD DeleteKey(const RegistryKey& parent, std::u16string_view path);
    DWORD KeyAt(const RegistryKey& parent, DWORD index, RegistryCursor& cursor,
                std::u16string& name);

    DWORD Read(const RegistryKey& key, std::u16string_view name, RegistryValue& value);
    DWORD Write(const RegistryKey& key, std::u16string_view name, DWORD kind,
                std::string_view data);
    DWORD DeleteValue(const RegistryKey& key, std::u16string_view name);
    // Reads the bytes only if the name has fewer than `nameRoom` characters.
    DWORD ValueAt(const RegistryKey& key, DWORD index, RegistryCursor& cursor, DWORD nameRoom,
                  std::u16string& name, RegistryValue& value);

    // Closes the file; the next call opens it again.
    void Close();
    // For fork: SQLite's locks belong to a process, so a child must not inherit an open file.
    void LockAndClose();
    void Unlock() { m_mutex.unlock(); }

private:
    typedef std::vector<std::u16string_view> Parts;
    enum class Access { Read, Change, Create };

    // Detecting a replaced file needs a system call, a fifth of the cost of a read. A write checks
    // each time, a read at most every 50 ms: its result may be that much out of date.
    class LastCheck {
    public:
        bool IsOver();

    private:
        std::int64_t m_tick = 0;
    };

    template <class Operation>
    DWORD Run(Access access, const RegistryKey& key, Operation operation);
    DWORD Prepare(Access access);
    DWORD RequireKey(const RegistryKey& key, DWORD otherwise);
    DWORD Find(std::int64_t parent, std::u16string_view name, std::int64_t& id);
    DWORD Walk(const RegistryKey& parent, const Parts& parts, RegistryKey& key);
    DWORD AddMissing(const RegistryKey& parent, const Parts& parts, RegistryKey& key, bool& isNew);
    DWORD Remove(const RegistryKey& key);

    std::mutex m_mutex; // guards all of the below
    const std::string m_path;
    RegistryFile m_file;
    std::string m_fold; // the current name's fold; a member to reuse its memory
    std::string m_name;
    LastCheck m_lastCheck;
};

} // namespace quorvel
