// Conversions between code pages and UTF-16 with all that they change.
#pragma once

#include "support/test.h"

using namespace quorvel::win32;

// The whole buffer, which was filled with markers before.
template <class Text>
struct Converted {
    int result;
    DWORD error;
    Text buffer;

    Text GetText() const { return buffer.substr(0, static_cast<std::size_t>(result)); }
};

inline Converted<Wide> Decode(UINT codePage, DWORD flags, const std::string& bytes,
                              int capacity = 64) {
    Wide text(static_cast<std::size_t>(capacity), WCHAR(0xcdcd));
    SetLastError(ERROR_SUCCESS);
    const int result =
        MultiByteToWideChar(codePage, flags, bytes.data(), static_cast<int>(bytes.size()),
                            capacity > 0 ? text.data() : nullptr, capacity);
    return {result, GetLastError(), text};
}

inline Converted<std::string> Encode(UINT codePage, DWORD flags, const Wide& text,
                                     int capacity = 64, LPCSTR defaultChar = nullptr,
                                     LPBOOL usedDefault = nullptr) {
    std::string bytes(static_cast<std::size_t>(capacity), '\xcd');
    SetLastError(ERROR_SUCCESS);
    const int result = WideCharToMultiByte(
        codePage, flags, text.data(), static_cast<int>(text.size()),
        capacity > 0 ? bytes.data() : nullptr, capacity, defaultChar, usedDefault);
    return {result, GetLastError(), bytes};
}
