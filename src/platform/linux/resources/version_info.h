// Version resources of PE files, and of this library: by the path of its own file the resource that
// is compiled into it is read.
#pragma once

#include <quorvel/platform/linux_api.h>

namespace quorvel::win32 {

// The size that GetFileVersionInfoW needs; `zero` may be null and receives 0. 0 with the last error
// set: of opening the file, or ERROR_RESOURCE_DATA_NOT_FOUND when it is no PE file or has no
// version resource. As on Windows the size is more than the resource's.
DWORD GetFileVersionInfoSizeW(LPCWSTR name, LPDWORD zero);
// Fills `data` with the resource, which is cut when `size` is too small.
BOOL GetFileVersionInfoW(LPCWSTR name, DWORD ignored, DWORD size, LPVOID data);
// Finds the value at a path such as "\StringFileInfo\040904b0\FileVersion" in what
// GetFileVersionInfoW filled. It lies in the block, and a text there is always terminated. The
// length counts characters of a text, with its terminator, and bytes of anything else. FALSE with
// ERROR_RESOURCE_TYPE_NOT_FOUND and a length of 0 when there is no such value.
BOOL VerQueryValueW(LPCVOID block, LPCWSTR path, LPVOID* value, PUINT length);

} // namespace quorvel::win32
