#include "util/compression/zip_path.h"

#include "platform/win32.h"

namespace quorvel {

// A path with a replaced or merely similar letter would name another file.
bool ToZipPath(const WCHAR* path, std::string& bytes) {
    const bool isUTF8 = ::GetACP() == CP_UTF8; // UTF-8 accepts neither of the other arguments
    const DWORD flags = isUTF8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS;
    BOOL replaced = FALSE;
    BOOL* const tell = isUTF8 ? nullptr : &replaced;
    const int size = ::WideCharToMultiByte(CP_ACP, flags, path, -1, nullptr, 0, nullptr, tell);
    if (size <= 1 || replaced)
        return false;
    bytes.resize(static_cast<std::size_t>(size));
    ::WideCharToMultiByte(CP_ACP, flags, path, -1, bytes.data(), size, nullptr, nullptr);
    bytes.pop_back();
    return true;
}

} // namespace quorvel
