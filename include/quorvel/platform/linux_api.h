// The operations of the platform that a Linux host needs to use the public signatures.
//
// Each has the name, the results and the error codes of its Windows namesake and is found in
// namespace quorvel::win32, so that one host source serves both systems:
//     using namespace quorvel::win32;
// What is not declared here is not available: there are no stubs.
#pragma once

#include <quorvel/platform/export.h>
#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// The calling thread's last error. Any thread.
QUORVEL_API DWORD GetLastError();
QUORVEL_API void SetLastError(DWORD error);

// Files. Any thread. src/platform/linux names what differs from Windows: both separators are taken,
// names are UTF-8 on the disk and letter case counts, share modes hold within the process, and the
// OVERLAPPED, SECURITY_ATTRIBUTES and template arguments must be null.
QUORVEL_API HANDLE CreateFileW(LPCWSTR name, DWORD rights, DWORD share,
                               SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD flags,
                               HANDLE templateFile);
QUORVEL_API BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD count, LPDWORD bytesRead,
                          OVERLAPPED* overlapped);
QUORVEL_API BOOL WriteFile(HANDLE file, LPCVOID buffer, DWORD count, LPDWORD bytesWritten,
                           OVERLAPPED* overlapped);
QUORVEL_API BOOL SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, LARGE_INTEGER* position,
                                  DWORD method);
QUORVEL_API BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size);
QUORVEL_API BOOL CloseHandle(HANDLE handle);
QUORVEL_API BOOL DeleteFileW(LPCWSTR name);
// INVALID_FILE_ATTRIBUTES when there is no such file.
QUORVEL_API DWORD GetFileAttributesW(LPCWSTR name);

} // namespace quorvel::win32
