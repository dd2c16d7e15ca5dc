#include "platform/replace_file.h"

#include "platform/linux/files/path.h"
#include "platform/linux/system/system_error.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>

namespace quorvel {

std::basic_string<WCHAR> FinalPath(const WCHAR* path) {
    constexpr int kMostLinks = 40; // as the kernel follows
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
    return path; // a circle of links: opening it will say so
}

BOOL MoveOver(const WCHAR* from, const WCHAR* to) {
    std::string source, target;
    if (!ToSystemPath(from, source) || !ToSystemPath(to, target))
        return FALSE;
    struct stat status;
    if (stat(target.c_str(), &status) == 0) {
        // The owner can only be kept by who may give files away; the mode comes last, because a
        // change of owner takes the set-user bits off.
        if (chown(source.c_str(), status.st_uid, status.st_gid) != 0)
            errno = 0;
        if (chmod(source.c_str(), status.st_mode & 07777) != 0)
            errno = 0;
    }
    if (std::rename(source.c_str(), target.c_str()) == 0)
        return TRUE;
    win32::SetLastError(ErrorFromErrno(errno));
    return FALSE;
}

} // namespace quorvel
