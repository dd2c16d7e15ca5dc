// Conversion between CString and std::filesystem::path. Any thread.
#pragma once

#include <quorvel/framework/string.h>

#include <filesystem>

// Converts to the path that the library itself would open: UTF-8 on Linux, the same text on
// Windows. On Linux a lone surrogate becomes U+FFFD; no file name has one.
inline std::filesystem::path AfxStringToPath(const CString& text) {
#if defined(_WIN32)
    return text.GetView();
#else
    return text.ToUTF8();
#endif
}

// The text of the path; separators are not changed. Bytes of a Linux name that are not UTF-8 become
// U+FFFD, so such a file cannot be opened by its text.
inline CString AfxPathToString(const std::filesystem::path& path) {
#if defined(_WIN32)
    return CString(path.native());
#else
    return CString::FromUTF8(path.native());
#endif
}
