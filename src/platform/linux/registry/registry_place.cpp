#include "platform/linux/registry/registry_place.h"

#include "platform/linux/files/shell_folders.h"
#include "platform/linux/system/system_error.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

namespace quorvel {

namespace {

DWORD MakeFoldersOf(const std::string& path) {
    for (std::size_t end = path.find('/', 1); end != std::string::npos;
         end = path.find('/', end + 1))
        if (mkdir(path.substr(0, end).c_str(), 0700) != 0 && errno != EEXIST)
            return ErrorFromErrno(errno);
    return ERROR_SUCCESS;
}

int OpenRetrying(const std::string& path, int flags) {
    int descriptor;
    do
        descriptor = open(path.c_str(), flags | O_CLOEXEC, 0600);
    while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

bool Exists(const std::string& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

} // namespace

DWORD LocateRegistry(std::string& path) {
    const char* const chosen = std::getenv("QUORVEL_REGISTRY");
    path = chosen != nullptr ? chosen : "";
    if (!path.empty())
        return path[0] == '/' ? ERROR_SUCCESS : ERROR_BAD_PATHNAME;
    const std::string folder = UserFolder("XDG_DATA_HOME", ".local/share");
    if (folder.empty())
        return ERROR_PATH_NOT_FOUND;
    path = folder + "/quorvel/registry.db";
    return ERROR_SUCCESS;
}

DWORD CreateRegistryFile(const std::string& path) {
    if (Exists(path))
        return ERROR_SUCCESS;
    int descriptor = OpenRetrying(path, O_RDWR | O_CREAT);
    if (descriptor < 0 && errno == ENOENT) {
        if (const DWORD error = MakeFoldersOf(path))
            return error;
        descriptor = OpenRetrying(path, O_RDWR | O_CREAT);
    }
    if (descriptor < 0)
        return ErrorFromErrno(errno);
    close(descriptor);
    return ERROR_SUCCESS;
}

void MoveRegistryAside(const std::string& path) {
    std::string aside;
    for (int number = 1;; ++number) {
        aside = path + ".damaged-" + std::to_string(number);
        if (!Exists(aside) && !Exists(aside + "-wal"))
            break;
    }
    // The journal first: SQLite would apply it to a new file of the same name.
    std::rename((path + "-wal").c_str(), (aside + "-wal").c_str());
    unlink((path + "-shm").c_str());
    std::rename(path.c_str(), aside.c_str());
}

RegistryLock::RegistryLock(const std::string& path) {
    m_descriptor = OpenRetrying(path + "-lock", O_RDWR | O_CREAT);
    if (m_descriptor < 0)
        return;
    while (flock(m_descriptor, LOCK_EX) != 0 && errno == EINTR) {
    }
}

RegistryLock::~RegistryLock() {
    if (m_descriptor >= 0)
        close(m_descriptor);
}

} // namespace quorvel
