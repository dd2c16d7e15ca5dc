// Copies runs of ASCII between UTF-16 and one-byte texts with vector code, for the converters.
//
// Both functions stop at the first non-ASCII character and return the number of characters copied.
// They may overwrite the target after these, up to `count`.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <bit>
#include <cstddef>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace quorvel {

inline std::size_t CopyAscii(const BYTE* from, WCHAR* to, std::size_t count) {
    std::size_t i = 0;
#if defined(__SSE2__)
    for (; count - i >= 16; i += 16) {
        // Prefetches as in the other direction, but for writing. For a large text the kernel has
        // just cleared these pages, so at best the outer caches have them.
        __builtin_prefetch(reinterpret_cast<const char*>(to + i) + 4096, 1);
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + i));
        auto* const target = reinterpret_cast<__m128i*>(to + i);
        _mm_storeu_si128(target, _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
        _mm_storeu_si128(target + 1, _mm_unpackhi_epi8(bytes, _mm_setzero_si128()));
        if (const auto others = static_cast<unsigned>(_mm_movemask_epi8(bytes)); others != 0)
            return i + static_cast<std::size_t>(std::countr_zero(others));
    }
#endif
    for (; i < count && from[i] < 0x80; ++i)
        to[i] = from[i];
    return i;
}

inline std::size_t CopyAscii(const WCHAR* from, char* to, std::size_t count) {
    std::size_t i = 0;
#if defined(__SSE2__)
    const __m128i above = _mm_set1_epi16(static_cast<short>(0xff80));
    for (; count - i >= 16; i += 16) {
        // The processor's own prefetching stops at page borders, and most of a large document is in
        // no cache when it is saved.
        _mm_prefetch(reinterpret_cast<const char*>(from + i) + 4096, _MM_HINT_T0);
        const auto* const source = reinterpret_cast<const __m128i*>(from + i);
        const __m128i low = _mm_loadu_si128(source);
        const __m128i high = _mm_loadu_si128(source + 1);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + i), _mm_packus_epi16(low, high));
        const __m128i isAscii =
            _mm_packs_epi16(_mm_cmpeq_epi16(_mm_and_si128(low, above), _mm_setzero_si128()),
                            _mm_cmpeq_epi16(_mm_and_si128(high, above), _mm_setzero_si128()));
        if (const auto run = static_cast<unsigned>(_mm_movemask_epi8(isAscii)); run != 0xffff)
            return i + static_cast<std::size_t>(std::countr_one(run));
    }
#endif
    for (; i < count && from[i] < 0x80; ++i)
        to[i] = static_cast<char>(from[i]);
    return i;
}

} // namespace quorvel
