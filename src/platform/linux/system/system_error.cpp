#include "platform/linux/system/system_error.h"

#include <cerrno>

namespace quorvel {

DWORD ErrorFromErrno(int error) {
    struct Row {
        int system;
        DWORD code;
    };
    static constexpr Row kRows[] = {
        {ENOENT, ERROR_FILE_NOT_FOUND},
        {ENOTDIR, ERROR_PATH_NOT_FOUND},
        {EACCES, ERROR_ACCESS_DENIED},
        {EPERM, ERROR_ACCESS_DENIED},
        {EISDIR, ERROR_ACCESS_DENIED},
        {EEXIST, ERROR_ALREADY_EXISTS},
        {ENOTEMPTY, ERROR_DIR_NOT_EMPTY},
        {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
        {ENFILE, ERROR_TOO_MANY_OPEN_FILES},
        {EBADF, ERROR_INVALID_HANDLE},
        {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
        {EINVAL, ERROR_INVALID_PARAMETER},
        {EFAULT, ERROR_NOACCESS},
        {ENOSPC, ERROR_DISK_FULL},
        {EDQUOT, ERROR_DISK_FULL},
        {EFBIG, ERROR_FILE_TOO_LARGE},
        {EROFS, ERROR_WRITE_PROTECT},
        {EIO, ERROR_IO_DEVICE},
        {EBUSY, ERROR_BUSY},
        {ETXTBSY, ERROR_SHARING_VIOLATION},
        {EXDEV, ERROR_NOT_SAME_DEVICE},
        {ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE},
        {ELOOP, ERROR_CANT_RESOLVE_FILENAME},
        {EILSEQ, ERROR_INVALID_NAME},
        {ESPIPE, ERROR_INVALID_FUNCTION},
        {EPIPE, ERROR_NO_DATA},
        {ENODEV, ERROR_NOT_READY},
        {ENXIO, ERROR_NOT_READY},
        {EOPNOTSUPP, ERROR_NOT_SUPPORTED},
    };
    for (const Row& row : kRows)
        if (row.system == error)
            return row.code;
    return ERROR_GEN_FAILURE;
}

} // namespace quorvel
