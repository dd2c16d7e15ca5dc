// The keys and values of a registry file. Any thread.
//
// The results are the error codes of the registry's operations. The file is opened by the first
// call, made by the first that writes, and opened anew where another has taken its place. A call
// that meets damage gives ERROR_REGISTRY_CORRUPT and moves the file aside.
#pragma once

#include "platform/linux/registry/registry_file.h"

#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

struct RegistryKey {
    std::int64_t id; // of a root, 1 to 5
    int depth;       // of a root, 0
    bool IsRoot() const { return depth == 0; }
};

// A value as it is read: its kind and size, and its bytes where the buffer has room for them all.
struct RegistryValue {
    std::int64_t capacity = -1; // of the buffer; -1 when there is none
    BYTE* buffer = nullptr;
    DWORD kind = REG_NONE;
    std::int64_t size = 0;

    bool Fits() const { return size <= capacity; }
};

// Where an enumeration stands, so that going on need not count from the start.
struct RegistryCursor {
    DWORD index = 0;
    std::string fold; // empty before the first
};

class RegistryStore {
public:
    // Without a path the user's registry, wherever that is when it is opened.
    explicit RegistryStore(std::string path = std::string()) : m_path(std::move(path)) {}

    // Where the key is wanted for writing, ERROR_ACCESS_DENIED or the like when the file may not be
    // written; on a full disk it opens.
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
    // The bytes are read only where the name has fewer than `nameRoom` characters.
    DWORD ValueAt(const RegistryKey& key, DWORD index, RegistryCursor& cursor, DWORD nameRoom,
                  std::u16string& name, RegistryValue& value);

    // Lets go of the file; the next call opens it again.
    void Close();
    // Around fork: SQLite's locks belong to a process, so a child must not inherit an open file.
    void LockAndClose();
    void Unlock() { m_mutex.unlock(); }

private:
    typedef std::vector<std::u16string_view> Parts;
    enum class Access { Read, Change, Create };

    // Whether the file has been replaced costs a system call, a fifth of a read. A write asks each
    // time; a read at most every 50 ms: it then tells what was true a moment ago.
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
    std::string m_fold; // of the name at hand, as the next kept for its room
    std::string m_name;
    LastCheck m_lastCheck;
};

} // namespace quorvel
