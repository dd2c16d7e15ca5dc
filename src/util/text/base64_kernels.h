// The inner loops of base64, in a portable and a vector form with the same results.
//
// A group is three bytes or the four characters they become; a line is nineteen groups and CR LF.
// Padding, a last shorter group and foreign characters are the callers' matter.
#pragma once

#include <quorvel/platform/platform.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace quorvel {

constexpr std::size_t kLineGroups = 19;

constexpr char kBase64Alphabet[] =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// The value of each byte as a character of the alphabet, -1 for those outside.
constexpr auto kBase64Values = [] {
    std::array<std::int8_t, 256> values{};
    values.fill(-1);
    for (int value = 0; value < 64; ++value)
        values[static_cast<BYTE>(kBase64Alphabet[value])] = static_cast<std::int8_t>(value);
    return values;
}();

inline int Base64Value(char character) {
    return kBase64Values[static_cast<BYTE>(character)];
}
inline int Base64Value(WCHAR character) {
    return character < kBase64Values.size() ? kBase64Values[character] : -1;
}

// Where a decoder stands.
template <class Ch>
struct Base64Cursor {
    const Ch* source;
    const Ch* sourceEnd;
    BYTE* dest;
    BYTE* destEnd;
};

// Decodes whole groups while they hold no foreign character and fit.
template <class Ch>
void DecodeGroups(Base64Cursor<Ch>& cursor) {
    while (cursor.sourceEnd - cursor.source >= 4 && cursor.destEnd - cursor.dest >= 3) {
        int bytes = 0;
        for (int i = 0; i < 4; ++i)
            bytes |= Base64Value(cursor.source[i]) * (1 << (18 - 6 * i));
        if (bytes < 0) // one foreign character is enough to set the sign
            return;
        cursor.dest[0] = static_cast<BYTE>(bytes >> 16);
        cursor.dest[1] = static_cast<BYTE>(bytes >> 8);
        cursor.dest[2] = static_cast<BYTE>(bytes);
        cursor.source += 4;
        cursor.dest += 3;
    }
}

template <class Ch>
struct Base64Kernels {
    // Neither reads nor writes beyond the groups or lines. Both return the end of what they wrote.
    Ch* (*encodeGroups)(const BYTE* source, std::size_t groups, Ch* dest);
    Ch* (*encodeLines)(const BYTE* source, std::size_t lines, Ch* dest);
    // As DecodeGroups; it may stop where a foreign character lies in the next sixteen.
    void (*decodeGroups)(Base64Cursor<Ch>& cursor);
};

template <class Ch>
const Base64Kernels<Ch>& PortableBase64();

// Null where the processor has no suitable instructions.
template <class Ch>
const Base64Kernels<Ch>* VectorBase64();

// The public functions with the kernels to use.
template <class Ch>
BOOL EncodeBase64(const Base64Kernels<Ch>& kernels, const BYTE* source, int sourceLength, Ch* dest,
                  int* destLength, DWORD flags);
template <class Ch>
BOOL DecodeBase64(const Base64Kernels<Ch>& kernels, const Ch* source, int sourceLength, BYTE* dest,
                  int* destLength);

} // namespace quorvel
