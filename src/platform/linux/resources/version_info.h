// Version resources of PE files and of this library. The path of the library's own file gives the
// resource that is compiled into it.
#pragma once

#include <quorvel/platform/linux_api.h>

namespace quorvel::win32 {

// The size that GetFileVersionInfoW needs; `zero` may be null and receives 0. Returns 0 with the
// last error set: an error of opening the file, or ERROR_RESOURCE_DATA_NOT_FOUND when it is not a
// PE file or has no version resource. As on Windows, the size is larger than the resource.
DWORD GetFileVersionInfoSizeW(LPCWSTR name, LPDWORD zero);
// Fills `data` with the resource. Cuts it when `size` is too small.
BOOL GetFileVersionInfoW(LPCWSTR name, DWORD ignored, DWORD size, LPVOID data);
// Finds the value at a path such as "\StringFileInfo\040904b0\FileVersion" in the data from
// GetFileVersionInfoW. The value is inside that data, and a text is always terminated. The length
// counts the characters of a text with its terminator, and the bytes of other values. Returns FALSE
// with ERROR_RESOURCE_TYPE_NOT_FOUND and a length of 0 if the value is missing.
BOOL VerQueryValueW(LPCVOID block, LPCWSTR path, LPVOID* value, PUINT length);

} // namespace quorvel::win32
