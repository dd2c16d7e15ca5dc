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

// Code pages. Any thread. Lengths are in bytes and UTF-16 units; a negative source length means up
// to and with the terminator; a target length of 0 asks for the length needed. 0 is a failure: 87
// for a null pointer, a source length of 0, the same place as source and target or an unknown code
// page, 122 for a buffer too small (what fits is written), 1004 for flags that the code page does
// not have, 1113 for what MB_ERR_INVALID_CHARS or WC_ERR_INVALID_CHARS refuses.
QUORVEL_API int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR bytes, int byteCount,
                                    LPWSTR text, int textLength);
QUORVEL_API int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int textLength,
                                    LPSTR bytes, int byteCount, LPCSTR defaultChar,
                                    LPBOOL usedDefaultChar);
QUORVEL_API UINT GetACP(); // 65001
QUORVEL_API BOOL IsValidCodePage(UINT codePage);

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
