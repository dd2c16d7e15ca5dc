// Paths between the library's UTF-16 and the system's bytes, and the operations on their text.
//
// What a path means here: both "/" and "\" separate, so a Linux file whose name holds a backslash
// cannot be addressed. A drive letter ("C:...") has no meaning: no such path. Letter case counts.
// Names are UTF-8; a half surrogate has no form in it and makes a name invalid. What Windows alone
// forbids in a name (wildcards, trailing dots) is allowed. Results have the system's "/".
#pragma once

#include <quorvel/platform/linux_api.h>

#include <string>
#include <string_view>

namespace quorvel {

// False with the last error set: ERROR_PATH_NOT_FOUND for a null or empty name and for a drive
// letter, ERROR_INVALID_NAME for a half surrogate, ERROR_FILENAME_EXCED_RANGE for more than any
// path may have.
bool ToSystemPath(const WCHAR* name, std::string& path);
// Bytes that are not UTF-8 become U+FFFD.
std::u16string FromSystemPath(std::string_view path);

// Absolute, and with no links in it; empty when there is no such file.
std::string CanonicalPath(const std::string& path);

// errno of an operation on a path: ENOENT is ERROR_FILE_NOT_FOUND when only the last part is
// missing and ERROR_PATH_NOT_FOUND when its folder is.
DWORD PathErrorFromErrno(int error, const std::string& path);

// The contract of the operations below: the length without the terminator; the size needed, with
// it, when `size` is too small (the buffer is then untouched).
DWORD CopyTextResult(std::u16string_view text, DWORD size, LPWSTR buffer);

} // namespace quorvel

namespace quorvel::win32 {

// 0 with the last error set on failure, otherwise as CopyTextResult. The absolute form of a name,
// without "." and ".." and repeated separators. Text only: the file need not exist and links are
// not followed. `filePart`, which may be null, receives the place behind the last separator in the
// buffer, or null when nothing is there.
DWORD GetFullPathNameW(LPCWSTR name, DWORD size, LPWSTR buffer, LPWSTR* filePart);
// The folder for temporary files with a separator at its end: TMPDIR, else /tmp.
DWORD GetTempPathW(DWORD size, LPWSTR buffer);
// A name in the folder: up to three characters of the prefix, hexadecimal digits, ".tmp". Unless
// `unique` is 0 it gives the digits; otherwise the file is created, for its owner alone. `name`
// holds MAX_PATH characters. Returns the number used, 0 with the last error set on failure.
UINT GetTempFileNameW(LPCWSTR folder, LPCWSTR prefix, UINT unique, LPWSTR name);

// Appends to a path in a buffer of MAX_PATH characters and resolves "." and ".." in the whole; an
// empty text appends nothing. Separators before the appended text and repeated ones count as one.
// FALSE for a null argument, and with an empty path where the result does not fit. No share or
// drive letter is known here that would replace the path.
BOOL PathAppendW(LPWSTR path, LPCWSTR more);
// Ends a path that is not empty with a separator, and returns the place of its terminator; null,
// and nothing changed, for null and for a path that leaves no room for one in MAX_PATH characters.
LPWSTR PathAddBackslashW(LPWSTR path);

} // namespace quorvel::win32
