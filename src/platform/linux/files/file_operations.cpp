#include "platform/linux/files/file_operations.h"

#include "platform/linux/files/open_files.h"
#include "platform/linux/files/path.h"
#include "platform/linux/system/system_error.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <new>
#include <utility>

namespace quorvel::win32 {

namespace {

// Owns a descriptor until an OpenFile takes it.
class Descriptor {
public:
    explicit Descriptor(int descriptor) : m_descriptor(descriptor) {}
    Descriptor(Descriptor&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    ~Descriptor() {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }
    int Get() const { return m_descriptor; }
    int Release() { return std::exchange(m_descriptor, -1); }

private:
    int m_descriptor;
};

int OpenRetrying(const std::string& path, int flags, mode_t permissions = 0) {
    int descriptor;
    do
        descriptor = open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, permissions);
    while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

DWORD AccessOf(DWORD rights) {
    DWORD access = 0;
    if (rights & GENERIC_READ)
        access |= kReadAccess;
    if (rights & GENERIC_WRITE)
        access |= kWriteAccess;
    if (rights & DELETE)
        access |= kDeleteAccess;
    return access;
}

int OpenMode(DWORD access) {
    if (!(access & kWriteAccess))
        return O_RDONLY;
    return access & kReadAccess ? O_RDWR : O_WRONLY;
}

// Opens or creates the file as the disposition requires but does not change its contents: share
// modes are checked first. Sets errno on failure.
Descriptor OpenOrCreate(const std::string& path, int mode, DWORD disposition, mode_t permissions,
                        bool& existed) {
    existed = false;
    if (disposition == CREATE_NEW)
        return Descriptor(OpenRetrying(path, mode | O_CREAT | O_EXCL, permissions));
    Descriptor file(OpenRetrying(path, mode));
    existed = file.Get() >= 0;
    const bool mayCreate = disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
    if (existed || errno != ENOENT || !mayCreate)
        return file;
    return Descriptor(OpenRetrying(path, mode | O_CREAT, permissions));
}

DWORD CreateError(int error, DWORD disposition, const std::string& path) {
    if (error == EEXIST && disposition == CREATE_NEW)
        return ERROR_FILE_EXISTS;
    return PathErrorFromErrno(error, path);
}

bool IsKnownDisposition(DWORD disposition) {
    return disposition >= CREATE_NEW && disposition <= TRUNCATE_EXISTING;
}

// The open file, if the handle has this access; null with the last error set otherwise.
std::shared_ptr<OpenFile> FindFile(HANDLE handle, DWORD access) {
    auto file = FindHandle<OpenFile>(handle);
    if (file == nullptr || file->Allows(access))
        return file;
    SetLastError(ERROR_ACCESS_DENIED);
    return nullptr;
}

// The steps after opening: check kind, attributes and share mode, and only then change contents.
HANDLE FinishOpening(Descriptor descriptor, DWORD access, DWORD share, DWORD disposition,
                     bool existed, bool readOnly) {
    struct stat status;
    if (fstat(descriptor.Get(), &status) != 0) {
        SetLastError(ErrorFromErrno(errno));
        return INVALID_HANDLE_VALUE;
    }
    const bool changes =
        (access & (kWriteAccess | kDeleteAccess)) != 0 || disposition == CREATE_ALWAYS;
    if (S_ISDIR(status.st_mode) || (existed && changes && IsReadOnly(status))) {
        SetLastError(ERROR_ACCESS_DENIED);
        return INVALID_HANDLE_VALUE;
    }
    auto file = std::make_shared<OpenFile>(descriptor.Get(), status, access, share);
    descriptor.Release();
    if (!file->Register()) {
        SetLastError(ERROR_SHARING_VIOLATION);
        return INVALID_HANDLE_VALUE;
    }
    const bool truncates = disposition == CREATE_ALWAYS || disposition == TRUNCATE_EXISTING;
    if (existed && truncates && file->IsOnDisk() && ftruncate(file->Descriptor(), 0) != 0) {
        SetLastError(ErrorFromErrno(errno));
        return INVALID_HANDLE_VALUE;
    }
    if (existed && readOnly && disposition == CREATE_ALWAYS && file->IsOnDisk() &&
        fchmod(file->Descriptor(), status.st_mode & 07555) != 0) {
        SetLastError(ErrorFromErrno(errno));
        return INVALID_HANDLE_VALUE;
    }
    const HANDLE handle = NewHandle(std::move(file));
    return handle != nullptr ? handle : INVALID_HANDLE_VALUE;
}

} // namespace

HANDLE CreateFileW(LPCWSTR name, DWORD rights, DWORD share, SECURITY_ATTRIBUTES* security,
                   DWORD disposition, DWORD flags, HANDLE templateFile) {
    std::string path;
    if (!ToSystemPath(name, path))
        return INVALID_HANDLE_VALUE;
    const bool truncatesUnwritten = disposition == TRUNCATE_EXISTING && !(rights & GENERIC_WRITE);
    if (!IsKnownDisposition(disposition) || truncatesUnwritten || security != nullptr ||
        templateFile != nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    const DWORD access = AccessOf(rights);
    bool existed = false;
    // CREATE_ALWAYS truncates the file even for a handle without write access.
    const DWORD needed = access | (disposition == CREATE_ALWAYS ? DWORD{kWriteAccess} : 0u);
    // The other flags are hints. The handle that makes a file read-only can still write to it.
    const bool readOnly = (flags & FILE_ATTRIBUTE_READONLY) != 0;
    const mode_t permissions = readOnly ? 0444 : 0666;
    Descriptor descriptor = OpenOrCreate(path, OpenMode(needed), disposition, permissions, existed);
    if (descriptor.Get() < 0) {
        SetLastError(CreateError(errno, disposition, path));
        return INVALID_HANDLE_VALUE;
    }
    try {
        const HANDLE file =
            FinishOpening(std::move(descriptor), access, share, disposition, existed, readOnly);
        if (file != INVALID_HANDLE_VALUE)
            SetLastError(existed && disposition != OPEN_EXISTING && disposition != TRUNCATE_EXISTING
                             ? ERROR_ALREADY_EXISTS
                             : ERROR_SUCCESS);
        return file;
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return INVALID_HANDLE_VALUE;
    }
}

BOOL ReadFile(HANDLE handle, LPVOID buffer, DWORD count, LPDWORD bytesRead,
              OVERLAPPED* overlapped) {
    if (bytesRead == nullptr || overlapped != nullptr)
        return FailWith(ERROR_INVALID_PARAMETER);
    *bytesRead = 0;
    const auto file = FindFile(handle, kReadAccess);
    if (file == nullptr)
        return FALSE;
    while (*bytesRead < count) {
        const ssize_t n =
            read(file->Descriptor(), static_cast<BYTE*>(buffer) + *bytesRead, count - *bytesRead);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return FailWith(ErrorFromErrno(errno));
        *bytesRead += static_cast<DWORD>(n);
        if (n == 0 || !file->IsOnDisk())
            break; // a terminal or pipe returns what is available
    }
    return TRUE;
}

BOOL WriteFile(HANDLE handle, LPCVOID buffer, DWORD count, LPDWORD bytesWritten,
               OVERLAPPED* overlapped) {
    if (bytesWritten == nullptr || overlapped != nullptr)
        return FailWith(ERROR_INVALID_PARAMETER);
    *bytesWritten = 0;
    const auto file = FindFile(handle, kWriteAccess);
    if (file == nullptr)
        return FALSE;
    while (*bytesWritten < count) {
        const ssize_t n =
            write(file->Descriptor(), static_cast<const BYTE*>(buffer) + *bytesWritten,
                  count - *bytesWritten);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return FailWith(ErrorFromErrno(errno));
        *bytesWritten += static_cast<DWORD>(n);
    }
    return TRUE;
}

BOOL SetFilePointerEx(HANDLE handle, LARGE_INTEGER distance, LARGE_INTEGER* position,
                      DWORD method) {
    static_assert(FILE_BEGIN == SEEK_SET && FILE_CURRENT == SEEK_CUR && FILE_END == SEEK_END);
    const auto file = FindFile(handle, 0);
    if (file == nullptr)
        return FALSE;
    if (method > FILE_END)
        return FailWith(ERROR_INVALID_PARAMETER);
    const off_t result =
        lseek(file->Descriptor(), static_cast<off_t>(distance.QuadPart), static_cast<int>(method));
    if (result < 0) // a position before the start, or beyond the largest
        return FailWith(errno == EINVAL || errno == EOVERFLOW ? ERROR_NEGATIVE_SEEK
                                                              : ErrorFromErrno(errno));
    if (position != nullptr)
        position->QuadPart = result;
    return TRUE;
}

BOOL GetFileSizeEx(HANDLE handle, LARGE_INTEGER* size) {
    const auto file = FindFile(handle, 0);
    if (file == nullptr)
        return FALSE;
    struct stat status;
    if (size == nullptr)
        return FailWith(ERROR_INVALID_PARAMETER);
    if (fstat(file->Descriptor(), &status) != 0)
        return FailWith(ErrorFromErrno(errno));
    size->QuadPart = status.st_size;
    return TRUE;
}

BOOL SetEndOfFile(HANDLE handle) {
    const auto file = FindFile(handle, kWriteAccess);
    if (file == nullptr)
        return FALSE;
    const off_t position = lseek(file->Descriptor(), 0, SEEK_CUR);
    if (position < 0 || ftruncate(file->Descriptor(), position) != 0)
        return FailWith(ErrorFromErrno(errno));
    return TRUE;
}

BOOL FlushFileBuffers(HANDLE handle) {
    const auto file = FindFile(handle, kWriteAccess);
    if (file == nullptr)
        return FALSE;
    return fsync(file->Descriptor()) == 0 ? TRUE : FailWith(ErrorFromErrno(errno));
}

DWORD GetFileType(HANDLE handle) {
    const auto file = FindFile(handle, 0);
    if (file == nullptr)
        return FILE_TYPE_UNKNOWN;
    if (S_ISCHR(file->Mode()))
        return FILE_TYPE_CHAR;
    return S_ISFIFO(file->Mode()) || S_ISSOCK(file->Mode()) ? FILE_TYPE_PIPE : FILE_TYPE_DISK;
}

} // namespace quorvel::win32
