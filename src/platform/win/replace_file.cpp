#include "platform/replace_file.h"

#include "platform/scoped_handle.h"

namespace quorvel {

std::basic_string<WCHAR> FinalPath(const WCHAR* path) {
    const DWORD attributes = GetFileAttributesW(path);
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return path;
    std::basic_string<WCHAR> result(path);
    const ScopedHandle file(
        CreateFileW(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file.IsValid())
        return result;
    const DWORD size = GetFinalPathNameByHandleW(file.Get(), nullptr, 0, VOLUME_NAME_DOS);
    std::basic_string<WCHAR> target(size, 0);
    const DWORD length =
        GetFinalPathNameByHandleW(file.Get(), target.data(), size, VOLUME_NAME_DOS);
    if (length > 0 && length < size)
        result.assign(target.data(), length);
    return result;
}

void ProtectLike(const WCHAR*, const WCHAR*) {} // ReplaceFileW keeps the access list

BOOL MoveOver(const WCHAR* from, const WCHAR* to) {
    // ReplaceFileW keeps the attributes and the access list, but fails without an existing file.
    if (ReplaceFileW(to, from, nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr))
        return TRUE;
    return MoveFileExW(from, to, MOVEFILE_REPLACE_EXISTING);
}

BOOL ReserveRoom(HANDLE file, ULONGLONG size) {
    // Setting the end of a file that is not sparse reserves its disk space.
    const auto moveEnd = [file](LONGLONG end) {
        LARGE_INTEGER place;
        place.QuadPart = end;
        const LARGE_INTEGER start = {};
        return SetFilePointerEx(file, place, nullptr, FILE_BEGIN) && SetEndOfFile(file) &&
               SetFilePointerEx(file, start, nullptr, FILE_BEGIN);
    };
    LARGE_INTEGER old;
    if (!GetFileSizeEx(file, &old))
        return FALSE;
    if (old.QuadPart >= static_cast<LONGLONG>(size) || moveEnd(static_cast<LONGLONG>(size)))
        return TRUE;
    const DWORD error = GetLastError();
    moveEnd(old.QuadPart);
    SetLastError(error);
    return FALSE;
}

} // namespace quorvel
