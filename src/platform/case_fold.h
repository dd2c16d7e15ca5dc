// Simple case folding of one UTF-16 unit by the platform's lower-case table.
#pragma once

#include <quorvel/platform/platform.h>

#include <algorithm>
#include <string_view>

namespace quorvel {

// The lower-case form of a letter; any other unit unchanged. Surrogates are not letters.
WCHAR FoldCaseBeyondAscii(WCHAR unit);

inline WCHAR FoldCase(WCHAR unit) {
    if (unit < 0x80)
        return unit >= 'A' && unit <= 'Z' ? static_cast<WCHAR>(unit + ('a' - 'A')) : unit;
    return FoldCaseBeyondAscii(unit);
}

inline bool EqualIgnoringCase(std::basic_string_view<WCHAR> left,
                              std::basic_string_view<WCHAR> right) {
    return std::ranges::equal(left, right, {}, FoldCase, FoldCase);
}

inline bool BeginsWithIgnoringCase(std::basic_string_view<WCHAR> text,
                                   std::basic_string_view<WCHAR> prefix) {
    return EqualIgnoringCase(text.substr(0, prefix.size()), prefix);
}

} // namespace quorvel
