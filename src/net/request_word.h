// Checks a text that is sent as a word of a request's first line, in a code page.
#pragma once

#include <quorvel/framework/string.h>

#include <algorithm>

namespace quorvel {

// Blanks and control characters are refused, also characters that become one: in its code pages
// Windows writes Unicode's wide blanks as 0x20. Both builds refuse the same ones.
inline bool IsRequestWord(const CString& text) {
    const auto isRefused = [](WCHAR each) {
        return each <= ' ' || (each >= 0x7f && each <= 0xa0) ||
               (each >= 0x2000 && each <= 0x200a) || each == 0x3000;
    };
    return std::none_of(text.GetString(), text.GetString() + text.GetLength(), isRefused);
}

} // namespace quorvel
