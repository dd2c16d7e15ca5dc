#include "util/compression/zip_path.h"

#include "platform/linux/files/path.h"

namespace quorvel {

bool ToZipPath(const WCHAR* path, std::string& bytes) {
    return ToSystemPath(path, bytes);
}

} // namespace quorvel
