// The system-dependent steps of replacing a file as a whole.
#pragma once

#include <quorvel/platform/platform.h>

#include <string>

namespace quorvel {

// The path of the file at the end of symbolic links. Returns `path` itself when no file exists or
// the links cannot be read.
std::basic_string<WCHAR> FinalPath(const WCHAR* path);

// Gives a new, empty file the owner and the permissions of the file that it will replace, as far as
// permitted, so that its content never has more readers. Does nothing when `replaced` does not
// exist, or when the system's replacement keeps them.
void ProtectLike(const WCHAR* file, const WCHAR* replaced);

// Renames the file `from` to `to`. On failure returns FALSE and changes nothing.
BOOL MoveOver(const WCHAR* from, const WCHAR* to);

// Extends an open file, whose position is at the start, to at least `size` bytes, so that writing
// them cannot fail for lack of room. Longer content stays. On failure returns FALSE with the last
// error and changes nothing.
BOOL ReserveRoom(HANDLE file, ULONGLONG size);

} // namespace quorvel
