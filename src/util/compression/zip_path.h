// Paths for the archive writer, which opens files with the C library.
#pragma once

#include <quorvel/platform/platform.h>

#include <string>

namespace quorvel {

// False for an empty path and for one that the C library's names cannot express.
bool ToZipPath(const WCHAR* path, std::string& bytes);

} // namespace quorvel
