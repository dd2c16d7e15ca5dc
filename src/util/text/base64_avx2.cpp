// The second vector form of the base64 kernels, for x86 processors with AVX2.
//
// One step converts thirty-two characters or twenty-four bytes. It is two parallel steps of
// base64_ssse3.cpp, which explains the arithmetic.
#include "util/text/base64_kernels.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

// Where Windows unwinds by tables, GCC aligns the stack to 16 bytes only, but spilled vectors need
// more.
#if (defined(__i386__) || defined(__x86_64__)) && !defined(__SEH__)

#include <immintrin.h>

#define QUORVEL_AVX2 __attribute__((target("avx2")))

namespace quorvel {
namespace {

constexpr std::size_t kStepGroups = 8;
constexpr std::size_t kStepBytes = 3 * kStepGroups;
constexpr std::size_t kStepCharacters = 4 * kStepGroups;

template <class T>
QUORVEL_AVX2 inline __m256i Load(const T* from) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

template <class T>
QUORVEL_AVX2 inline void Store(T* to, __m256i vector) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), vector);
}

// Prefetches one page ahead for writing: the processor's own prefetching stops at page borders.
QUORVEL_AVX2 inline void FetchAhead(const void* to) {
    __builtin_prefetch(reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(to) + 4096),
                       1);
}

// Copies the same sixteen bytes to both lanes.
QUORVEL_AVX2 inline __m256i Twice(__m128i lane) {
    return _mm256_broadcastsi128_si256(lane);
}

QUORVEL_AVX2 inline void StoreCharacters(char* to, __m256i characters) {
    Store(to, characters);
}
QUORVEL_AVX2 inline void StoreCharacters(WCHAR* to, __m256i characters) {
    Store(to, _mm256_cvtepu8_epi16(_mm256_castsi256_si128(characters)));
    Store(to + 16, _mm256_cvtepu8_epi16(_mm256_extracti128_si256(characters, 1)));
}

QUORVEL_AVX2 inline __m256i LoadCharacters(const char* from) {
    return Load(from);
}
QUORVEL_AVX2 inline __m256i LoadCharacters(const WCHAR* from) {
    const __m256i lanes = _mm256_packus_epi16(Load(from), Load(from + 16));
    return _mm256_permute4x64_epi64(lanes, 0xd8); // 0, 2, 1, 3
}

// Encodes the four groups of each lane. `places` has the positions of their bytes.
QUORVEL_AVX2 inline __m256i EncodeStep(const BYTE* low, const BYTE* high, __m256i places) {
    const __m256i bytes = _mm256_inserti128_si256(
        _mm256_castsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(low))),
        _mm_loadu_si128(reinterpret_cast<const __m128i*>(high)), 1);
    const __m256i spread = _mm256_shuffle_epi8(bytes, places);
    const __m256i oddValues = _mm256_mulhi_epu16(
        _mm256_and_si256(spread, _mm256_set1_epi32(0x0fc0fc00)), _mm256_set1_epi32(0x04000040));
    const __m256i evenValues = _mm256_mullo_epi16(
        _mm256_and_si256(spread, _mm256_set1_epi32(0x003f03f0)), _mm256_set1_epi32(0x01000010));
    const __m256i values = _mm256_or_si256(oddValues, evenValues);

    const __m256i beyondLetters = _mm256_subs_epu8(values, _mm256_set1_epi8(51));
    const __m256i notCapital = _mm256_cmpgt_epi8(values, _mm256_set1_epi8(25));
    const __m256i ranges = _mm256_sub_epi8(beyondLetters, notCapital);
    constexpr char digit = '0' - 52;
    const __m256i offsets =
        Twice(_mm_setr_epi8('A', 'a' - 26, digit, digit, digit, digit, digit, digit, digit, digit,
                            digit, digit, '+' - 62, '/' - 63, 0, 0));
    return _mm256_add_epi8(values, _mm256_shuffle_epi8(offsets, ranges));
}

// The very first load takes twelve bytes and the four after them, all others take the four before
// them. So no load leaves the source. The last step may repeat groups of the previous one.
template <class Ch>
QUORVEL_AVX2 inline Ch* EncodeGroups(const BYTE* source, std::size_t groups, Ch* dest,
                                     bool isFirst) {
    const __m128i first = _mm_setr_epi8(1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10);
    const __m128i others = _mm_add_epi8(first, _mm_set1_epi8(4));
    if (isFirst)
        StoreCharacters(dest, EncodeStep(source, source + 8, _mm256_set_m128i(others, first)));
    for (std::size_t next = isFirst ? kStepGroups : 0; next < groups; next += kStepGroups) {
        const std::size_t group = std::min(next, groups - kStepGroups);
        const BYTE* const bytes = source + 3 * group;
        FetchAhead(dest + 4 * group);
        StoreCharacters(dest + 4 * group, EncodeStep(bytes - 4, bytes + 8, Twice(others)));
    }
    return dest + 4 * groups;
}

template <class Ch>
QUORVEL_AVX2 Ch* EncodeGroups(const BYTE* source, std::size_t groups, Ch* dest) {
    if (groups < kStepGroups + 2) // the last step would load bytes before the source
        return PortableBase64<Ch>().encode(source, 3 * groups, dest, BASE64_NO_LINE_BREAKS);
    return EncodeGroups(source, groups, dest, true);
}

template <class Ch>
QUORVEL_AVX2 Ch* EncodeLines(const BYTE* source, std::size_t lines, Ch* dest) {
    for (std::size_t line = 0; line < lines; ++line, source += kLineBytes) {
        dest = EncodeGroups(source, kLineGroups, dest, line == 0);
        *dest++ = '\r';
        *dest++ = '\n';
    }
    return dest;
}

// Converts characters to their values, and sets a bit for each foreign one.
QUORVEL_AVX2 inline __m256i ToValues(__m256i characters, std::uint32_t& foreign) {
    const __m256i nibble = _mm256_set1_epi8(0x0f);
    const __m256i lowNibbles = _mm256_and_si256(characters, nibble);
    const __m256i highNibbles = _mm256_and_si256(_mm256_srli_epi16(characters, 4), nibble);
    const __m256i lowSets =
        _mm256_shuffle_epi8(Twice(_mm_setr_epi8(0x15, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11,
                                                0x11, 0x11, 0x13, 0x1a, 0x1b, 0x1b, 0x1b, 0x1a)),
                            lowNibbles);
    const __m256i highSets =
        _mm256_shuffle_epi8(Twice(_mm_setr_epi8(0x10, 0x10, 0x01, 0x02, 0x04, 0x08, 0x04, 0x08,
                                                0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10)),
                            highNibbles);
    const __m256i areClean =
        _mm256_cmpeq_epi8(_mm256_and_si256(lowSets, highSets), _mm256_setzero_si256());
    foreign = ~static_cast<std::uint32_t>(_mm256_movemask_epi8(areClean));
    const __m256i areSlashes = _mm256_cmpeq_epi8(characters, _mm256_set1_epi8('/'));
    const __m256i offsets = Twice(_mm_setr_epi8(0, 63 - '/', 62 - '+', 52 - '0', -'A', -'A',
                                                26 - 'a', 26 - 'a', 0, 0, 0, 0, 0, 0, 0, 0));
    const __m256i ranges = _mm256_add_epi8(highNibbles, areSlashes);
    return _mm256_add_epi8(characters, _mm256_shuffle_epi8(offsets, ranges));
}

// Twenty-four bytes, and eight zeros after them.
QUORVEL_AVX2 inline __m256i ToBytes(__m256i values) {
    const __m256i pairs = _mm256_maddubs_epi16(values, _mm256_set1_epi32(0x01400140));
    const __m256i groups = _mm256_madd_epi16(pairs, _mm256_set1_epi32(0x00011000));
    const __m256i lanes = _mm256_shuffle_epi8(
        groups, Twice(_mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1)));
    return _mm256_permutevar8x32_epi32(lanes, _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 3, 7));
}

QUORVEL_AVX2 inline void StoreBytes(BYTE* to, __m256i bytes) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), _mm256_castsi256_si128(bytes));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(to + 16), _mm256_extracti128_si256(bytes, 1));
}

// Writes `count` bytes and changes no others.
QUORVEL_AVX2 inline void StoreFirstBytes(BYTE* to, __m256i bytes, std::size_t count) {
    static constexpr auto kKept = [] { // zeros, then bytes with all bits set
        std::array<BYTE, 56> kept{};
        for (std::size_t i = kStepBytes; i < kept.size(); ++i)
            kept[i] = 0xff;
        return kept;
    }();
    const __m256i present = _mm256_inserti128_si256(
        _mm256_castsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(to))),
        _mm_loadl_epi64(reinterpret_cast<const __m128i*>(to + 16)), 1);
    StoreBytes(to, _mm256_blendv_epi8(bytes, present, Load(kKept.data() + kStepBytes - count)));
}

// Continues after foreign characters that are between two groups, such as line breaks.
template <class Ch>
QUORVEL_AVX2 void DecodeGroupsBySteps(Base64Cursor<Ch>& cursor) {
    const Ch* source = cursor.source;
    BYTE* dest = cursor.dest;
    while (cursor.sourceEnd - source >= std::ptrdiff_t{kStepCharacters} &&
           cursor.destEnd - dest >= std::ptrdiff_t{kStepBytes}) {
        std::uint32_t foreign;
        const __m256i bytes = ToBytes(ToValues(LoadCharacters(source), foreign));
        FetchAhead(dest);
        if (foreign == 0) {
            StoreBytes(dest, bytes);
            source += kStepCharacters;
            dest += kStepBytes;
            continue;
        }
        const auto clean = static_cast<std::size_t>(std::countr_zero(foreign));
        StoreFirstBytes(dest, bytes, clean / 4 * 3);
        source += clean / 4 * 4;
        dest += clean / 4 * 3;
        if (clean % 4 != 0)
            break;
        source += std::countr_one(foreign >> clean);
    }
    cursor.source = source;
    cursor.dest = dest;
    Ssse3Base64<Ch>()->decodeGroups(cursor);
}

} // namespace

template <class Ch>
const Base64Kernels<Ch>* Avx2Base64() {
    static constexpr Base64Kernels<Ch> kernels = {
        EncodeByLines<Ch, EncodeLines<Ch>, EncodeGroups<Ch>>, DecodeGroupsBySteps<Ch>};
    return __builtin_cpu_supports("avx2") ? &kernels : nullptr;
}

} // namespace quorvel

#else

namespace quorvel {

template <class Ch>
const Base64Kernels<Ch>* Avx2Base64() {
    return nullptr;
}

} // namespace quorvel

#endif

namespace quorvel {

template const Base64Kernels<char>* Avx2Base64();
template const Base64Kernels<WCHAR>* Avx2Base64();

} // namespace quorvel
