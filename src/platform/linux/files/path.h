// Converts paths between the library's UTF-16 and the system's bytes, and edits their text.
//
// Both "/" and "\" separate, so a Linux file with a backslash in its name cannot be addressed. A
// drive letter ("C:...") means that the path does not exist. Letter case counts. Names are UTF-8; a
// lone surrogate makes a name invalid. Characters and endings that only Windows forbids in a name
// (wildcards, trailing dots) are allowed. Results contain "/".
#pragma once

#include <quorvel/platform/linux_api.h>

#include <string>
#include <string_view>

namespace quorvel {

// Returns false with the last error set: ERROR_PATH_NOT_FOUND for a null or empty name and for a
// drive letter, ERROR_INVALID_NAME for a lone surrogate, ERROR_FILENAME_EXCED_RANGE for a path that
// is too long.
bool ToSystemPath(const WCHAR* name, std::string& path);
// Bytes that are not UTF-8 become U+FFFD.
std::u16string FromSystemPath(std::string_view path);

// The absolute path without links; empty when the file does not exist.
std::string CanonicalPath(const std::string& path);

// The error code for errno after an operation on a path. For ENOENT it is ERROR_FILE_NOT_FOUND when
// only the last part is missing, and ERROR_PATH_NOT_FOUND when its folder is.
DWORD PathErrorFromErrno(int error, const std::string& path);

// Copies a result and returns its length without the terminator. If `size` is too small, returns
// the size needed, with the terminator, and leaves the buffer unchanged.
DWORD CopyTextResult(std::u16string_view text, DWORD size, LPWSTR buffer);

} // namespace quorvel

namespace quorvel::win32 {

// Makes a name absolute, without "." and ".." and repeated separators. Uses the text only: the file
// need not exist, and links are not followed. Returns 0 with the last error set, or like
// CopyTextResult. `filePart` may be null. It receives the position after the last separator in the
// buffer, or null when nothing follows it.
DWORD GetFullPathNameW(LPCWSTR name, DWORD size, LPWSTR buffer, LPWSTR* filePart);
// The folder for temporary files with a separator at its end: TMPDIR, else /tmp.
DWORD GetTempPathW(DWORD size, LPWSTR buffer);
// Makes a name in the folder: up to three characters of the prefix, hexadecimal digits, ".tmp". The
// digits are `unique`, unless it is 0: then the file is created, for its owner only. `name` holds
// MAX_PATH characters. Returns the number used, or 0 with the last error set.
UINT GetTempFileNameW(LPCWSTR folder, LPCWSTR prefix, UINT unique, LPWSTR name);

// Appends to a path in a buffer of MAX_PATH characters and resolves "." and ".." in the whole. An
// empty text appends nothing. Separators before the appended text and repeated ones count as one.
// Returns FALSE for a null argument, and, with the path emptied, when the result does not fit.
// Linux has no share or drive letter that would replace the path.
BOOL PathAppendW(LPWSTR path, LPCWSTR more);
// Ends a path that is not empty with a separator and returns the position of its terminator.
// Returns null, without a change, for null and when MAX_PATH characters leave no room.
LPWSTR PathAddBackslashW(LPWSTR path);

} // namespace quorvel::win32
