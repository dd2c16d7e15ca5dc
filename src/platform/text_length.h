// The length of a text up to its terminator. The C library has no such function for 16-bit units
// where its wide characters have 32 bits.
#pragma once

#include <quorvel/platform/platform.h>

#include <cstddef>
#include <string>

#if !defined(_WIN32) && defined(__SSE2__)
#include <bit>
#include <cstdint>
#include <emmintrin.h>
#endif

namespace quorvel {

inline std::size_t TextLength(const char* text) {
    return std::char_traits<char>::length(text);
}

#if !defined(_WIN32) && defined(__SSE2__)
// Reads whole aligned blocks. They never cross a page border, so bytes outside the text can be
// read, and the sanitizers need not know.
[[gnu::no_sanitize("address", "thread")]] inline std::size_t TextLength(const WCHAR* text) {
    const auto address = reinterpret_cast<std::uintptr_t>(text);
    if (address % sizeof(WCHAR) != 0)
        return std::char_traits<WCHAR>::length(text);
    const std::uintptr_t skipped = address % sizeof(__m128i);
    auto block = reinterpret_cast<const __m128i*>(address - skipped);
    unsigned found = 0xffffu << skipped & 0xffff;
    for (;; ++block, found = 0xffff) {
        const __m128i isZero = _mm_cmpeq_epi16(_mm_load_si128(block), _mm_setzero_si128());
        if ((found &= static_cast<unsigned>(_mm_movemask_epi8(isZero))) != 0)
            break;
    }
    const auto* const end = reinterpret_cast<const char*>(block) + std::countr_zero(found);
    return static_cast<std::size_t>(end - reinterpret_cast<const char*>(text)) / sizeof(WCHAR);
}
#else
inline std::size_t TextLength(const WCHAR* text) {
    return std::char_traits<WCHAR>::length(text);
}
#endif

} // namespace quorvel
