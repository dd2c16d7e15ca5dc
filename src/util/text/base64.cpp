#include <quorvel/util/text/base64.h>

#include "util/text/base64_kernels.h"

#include <algorithm>
#include <climits>

namespace quorvel {
namespace {

constexpr int kLineLength = 4 * kLineGroups;

template <class Ch>
Ch* EncodeGroups(const BYTE* source, std::size_t groups, Ch* dest) {
    for (; groups > 0; --groups, source += 3) {
        const auto bits = static_cast<unsigned>(source[0] << 16 | source[1] << 8 | source[2]);
        for (int shift = 18; shift >= 0; shift -= 6)
            *dest++ = static_cast<Ch>(kBase64Alphabet[bits >> shift & 63]);
    }
    return dest;
}

template <class Ch>
Ch* EncodeLines(const BYTE* source, std::size_t lines, Ch* dest) {
    for (; lines > 0; --lines, source += kLineBytes) {
        dest = EncodeGroups(source, kLineGroups, dest);
        *dest++ = '\r';
        *dest++ = '\n';
    }
    return dest;
}

// Skips foreign characters. Returns true if there were any.
template <class Ch>
bool SkipForeign(Base64Cursor<Ch>& cursor) {
    const Ch* const before = cursor.source;
    while (cursor.source != cursor.sourceEnd && Base64Value(*cursor.source) < 0)
        ++cursor.source;
    return cursor.source != before;
}

// Decodes one group with foreign characters inside, or the last, shorter one. Returns the number of
// bytes that did not fit; after that no further group fits, whatever its size.
template <class Ch>
int DecodeGroup(Base64Cursor<Ch>& cursor) {
    unsigned bits = 0;
    int characters = 0;
    for (; characters < 4 && cursor.source != cursor.sourceEnd; ++cursor.source) {
        const int value = Base64Value(*cursor.source);
        if (value >= 0) {
            bits |= static_cast<unsigned>(value) << (18 - 6 * characters);
            ++characters;
        }
    }
    const int bytes = characters * 6 / 8;
    if (bytes > cursor.destEnd - cursor.dest) {
        cursor.destEnd = cursor.dest;
        return bytes;
    }
    for (int i = 0; i < bytes; ++i)
        *cursor.dest++ = static_cast<BYTE>(bits >> (16 - 8 * i));
    return 0;
}

template <class Ch>
const Base64Kernels<Ch>& FastestBase64() {
    static const Base64Kernels<Ch>& fastest = []() -> const Base64Kernels<Ch>& {
        for (const Base64Kernels<Ch>* kernels : {Avx2Base64<Ch>(), Ssse3Base64<Ch>()})
            if (kernels != nullptr)
                return *kernels;
        return PortableBase64<Ch>();
    }();
    return fastest;
}

int EncodedLength(int sourceLength, DWORD flags) {
    if (sourceLength < 1)
        return 0;
    std::int64_t length = std::int64_t{4} * sourceLength / 3;
    if ((flags & BASE64_NO_PADDING) == 0)
        length += sourceLength % 3;
    // Deliberate: computes the lines from the length before it is rounded up.
    const std::int64_t lines = length / kLineLength + 1;
    length = (length + 3) / 4 * 4;
    if ((flags & BASE64_NO_LINE_BREAKS) == 0)
        length += 2 * lines;
    return length <= INT_MAX ? static_cast<int>(length) : 0;
}

} // namespace

template <class Ch>
const Base64Kernels<Ch>& PortableBase64() {
    static constexpr Base64Kernels<Ch> kernels = {
        EncodeByLines<Ch, EncodeLines<Ch>, EncodeGroups<Ch>>, DecodeGroups<Ch>};
    return kernels;
}

template <class Ch>
BOOL EncodeBase64(const Base64Kernels<Ch>& kernels, const BYTE* source, int sourceLength, Ch* dest,
                  int* destLength, DWORD flags) {
    if (source == nullptr || dest == nullptr || destLength == nullptr)
        return FALSE;
    const int required = EncodedLength(sourceLength, flags);
    if (required == 0 || *destLength < required)
        return FALSE;

    const Ch* const end =
        kernels.encode(source, static_cast<std::size_t>(sourceLength), dest, flags);
    *destLength = static_cast<int>(end - dest);
    return TRUE;
}

template <class Ch>
BOOL DecodeBase64(const Base64Kernels<Ch>& kernels, const Ch* source, int sourceLength, BYTE* dest,
                  int* destLength) {
    if (source == nullptr || dest == nullptr || destLength == nullptr || sourceLength < 1)
        return FALSE;
    Base64Cursor<Ch> cursor = {source, source + sourceLength, dest,
                               dest + std::max(*destLength, 0)};
    int missing = 0;
    while (cursor.source != cursor.sourceEnd) {
        kernels.decodeGroups(cursor);
        if (cursor.source != cursor.sourceEnd && !SkipForeign(cursor))
            missing += DecodeGroup(cursor); // otherwise the next group is probably clean
    }
    *destLength = static_cast<int>(cursor.dest - dest) + missing;
    return missing == 0;
}

#define QUORVEL_INSTANTIATE(Ch)                                                                    \
    template const Base64Kernels<Ch>& PortableBase64();                                            \
    template BOOL EncodeBase64(const Base64Kernels<Ch>&, const BYTE*, int, Ch*, int*, DWORD);      \
    template BOOL DecodeBase64(const Base64Kernels<Ch>&, const Ch*, int, BYTE*, int*);
QUORVEL_INSTANTIATE(char)
QUORVEL_INSTANTIATE(WCHAR)
#undef QUORVEL_INSTANTIATE

} // namespace quorvel

int AfxBase64EncodeGetRequiredLength(int sourceLength, DWORD flags) {
    return quorvel::EncodedLength(sourceLength, flags);
}

int AfxBase64DecodeGetRequiredLength(int sourceLength) {
    return sourceLength < 1 ? 0 : sourceLength;
}

BOOL AfxBase64EncodeMultiByte(const BYTE* source, int sourceLength, char* dest, int* destLength,
                              DWORD flags) {
    return quorvel::EncodeBase64(quorvel::FastestBase64<char>(), source, sourceLength, dest,
                                 destLength, flags);
}

BOOL AfxBase64EncodeWideChar(const BYTE* source, int sourceLength, WCHAR* dest, int* destLength,
                             DWORD flags) {
    return quorvel::EncodeBase64(quorvel::FastestBase64<WCHAR>(), source, sourceLength, dest,
                                 destLength, flags);
}

BOOL AfxBase64Encode(const BYTE* source, int sourceLength, WCHAR* dest, int* destLength,
                     DWORD flags) {
    return AfxBase64EncodeWideChar(source, sourceLength, dest, destLength, flags);
}

BOOL AfxBase64DecodeMultiByte(const char* source, int sourceLength, BYTE* dest, int* destLength) {
    return quorvel::DecodeBase64(quorvel::FastestBase64<char>(), source, sourceLength, dest,
                                 destLength);
}

BOOL AfxBase64DecodeWideChar(const WCHAR* source, int sourceLength, BYTE* dest, int* destLength) {
    return quorvel::DecodeBase64(quorvel::FastestBase64<WCHAR>(), source, sourceLength, dest,
                                 destLength);
}

BOOL AfxBase64Decode(const WCHAR* source, int sourceLength, BYTE* dest, int* destLength) {
    return AfxBase64DecodeWideChar(source, sourceLength, dest, destLength);
}

int AfxDecodeBase64Char(unsigned int character) {
    return character < quorvel::kBase64Values.size() ? quorvel::kBase64Values[character] : -1;
}
