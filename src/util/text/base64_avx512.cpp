// The second vector form of the base64 kernels, for x86 processors with the byte permutations of
// AVX-512 (VBMI, VBMI2).
//
// Sixty-four characters, or the forty-eight bytes they stand for, are one step. Masks make a
// shorter step of any length, so nothing is left to do byte by byte; masked lanes are neither read
// nor written.
#include "util/text/base64_kernels.h"

#include <algorithm>
#include <bit>

// GCC keeps no more than 16 bytes of stack alignment where Windows unwinds by tables, which spilled
// vectors need more of.
#if (defined(__i386__) || defined(__x86_64__)) && !defined(__SEH__)

#include <immintrin.h>

#define QUORVEL_AVX512                                                                             \
    __attribute__((target("avx512bw,avx512vl,avx512vbmi,avx512vbmi2,bmi,bmi2,lzcnt,popcnt")))

// GCC 12 takes the operands that its own intrinsics leave undefined for ours.
#if !defined(__clang__)
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

namespace quorvel {
namespace {

constexpr std::size_t kStepCharacters = 64;
constexpr std::size_t kStepBytes = kStepCharacters * 3 / 4;
constexpr BYTE kForeign = 0x80; // beside the values of the alphabet

typedef std::uint64_t Mask; // a bit a lane, the first is the lowest

QUORVEL_AVX512 constexpr Mask First(std::size_t lanes) {
    return lanes < 64 ? (Mask{1} << lanes) - 1 : ~Mask{0};
}

// Of a step, the place in the group of three bytes of each byte in the order that the shifts want.
constexpr auto kSpread = [] {
    std::array<BYTE, 64> places{};
    for (std::size_t i = 0; i < places.size(); ++i) {
        constexpr BYTE order[] = {1, 0, 2, 1};
        places[i] = static_cast<BYTE>(3 * (i / 4) + order[i % 4]);
    }
    return places;
}();

// Where each byte of a decoded step lies in its group of 32 bits.
constexpr auto kGathered = [] {
    std::array<BYTE, 64> places{};
    for (std::size_t i = 0; i < kStepBytes; ++i)
        places[i] = static_cast<BYTE>(4 * (i / 3) + 2 - i % 3);
    return places;
}();

// A line break wherever it is needed.
constexpr auto kLineBreak = [] {
    std::array<char, 64> text{};
    for (std::size_t i = 0; i < text.size(); ++i)
        text[i] = i % 2 == 0 ? '\r' : '\n';
    return text;
}();

constexpr auto kValues = [] {
    std::array<BYTE, 128> values{};
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = kBase64Values[i] < 0 ? kForeign : static_cast<BYTE>(kBase64Values[i]);
    return values;
}();

QUORVEL_AVX512 inline __m512i Load(const void* from) {
    return _mm512_loadu_si512(from);
}

QUORVEL_AVX512 inline void Store(char* to, __m512i characters, Mask lanes) {
    _mm512_mask_storeu_epi8(to, lanes, characters);
}
QUORVEL_AVX512 inline void Store(WCHAR* to, __m512i characters, Mask lanes) {
    const __m512i low = _mm512_cvtepu8_epi16(_mm512_castsi512_si256(characters));
    const __m512i high = _mm512_cvtepu8_epi16(_mm512_extracti64x4_epi64(characters, 1));
    _mm512_mask_storeu_epi16(to, static_cast<__mmask32>(lanes), low);
    _mm512_mask_storeu_epi16(to + 32, static_cast<__mmask32>(lanes >> 32), high);
}

// Wide characters beyond 0xff saturate to it, which is foreign.
QUORVEL_AVX512 inline __m512i LoadCharacters(const char* from, Mask lanes) {
    return _mm512_maskz_loadu_epi8(lanes, from);
}
QUORVEL_AVX512 inline __m512i LoadCharacters(const WCHAR* from, Mask lanes) {
    const __m512i low = _mm512_maskz_loadu_epi16(static_cast<__mmask32>(lanes), from);
    const __m512i high = _mm512_maskz_loadu_epi16(static_cast<__mmask32>(lanes >> 32), from + 32);
    return _mm512_inserti64x4(_mm512_castsi256_si512(_mm512_cvtusepi16_epi8(low)),
                              _mm512_cvtusepi16_epi8(high), 1);
}

// The characters of up to 48 bytes; those without a byte are of no meaning.
QUORVEL_AVX512 inline __m512i EncodeStep(const BYTE* source, Mask bytes) {
    // Each value starts at one of these bits of its group's 32.
    const __m512i shifts = _mm512_set1_epi64(0x3036242a1016040a);
    const __m512i spread =
        _mm512_permutexvar_epi8(Load(kSpread.data()), _mm512_maskz_loadu_epi8(bytes, source));
    return _mm512_permutexvar_epi8(_mm512_multishift_epi64_epi8(shifts, spread),
                                   Load(kBase64Alphabet));
}

// Maybe beyond the end: an address for a prefetch alone, which ignores those that are none.
const void* Ahead(const void* from, std::size_t distance) {
    return reinterpret_cast<const void*>(reinterpret_cast<std::uintptr_t>(from) + distance);
}

template <class Ch>
QUORVEL_AVX512 Ch* Encode(const BYTE* source, std::size_t length, Ch* dest, DWORD flags) {
    constexpr std::size_t lineRest = kLineBytes - kStepBytes; // a line is a step and a shorter one
    constexpr std::size_t lineEnd = lineRest / 3 * 4;
    const bool lines = (flags & BASE64_NO_LINE_BREAKS) == 0;
    for (; length >= (lines ? kLineBytes : kStepBytes); length -= kStepBytes) {
        // For writing, a page ahead: the processor's own fetching ends with each page.
        __builtin_prefetch(Ahead(dest, 4096), 1);
        Store(dest, EncodeStep(source, First(kStepBytes)), First(kStepCharacters));
        source += kStepBytes;
        dest += kStepCharacters;
        if (!lines)
            continue;
        // Deliberate: a line that full groups fill ends in a line break even as the last one.
        const __m512i text = EncodeStep(source, First(lineRest));
        Store(dest, _mm512_mask_mov_epi8(text, Mask{3} << lineEnd, Load(kLineBreak.data())),
              First(lineEnd + 2));
        source += lineRest;
        dest += lineEnd + 2;
        length -= lineRest;
    }
    if (length >= kStepBytes) {
        Store(dest, EncodeStep(source, First(kStepBytes)), First(kStepCharacters));
        source += kStepBytes;
        dest += kStepCharacters;
        length -= kStepBytes;
    }
    const std::size_t characters = (4 * length + 2) / 3;
    const std::size_t all = (flags & BASE64_NO_PADDING) == 0 ? (length + 2) / 3 * 4 : characters;
    const __m512i text = EncodeStep(source, First(length));
    Store(dest, _mm512_mask_mov_epi8(text, ~First(characters), _mm512_set1_epi8('=')), First(all));
    return dest + all;
}

// Up to 48 bytes of the values.
QUORVEL_AVX512 inline void StoreBytes(BYTE* to, __m512i values, std::size_t bytes) {
    const __m512i pairs = _mm512_maddubs_epi16(values, _mm512_set1_epi32(0x01400140));
    const __m512i groups = _mm512_madd_epi16(pairs, _mm512_set1_epi32(0x00011000));
    _mm512_mask_storeu_epi8(to, First(bytes),
                            _mm512_permutexvar_epi8(Load(kGathered.data()), groups));
}

// How many characters come before the one that is the `index`th of those with a bit in `clean`.
QUORVEL_AVX512 inline std::size_t PlaceOf(Mask clean, std::size_t index) {
    for (auto after = static_cast<std::size_t>(std::popcount(clean)) - index; after > 1; --after)
        clean &= ~std::bit_floor(clean);
    return static_cast<std::size_t>(std::bit_width(clean)) - 1;
}

// The values of the characters, and which lanes hold a foreign one.
QUORVEL_AVX512 inline __m512i ToValues(__m512i characters, Mask& foreign) {
    const __m512i values =
        _mm512_permutex2var_epi8(Load(kValues.data()), characters, Load(kValues.data() + 64));
    // The table has no place for characters above 0x7f: their own highest bit tells.
    foreign = _mm512_movepi8_mask(_mm512_or_si512(values, characters));
    return values;
}

// Decodes whole steps without a foreign character.
template <class Ch>
QUORVEL_AVX512 inline void DecodeCleanSteps(Base64Cursor<Ch>& cursor) {
    const Ch* source = cursor.source;
    BYTE* dest = cursor.dest;
    std::size_t steps =
        std::min(static_cast<std::size_t>(cursor.sourceEnd - source) / kStepCharacters,
                 static_cast<std::size_t>(cursor.destEnd - dest) / kStepBytes);
    for (; steps > 0; --steps, source += kStepCharacters, dest += kStepBytes) {
        __builtin_prefetch(Ahead(dest, 4096), 1); // as in Encode
        Mask foreign;
        const __m512i values = ToValues(LoadCharacters(source, ~Mask{0}), foreign);
        if (foreign != 0)
            break;
        StoreBytes(dest, values, kStepBytes);
    }
    cursor.source = source;
    cursor.dest = dest;
}

template <class Ch>
QUORVEL_AVX512 void DecodeGroupsBySteps(Base64Cursor<Ch>& cursor) {
    for (;;) {
        DecodeCleanSteps(cursor);
        const auto left = static_cast<std::size_t>(cursor.sourceEnd - cursor.source);
        if (left == 0)
            return;
        const auto room = static_cast<std::size_t>(cursor.destEnd - cursor.dest);
        const std::size_t length = std::min(left, kStepCharacters);
        // The next step's place depends on this one's content, so nothing else loads ahead.
        _mm_prefetch(Ahead(cursor.source, 1024), _MM_HINT_T0);
        __builtin_prefetch(Ahead(cursor.dest, 4096), 1);
        Mask foreign;
        __m512i values = ToValues(LoadCharacters(cursor.source, First(length)), foreign);
        const Mask clean = First(length) & ~foreign;
        const auto count = static_cast<std::size_t>(std::popcount(clean));
        values = _mm512_maskz_compress_epi8(clean, values);
        const std::size_t all = count * 3 / 4;
        if (length == left && all <= room) {
            StoreBytes(cursor.dest, values, all);
            cursor.dest += all;
            cursor.source += length;
            return;
        }
        const std::size_t groups = std::min(count / 4, room / 3);
        if (groups == 0)
            return;
        StoreBytes(cursor.dest, values, 3 * groups);
        cursor.dest += 3 * groups;
        cursor.source += 4 * groups == count ? length : PlaceOf(clean, 4 * groups);
    }
}

} // namespace

template <class Ch>
const Base64Kernels<Ch>* Avx512Base64() {
    static constexpr Base64Kernels<Ch> kernels = {Encode<Ch>, DecodeGroupsBySteps<Ch>};
    const bool supported =
        __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl") &&
        __builtin_cpu_supports("avx512vbmi") && __builtin_cpu_supports("avx512vbmi2");
    return supported ? &kernels : nullptr;
}

} // namespace quorvel

#else

namespace quorvel {

template <class Ch>
const Base64Kernels<Ch>* Avx512Base64() {
    return nullptr;
}

} // namespace quorvel

#endif

namespace quorvel {

template const Base64Kernels<char>* Avx512Base64();
template const Base64Kernels<WCHAR>* Avx512Base64();

} // namespace quorvel
