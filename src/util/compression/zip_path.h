// Paths for the archive writer, which opens files by the names of the C library.
#pragma once

#include <quorvel/platform/platform.h>

#include <string>

namespace quorvel {

// False for a path that cannot be expressed there, or names nothing.
bool ToZipPath(const WCHAR* path, std::string& bytes);

} // namespace quorvel
