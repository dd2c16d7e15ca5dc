#include "platform/replace_file.h"

#include "platform/linux/files/open_files.h"
#include "platform/linux/files/path.h"
#include "platform/linux/system/system_error.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>

namespace quorvel {

namespace {

// Writes zeros after the content. On failure returns false and sets errno.
bool Lengthen(int file, off_t from, off_t to) {
    static constexpr char kZeros[65536] = {};
    while (from < to) {
        const std::size_t count =
            static_cast<std::size_t>(std::min<off_t>(to - from, sizeof kZeros));
        const ssize_t written = pwrite(file, kZeros, count, from);
        if (written < 0 && errno != EINTR)
            return false;
        from += std::max<ssize_t>(written, 0);
    }
    return true;
}

} // namespace

std::basic_string<WCHAR> FinalPath(const WCHAR* path) {
    constexpr int kMostLinks = 40; // the kernel's limit
    std::string name;
    if (!ToSystemPath(path, name))
        return path != nullptr ? path : u"";
    char target[PATH_MAX];
    for (int links = 0; links < kMostLinks; ++links) {
        const ssize_t length = readlink(name.c_str(), target, sizeof target);
        if (length <= 0 || length == sizeof target)
            return links == 0 ? path : FromSystemPath(name);
        const std::size_t separator = name.rfind('/');
        const bool relative = target[0] != '/' && separator != std::string::npos;
        name = (relative ? name.substr(0, separator + 1) : std::string()) +
               std::string(target, static_cast<std::size_t>(length));
    }
    return path; // a circle of links: opening it will fail
}

void ProtectLike(const WCHAR* file, const WCHAR* replaced) {
    std::string path, model;
    struct stat status;
    if (!ToSystemPath(file, path) || !ToSystemPath(replaced, model) ||
        stat(model.c_str(), &status) != 0)
        return;
    // Only a privileged user may change the owner. The mode is set last, because a change of owner
    // clears the set-user bits.
    if (chown(path.c_str(), status.st_uid, status.st_gid) != 0)
        errno = 0;
    if (chmod(path.c_str(), status.st_mode & 07777) != 0)
        errno = 0;
}

BOOL MoveOver(const WCHAR* from, const WCHAR* to) {
    std::string source, target;
    if (!ToSystemPath(from, source) || !ToSystemPath(to, target))
        return FALSE;
    if (std::rename(source.c_str(), target.c_str()) == 0)
        return TRUE;
    return FailWith(ErrorFromErrno(errno));
}

BOOL ReserveRoom(HANDLE handle, ULONGLONG size) {
    const auto file = FindHandle<OpenFile>(handle);
    struct stat status;
    if (file == nullptr)
        return FALSE;
    if (size == 0)
        return TRUE;
    if (fstat(file->Descriptor(), &status) != 0)
        return FailWith(ErrorFromErrno(errno));
    const off_t wanted = static_cast<off_t>(size);
    int result;
    do
        result = fallocate(file->Descriptor(), 0, 0, wanted);
    while (result != 0 && errno == EINTR);
    // Some file systems cannot reserve space.
    if (result == 0 ||
        (errno == EOPNOTSUPP && Lengthen(file->Descriptor(), status.st_size, wanted)))
        return TRUE;
    const int error = errno;
    if (ftruncate(file->Descriptor(), status.st_size) != 0)
        errno = 0;
    return FailWith(ErrorFromErrno(error));
}

} // namespace quorvel
