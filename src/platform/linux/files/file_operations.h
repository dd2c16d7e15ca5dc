// Files: the operations beyond those a host sees (quorvel/platform/linux_api.h).
//
// How near this comes to Windows:
// - Share modes are kept between the handles of this process, by the file and not by its name.
//   Other processes are not held off.
// - A file with no write permission at all is read-only: it is neither opened for writing, replaced
//   nor deleted, even by a user whom the system would let.
// - The name of a file deleted while it is open is gone at once, not with the last handle.
// - Operations are synchronous: OVERLAPPED and SECURITY_ATTRIBUTES pointers must be null.
// Any thread may call; handles may be used on several threads.
#pragma once

#include <quorvel/platform/linux_api.h>

namespace quorvel::win32 {

// Cuts or extends the file at its position; needs GENERIC_WRITE.
BOOL SetEndOfFile(HANDLE file);
// Returns when the contents are on the disk; needs GENERIC_WRITE.
BOOL FlushFileBuffers(HANDLE file);
// FILE_TYPE_UNKNOWN with ERROR_INVALID_HANDLE for what is no file.
DWORD GetFileType(HANDLE file);

// Renames a file or folder. Without MOVEFILE_REPLACE_EXISTING an existing target is refused
// (ERROR_ALREADY_EXISTS); a folder is never replaced. Without MOVEFILE_COPY_ALLOWED another file
// system is (ERROR_NOT_SAME_DEVICE); with it a file, not a folder, is copied and then deleted.
BOOL MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags);
// With MOVEFILE_COPY_ALLOWED alone.
BOOL MoveFileW(LPCWSTR from, LPCWSTR to);

BOOL CreateDirectoryW(LPCWSTR name, SECURITY_ATTRIBUTES* security);

} // namespace quorvel::win32
