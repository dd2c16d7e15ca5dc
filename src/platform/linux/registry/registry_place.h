// The location of the registry's file, and operations on the file as a whole.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <string>

namespace quorvel {

// The file that QUORVEL_REGISTRY names, otherwise the user's own. ERROR_BAD_PATHNAME when the
// variable is not an absolute path: a typing error must not select the user's file.
// ERROR_PATH_NOT_FOUND when the user has no home.
DWORD LocateRegistry(std::string& path);

// Creates an empty file and its missing folders, accessible only to the user. Does not change an
// existing file.
DWORD CreateRegistryFile(const std::string& path);

// Renames a damaged file and its journal to PATH.damaged-1 or the first such name that is free. The
// caller holds the lock. Does nothing in a read-only folder.
void MoveRegistryAside(const std::string& path);

// While it exists, no other thread or process opens, creates or moves the file. In a read-only
// folder it locks nothing, because nobody can create or move files there.
class RegistryLock {
public:
    explicit RegistryLock(const std::string& path);
    RegistryLock(const RegistryLock&) = delete;
    ~RegistryLock();

private:
    int m_descriptor;
};

} // namespace quorvel
