// Where the registry's file lies, and what is done to the file as a whole.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <string>

namespace quorvel {

// The file that QUORVEL_REGISTRY names, else the user's own. ERROR_BAD_PATHNAME when the variable
// holds no absolute path: the user's file must not serve in place of one that was mistyped;
// ERROR_PATH_NOT_FOUND when the user has no home.
DWORD LocateRegistry(std::string& path);

// Makes an empty file, and the folders it is missing, that only the user can look into. A file
// that is there stays as it is.
DWORD CreateRegistryFile(const std::string& path);

// Moves a damaged file and its journal to PATH.damaged-1 or the first such name that is free. The
// caller holds the lock. Where the folder cannot be written everything stays.
void MoveRegistryAside(const std::string& path);

// While it lives, nobody else opens, makes or moves aside the file, in this process or another.
// Where the folder cannot be written nothing is locked: nobody makes or moves anything there.
class RegistryLock {
public:
    explicit RegistryLock(const std::string& path);
    RegistryLock(const RegistryLock&) = delete;
    ~RegistryLock();

private:
    int m_descriptor;
};

} // namespace quorvel
