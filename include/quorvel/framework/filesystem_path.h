// Strings and paths of the standard library.
#pragma once

#include <quorvel/framework/string.h>

#include <filesystem>

// The path of that name, as the library itself opens it: UTF-8 on a Linux disk, the text as it is
// on Windows. A lone surrogate, which no Linux name has, becomes U+FFFD there.
inline std::filesystem::path AfxStringToPath(const CString& text) {
#if defined(_WIN32)
    return text.GetView();
#else
    return text.ToUTF8();
#endif
}

// The path's text, with the system's separators as they are in it. Bytes of a Linux name that are
// not UTF-8 become U+FFFD: such a file cannot be opened by its text.
inline CString AfxPathToString(const std::filesystem::path& path) {
#if defined(_WIN32)
    return CString(path.native());
#else
    return CString::FromUTF8(path.native());
#endif
}
