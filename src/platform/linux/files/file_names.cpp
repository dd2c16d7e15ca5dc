// File operations that take names instead of handles.
#include "platform/linux/files/file_operations.h"

#include "platform/linux/files/open_files.h"
#include "platform/linux/files/path.h"
#include "platform/linux/system/system_error.h"
#include "platform/scoped_handle.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace quorvel::win32 {

namespace {

// Reads the status of the file itself, not of a link's target. Returns false, with the last error
// set, when it is missing or a handle without shared deletion is open.
bool FindUnheld(const std::string& path, struct stat& status) {
    if (lstat(path.c_str(), &status) != 0)
        return FailWith(PathErrorFromErrno(errno, path));
    return !OpenFile::IsHeld(status, kDeleteAccess) || FailWith(ERROR_SHARING_VIOLATION);
}

bool IsSameFile(const struct stat& left, const struct stat& right) {
    return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

// Whether the target may be replaced: a file that is neither read-only nor in use.
bool IsReplaceable(const struct stat& status) {
    return !S_ISDIR(status.st_mode) && !IsReadOnly(status) &&
           !OpenFile::IsHeld(status, kDeleteAccess);
}

int Rename(const char* source, const char* target, bool replace) {
    if (replace)
        return rename(source, target);
    const int result = renameat2(AT_FDCWD, source, AT_FDCWD, target, RENAME_NOREPLACE);
    // The file system lacks that flag. The caller has just found that there is no target.
    return result != 0 && errno == EINVAL ? rename(source, target) : result;
}

BOOL CopyContents(HANDLE source, HANDLE target) {
    BYTE buffer[32 * 1024];
    DWORD read = 0;
    do {
        DWORD written = 0;
        if (!ReadFile(source, buffer, sizeof buffer, &read, nullptr) ||
            !WriteFile(target, buffer, read, &written, nullptr))
            return FALSE;
    } while (read == sizeof buffer);
    return TRUE;
}

// Moves to another file system. Copies first, so that a failure loses nothing.
BOOL MoveByCopying(LPCWSTR from, LPCWSTR to, bool replace) {
    {
        const ScopedHandle source(
            CreateFileW(from, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        if (!source.IsValid())
            return FALSE;
        const ScopedHandle target(CreateFileW(to, GENERIC_WRITE, 0, nullptr,
                                              replace ? CREATE_ALWAYS : CREATE_NEW, 0, nullptr));
        if (!target.IsValid())
            return FALSE;
        if (!CopyContents(source.Get(), target.Get())) {
            const DWORD error = GetLastError();
            std::string path;
            if (ToSystemPath(to, path))
                unlink(path.c_str());
            return FailWith(error);
        }
    }
    return DeleteFileW(from);
}

} // namespace

BOOL DeleteFileW(LPCWSTR name) {
    std::string path;
    struct stat status;
    if (!ToSystemPath(name, path) || !FindUnheld(path, status))
        return FALSE;
    if (IsReadOnly(status))
        return FailWith(ERROR_ACCESS_DENIED);
    return unlink(path.c_str()) == 0 ? TRUE : FailWith(PathErrorFromErrno(errno, path));
}

DWORD GetFileAttributesW(LPCWSTR name) {
    std::string path;
    if (!ToSystemPath(name, path))
        return INVALID_FILE_ATTRIBUTES;
    struct stat status;
    if (stat(path.c_str(), &status) != 0) {
        SetLastError(PathErrorFromErrno(errno, path));
        return INVALID_FILE_ATTRIBUTES;
    }
    if (S_ISDIR(status.st_mode))
        return FILE_ATTRIBUTE_DIRECTORY;
    return FILE_ATTRIBUTE_ARCHIVE | (IsReadOnly(status) ? FILE_ATTRIBUTE_READONLY : 0u);
}

BOOL MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags) {
    std::string source;
    std::string target;
    if (!ToSystemPath(from, source) || !ToSystemPath(to, target))
        return FALSE;
    struct stat status;
    if (!FindUnheld(source, status))
        return FALSE;
    bool replace = (flags & MOVEFILE_REPLACE_EXISTING) != 0;
    struct stat old;
    if (lstat(target.c_str(), &old) == 0) {
        if (IsSameFile(status, old))
            replace = true; // another name of the same file
        else if (!replace)
            return FailWith(ERROR_ALREADY_EXISTS);
        else if (!IsReplaceable(old))
            return FailWith(ERROR_ACCESS_DENIED);
    }
    if (Rename(source.c_str(), target.c_str(), replace) == 0)
        return TRUE;
    if (errno == EXDEV && (flags & MOVEFILE_COPY_ALLOWED) && S_ISREG(status.st_mode))
        return MoveByCopying(from, to, replace);
    return FailWith(PathErrorFromErrno(errno, target));
}

BOOL MoveFileW(LPCWSTR from, LPCWSTR to) {
    return MoveFileExW(from, to, MOVEFILE_COPY_ALLOWED);
}

BOOL CreateDirectoryW(LPCWSTR name, SECURITY_ATTRIBUTES* security) {
    std::string path;
    if (!ToSystemPath(name, path))
        return FALSE;
    if (security != nullptr)
        return FailWith(ERROR_INVALID_PARAMETER);
    if (mkdir(path.c_str(), 0777) == 0)
        return TRUE;
    return FailWith(errno == ENOENT ? ERROR_PATH_NOT_FOUND : ErrorFromErrno(errno));
}

} // namespace quorvel::win32
