// What an address must not hold: it is sent as a word of a request's first line, in a code page.
#pragma once

#include <quorvel/framework/string.h>

#include <algorithm>

namespace quorvel {

// No blanks and control characters, nor characters that become one: Windows writes the wide blanks
// of Unicode as 0x20 in its code pages. Refused in both builds alike.
inline bool IsRequestWord(const CString& text) {
    const auto isRefused = [](WCHAR each) {
        return each <= ' ' || (each >= 0x7f && each <= 0xa0) ||
               (each >= 0x2000 && each <= 0x200a) || each == 0x3000;
    };
    return std::none_of(text.GetString(), text.GetString() + text.GetLength(), isRefused);
}

} // namespace quorvel
