// Readable failure messages for the library's strings.
#pragma once

#include <quorvel/framework/string.h>

#include <cstdio>
#include <ostream>
#include <string>

// Printable ASCII as it stands, anything else as \xHHHH.
template <class Ch>
inline std::string Printable(const Ch* text, int length) {
    std::string result;
    for (int i = 0; i < length; ++i) {
        const unsigned unit =
            static_cast<std::make_unsigned_t<std::conditional_t<sizeof(Ch) == 1, char, short>>>(
                text[i]);
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\x%04X", unit);
        result += unit >= 0x20 && unit < 0x7f ? std::string(1, static_cast<char>(unit)) : escape;
    }
    return result;
}

template <class Ch>
void PrintTo(const CStringT<Ch>& text, std::ostream* stream) {
    *stream << '"' << Printable(text.GetString(), text.GetLength()) << '"';
}
