// The vector form of the base64 kernels, for x86 processors with SSSE3.
//
// One step converts sixteen characters or twelve bytes. The functions have the target attribute
// (instead of a compiler option for the file), so that no inline function of a header is compiled
// for a processor that the user may not have.
#include "util/text/base64_kernels.h"

#include <algorithm>
#include <cstring>

#if defined(__i386__) || defined(__x86_64__)

#include <tmmintrin.h>

#define QUORVEL_SSSE3 __attribute__((target("ssse3")))

namespace quorvel {
namespace {

constexpr std::size_t kStepGroups = 4;
constexpr std::size_t kStepBytes = 3 * kStepGroups;
constexpr std::size_t kStepCharacters = 4 * kStepGroups;

template <class T>
QUORVEL_SSSE3 __m128i Load(const T* from) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

template <class T>
QUORVEL_SSSE3 void Store(T* to, __m128i vector) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), vector);
}

QUORVEL_SSSE3 void StoreCharacters(char* to, __m128i characters) {
    Store(to, characters);
}
QUORVEL_SSSE3 void StoreCharacters(WCHAR* to, __m128i characters) {
    Store(to, _mm_unpacklo_epi8(characters, _mm_setzero_si128()));
    Store(to + 8, _mm_unpackhi_epi8(characters, _mm_setzero_si128()));
}

// Units of 0x0100 to 0x7fff saturate to 0xff. Higher units count as negative and saturate to 0.
// Both values are outside the alphabet.
QUORVEL_SSSE3 __m128i LoadCharacters(const char* from) {
    return Load(from);
}
QUORVEL_SSSE3 __m128i LoadCharacters(const WCHAR* from) {
    return _mm_packus_epi16(Load(from), Load(from + 8));
}

// `spread` has the three bytes a, b, c of each group as b, a, c, b. So each 16-bit number contains
// two of the four 6-bit values, and multiplications shift them into place.
QUORVEL_SSSE3 __m128i EncodeStep(__m128i spread) {
    const __m128i oddValues = _mm_mulhi_epu16(_mm_and_si128(spread, _mm_set1_epi32(0x0fc0fc00)),
                                              _mm_set1_epi32(0x04000040));
    const __m128i evenValues = _mm_mullo_epi16(_mm_and_si128(spread, _mm_set1_epi32(0x003f03f0)),
                                               _mm_set1_epi32(0x01000010));
    const __m128i values = _mm_or_si128(oddValues, evenValues);

    // Each range of values gets an index to the offset of its characters: 0 for capitals, 1 for
    // small letters, 2 to 11 for digits, 12 and 13 for the signs.
    const __m128i beyondLetters = _mm_subs_epu8(values, _mm_set1_epi8(51));
    const __m128i notCapital = _mm_cmpgt_epi8(values, _mm_set1_epi8(25)); // -1 where it is so
    const __m128i ranges = _mm_sub_epi8(beyondLetters, notCapital);
    constexpr char digit = '0' - 52;
    const __m128i offsets = _mm_setr_epi8('A', 'a' - 26, digit, digit, digit, digit, digit, digit,
                                          digit, digit, digit, digit, '+' - 62, '/' - 63, 0, 0);
    return _mm_add_epi8(values, _mm_shuffle_epi8(offsets, ranges));
}

// The first step loads its twelve bytes and the four after them, all others load the four before
// them. So no load leaves a source of six groups or more. The last step may repeat groups of the
// previous one.
template <class Ch>
QUORVEL_SSSE3 inline Ch* EncodeGroups(const BYTE* source, std::size_t groups, Ch* dest) {
    if (groups < 6)
        return PortableBase64<Ch>().encode(source, 3 * groups, dest, BASE64_NO_LINE_BREAKS);
    const __m128i spreadFirst = _mm_setr_epi8(1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10);
    const __m128i spreadOthers = _mm_add_epi8(spreadFirst, _mm_set1_epi8(4));
    StoreCharacters(dest, EncodeStep(_mm_shuffle_epi8(Load(source), spreadFirst)));
    for (std::size_t next = kStepGroups; next < groups; next += kStepGroups) {
        const std::size_t group = std::min(next, groups - kStepGroups);
        const __m128i bytes = Load(source + 3 * group - 4);
        StoreCharacters(dest + 4 * group, EncodeStep(_mm_shuffle_epi8(bytes, spreadOthers)));
    }
    return dest + 4 * groups;
}

template <class Ch>
QUORVEL_SSSE3 Ch* EncodeLines(const BYTE* source, std::size_t lines, Ch* dest) {
    for (; lines > 0; --lines, source += kLineBytes) {
        dest = EncodeGroups(source, kLineGroups, dest);
        *dest++ = '\r';
        *dest++ = '\n';
    }
    return dest;
}

// Converts sixteen characters to their values. Returns false if one is foreign.
//
// Each nibble of a character selects a set of bits. The sets of both nibbles have a common bit
// exactly if the character is foreign. The value is the character minus the first one of its range.
// The high nibble determines the range, except for "/".
QUORVEL_SSSE3 bool ToValues(__m128i characters, __m128i& values) {
    const __m128i nibble = _mm_set1_epi8(0x0f);
    const __m128i lowNibbles = _mm_and_si128(characters, nibble);
    const __m128i highNibbles = _mm_and_si128(_mm_srli_epi16(characters, 4), nibble);
    const __m128i lowSets =
        _mm_shuffle_epi8(_mm_setr_epi8(0x15, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11,
                                       0x13, 0x1a, 0x1b, 0x1b, 0x1b, 0x1a),
                         lowNibbles);
    const __m128i highSets =
        _mm_shuffle_epi8(_mm_setr_epi8(0x10, 0x10, 0x01, 0x02, 0x04, 0x08, 0x04, 0x08, 0x10, 0x10,
                                       0x10, 0x10, 0x10, 0x10, 0x10, 0x10),
                         highNibbles);
    const __m128i foreign = _mm_and_si128(lowSets, highSets);
    if (_mm_movemask_epi8(_mm_cmpeq_epi8(foreign, _mm_setzero_si128())) != 0xffff)
        return false;
    const __m128i areSlashes = _mm_cmpeq_epi8(characters, _mm_set1_epi8('/'));
    const __m128i offsets = _mm_setr_epi8(0, 63 - '/', 62 - '+', 52 - '0', -'A', -'A', 26 - 'a',
                                          26 - 'a', 0, 0, 0, 0, 0, 0, 0, 0);
    const __m128i ranges = _mm_add_epi8(highNibbles, areSlashes); // -1 where it is one
    values = _mm_add_epi8(characters, _mm_shuffle_epi8(offsets, ranges));
    return true;
}

// Writes exactly twelve bytes: the bytes after the decoded ones do not change.
QUORVEL_SSSE3 void StoreBytes(BYTE* to, __m128i values) {
    const __m128i pairs = _mm_maddubs_epi16(values, _mm_set1_epi32(0x01400140));
    const __m128i groups = _mm_madd_epi16(pairs, _mm_set1_epi32(0x00011000));
    const __m128i bytes = _mm_shuffle_epi8(
        groups, _mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(to), bytes);
    const int last = _mm_cvtsi128_si32(_mm_srli_si128(bytes, 8));
    std::memcpy(to + 8, &last, sizeof last);
}

template <class Ch>
QUORVEL_SSSE3 void DecodeGroupsBySteps(Base64Cursor<Ch>& cursor) {
    const Ch* source = cursor.source;
    BYTE* dest = cursor.dest;
    std::size_t steps =
        std::min(static_cast<std::size_t>(cursor.sourceEnd - source) / kStepCharacters,
                 static_cast<std::size_t>(cursor.destEnd - dest) / kStepBytes);
    __m128i values;
    for (; steps > 0 && ToValues(LoadCharacters(source), values); --steps) {
        StoreBytes(dest, values);
        source += kStepCharacters;
        dest += kStepBytes;
    }
    cursor.source = source;
    cursor.dest = dest;
    // Decodes the groups before the foreign character, or before the end.
    DecodeGroups(cursor);
}

} // namespace

template <class Ch>
const Base64Kernels<Ch>* Ssse3Base64() {
    static constexpr Base64Kernels<Ch> kernels = {
        EncodeByLines<Ch, EncodeLines<Ch>, EncodeGroups<Ch>>, DecodeGroupsBySteps<Ch>};
    return __builtin_cpu_supports("ssse3") ? &kernels : nullptr;
}

} // namespace quorvel

#else

namespace quorvel {

template <class Ch>
const Base64Kernels<Ch>* Ssse3Base64() {
    return nullptr;
}

} // namespace quorvel

#endif

namespace quorvel {

template const Base64Kernels<char>* Ssse3Base64();
template const Base64Kernels<WCHAR>* Ssse3Base64();

} // namespace quorvel
