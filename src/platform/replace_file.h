// The system-dependent steps of replacing a file as a whole.
#pragma once

#include <quorvel/platform/platform.h>

#include <string>

namespace quorvel {

// The path of the file that `path` leads to through symbolic links; `path` itself where nothing is
// there yet or where it can't be told.
std::basic_string<WCHAR> FinalPath(const WCHAR* path);

// Gives a new, empty file the owner and the permissions of the file that it will replace, as far as
// the caller may, so that its content is never open to more readers. Nothing where `replaced` does
// not exist, or where the system's replacement keeps them.
void ProtectLike(const WCHAR* file, const WCHAR* replaced);

// Gives the file `from` the name `to`. FALSE with the last error, and both as they were.
BOOL MoveOver(const WCHAR* from, const WCHAR* to);

// Makes an open file, with its position at the start, at least that long, so that writing so many
// bytes cannot fail for lack of room. FALSE with the last error, and the file as it was. Content
// that is longer stays.
BOOL ReserveRoom(HANDLE file, ULONGLONG size);

} // namespace quorvel
