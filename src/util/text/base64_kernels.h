// The inner loops of base64, in a portable and two vector forms with the same results.
//
// A group is three bytes or the four characters they become; a line is nineteen groups and CR LF.
// Padding, a last shorter group and foreign characters are the callers' matter.
#pragma once

#include <quorvel/util/text/base64.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace quorvel {

constexpr std::size_t kLineGroups = 19;
constexpr std::size_t kLineBytes = 3 * kLineGroups;

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

// The last one or two bytes and their padding.
template <class Ch>
Ch* EncodeRemainder(const BYTE* source, std::size_t count, Ch* dest, bool padded) {
    const int secondByte = count > 1 ? source[1] : 0;
    *dest++ = static_cast<Ch>(kBase64Alphabet[source[0] >> 2]);
    *dest++ = static_cast<Ch>(kBase64Alphabet[(source[0] << 4 | secondByte >> 4) & 63]);
    if (count > 1)
        *dest++ = static_cast<Ch>(kBase64Alphabet[secondByte << 2 & 63]);
    else if (padded)
        *dest++ = '=';
    if (padded)
        *dest++ = '=';
    return dest;
}

template <class Ch>
struct Base64Kernels {
    // All of the bytes, by the flags of the public functions; returns the end of what it wrote.
    // Neither reads nor writes beyond the bytes and what becomes of them.
    Ch* (*encode)(const BYTE* source, std::size_t length, Ch* dest, DWORD flags);
    // As DecodeGroups; it may stop where a foreign character lies in the next sixteen, may skip
    // some of them, and may decode the last, shorter group too.
    void (*decodeGroups)(Base64Cursor<Ch>& cursor);
};

// An encoder of whole lines, and of what is in one.
template <class Ch, Ch* (*encodeLines)(const BYTE* source, std::size_t lines, Ch* dest),
          Ch* (*encodeGroups)(const BYTE* source, std::size_t groups, Ch* dest)>
Ch* EncodeByLines(const BYTE* source, std::size_t length, Ch* dest, DWORD flags) {
    if ((flags & BASE64_NO_LINE_BREAKS) == 0) {
        // Deliberate: a line that full groups fill ends in a line break even as the last one.
        const std::size_t lines = length / kLineBytes;
        dest = encodeLines(source, lines, dest);
        source += kLineBytes * lines;
        length -= kLineBytes * lines;
    }
    dest = encodeGroups(source, length / 3, dest);
    const std::size_t remainder = length % 3;
    if (remainder == 0)
        return dest;
    return EncodeRemainder(source + (length - remainder), remainder, dest,
                           (flags & BASE64_NO_PADDING) == 0);
}

template <class Ch>
const Base64Kernels<Ch>& PortableBase64();

// Null where the processor has no suitable instructions.
template <class Ch>
const Base64Kernels<Ch>* Ssse3Base64();
template <class Ch>
const Base64Kernels<Ch>* Avx2Base64();

// The public functions with the kernels to use.
template <class Ch>
BOOL EncodeBase64(const Base64Kernels<Ch>& kernels, const BYTE* source, int sourceLength, Ch* dest,
                  int* destLength, DWORD flags);
template <class Ch>
BOOL DecodeBase64(const Base64Kernels<Ch>& kernels, const Ch* source, int sourceLength, BYTE* dest,
                  int* destLength);

} // namespace quorvel
