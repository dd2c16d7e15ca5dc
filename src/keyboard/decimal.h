// Reads numbers in stored texts: only decimal digits.
#pragma once

#include <quorvel/platform/platform.h>

#include <string_view>

namespace quorvel {

// Returns false and does not change `number` for other characters and above the maximum.
inline bool ParseDecimal(std::basic_string_view<WCHAR> text, DWORD maximum, DWORD& number) {
    if (text.empty() || text.size() > 10)
        return false;
    ULONGLONG value = 0;
    for (const WCHAR digit : text) {
        if (digit < '0' || digit > '9')
            return false;
        value = value * 10 + static_cast<ULONGLONG>(digit - '0');
    }
    if (value > maximum)
        return false;
    number = static_cast<DWORD>(value);
    return true;
}

} // namespace quorvel
