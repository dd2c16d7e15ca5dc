// File operations in addition to those for hosts (quorvel/platform/linux_api.h).
//
// Differences from Windows:
// - Share modes apply between the handles of this process, by file and not by name. They do not
//   restrict other processes.
// - A file without any write permission is read-only: it cannot be opened for writing, replaced or
//   deleted, even by a user whom the system would allow it.
// - Deleting an open file removes its name at once, not when the last handle is closed.
// - Operations are synchronous: OVERLAPPED and SECURITY_ATTRIBUTES pointers must be null.
// Any thread may call; handles may be used on several threads.
#pragma once

#include <quorvel/platform/linux_api.h>

namespace quorvel::win32 {

// Truncates or extends the file at its position; needs GENERIC_WRITE.
BOOL SetEndOfFile(HANDLE file);
// Returns when the contents are on the disk; needs GENERIC_WRITE.
BOOL FlushFileBuffers(HANDLE file);
// Returns FILE_TYPE_UNKNOWN with ERROR_INVALID_HANDLE if the handle is not a file.
DWORD GetFileType(HANDLE file);

// Renames a file or folder. Without MOVEFILE_REPLACE_EXISTING it refuses an existing target
// (ERROR_ALREADY_EXISTS); it never replaces a folder. Without MOVEFILE_COPY_ALLOWED it refuses
// another file system (ERROR_NOT_SAME_DEVICE); with it, a file is copied and deleted, a folder not.
BOOL MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags);
// MoveFileExW with MOVEFILE_COPY_ALLOWED only.
BOOL MoveFileW(LPCWSTR from, LPCWSTR to);

BOOL CreateDirectoryW(LPCWSTR name, SECURITY_ATTRIBUTES* security);

} // namespace quorvel::win32
