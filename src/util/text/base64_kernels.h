// The inner loops of base64, in a portable and two vector forms with the same results.
//
// A group is three bytes, or the four characters for them. A line is nineteen groups and CR LF. The
// callers handle padding, a shorter last group and foreign characters.
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

// The value of each character of the alphabet, -1 for other bytes.
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

// The position of a decoder.
template <class Ch>
struct Base64Cursor {
    const Ch* source;
    const Ch* sourceEnd;
    BYTE* dest;
    BYTE* destEnd;
};

// Decodes whole groups until one has a foreign character or does not fit.
template <class Ch>
void DecodeGroups(Base64Cursor<Ch>& cursor) {
    while (cursor.sourceEnd - cursor.source >= 4 && cursor.destEnd - cursor.dest >= 3) {
        int bytes = 0;
        for (int i = 0; i < 4; ++i)
            bytes |= Base64Value(cursor.source[i]) * (1 << (18 - 6 * i));
        if (bytes < 0) // a foreign character sets the sign
            return;
        cursor.dest[0] = static_cast<BYTE>(bytes >> 16);
        cursor.dest[1] = static_cast<BYTE>(bytes >> 8);
        cursor.dest[2] = static_cast<BYTE>(bytes);
        cursor.source += 4;
        cursor.dest += 3;
    }
}

// Encodes the last one or two bytes and their padding.
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
    // Encodes all of the bytes by the public functions' flags and returns the end of its output.
    // Never reads or writes beyond the bytes and their output.
    Ch* (*encode)(const BYTE* source, std::size_t length, Ch* dest, DWORD flags);
    // Like DecodeGroups. It may stop if a foreign character is in the next sixteen, may skip some
    // foreign ones, and may also decode the shorter last group.
    void (*decodeGroups)(Base64Cursor<Ch>& cursor);
};

// Encodes with separate functions for whole lines and for groups within a line.
template <class Ch, Ch* (*encodeLines)(const BYTE* source, std::size_t lines, Ch* dest),
          Ch* (*encodeGroups)(const BYTE* source, std::size_t groups, Ch* dest)>
Ch* EncodeByLines(const BYTE* source, std::size_t length, Ch* dest, DWORD flags) {
    if ((flags & BASE64_NO_LINE_BREAKS) == 0) {
        // Deliberate: a line of full groups ends with a line break, even the last one.
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

// Null if the processor lacks the instructions.
template <class Ch>
const Base64Kernels<Ch>* Ssse3Base64();
template <class Ch>
const Base64Kernels<Ch>* Avx2Base64();

// The public functions with the given kernels.
template <class Ch>
BOOL EncodeBase64(const Base64Kernels<Ch>& kernels, const BYTE* source, int sourceLength, Ch* dest,
                  int* destLength, DWORD flags);
template <class Ch>
BOOL DecodeBase64(const Base64Kernels<Ch>& kernels, const Ch* source, int sourceLength, BYTE* dest,
                  int* destLength);

} // namespace quorvel
