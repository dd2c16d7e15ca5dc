// Accesses the characters of a string without its inline members. The library's own code would
// instantiate those, but they are not exported on Linux.
#pragma once

#include <quorvel/framework/string.h>

#include <string_view>

namespace quorvel {

inline std::basic_string_view<WCHAR> ViewOf(const CString& text) {
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

} // namespace quorvel
