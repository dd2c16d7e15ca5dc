#include "xml/angle_scanner.h"

#include "xml/characters.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace quorvel {

namespace {

// Prefetches the 64 characters one page ahead. The processor's own prefetching stops at page
// borders, and a large document is in no cache when it is parsed.
inline void FetchAhead(const WCHAR* text) {
    const char* const ahead = reinterpret_cast<const char*>(text) + 4096;
    __builtin_prefetch(ahead);
    __builtin_prefetch(ahead + 64);
}

// One bit for each of 64 characters, set for "<" and ">". The two characters differ only in bit 1.
#if defined(__SSE2__)
[[gnu::always_inline]] inline std::uint64_t FindAngles(const WCHAR* text) {
    const __m128i bit = _mm_set1_epi16('<' ^ '>');
    const __m128i angle = _mm_set1_epi16('<' | '>');
    std::uint64_t found = 0;
    for (int i = 0; i < 4; ++i) {
        const auto* at = reinterpret_cast<const __m128i*>(text + 16 * i);
        const __m128i low = _mm_cmpeq_epi16(_mm_or_si128(_mm_loadu_si128(at), bit), angle);
        const __m128i high = _mm_cmpeq_epi16(_mm_or_si128(_mm_loadu_si128(at + 1), bit), angle);
        const auto mask = static_cast<unsigned>(_mm_movemask_epi8(_mm_packs_epi16(low, high)));
        found |= static_cast<std::uint64_t>(mask) << (16 * i);
    }
    return found;
}
#else
std::uint64_t FindAngles(const WCHAR* text) {
    std::uint64_t found = 0;
    for (int i = 0; i < 64; ++i)
        found |= static_cast<std::uint64_t>((text[i] | ('<' ^ '>')) == ('<' | '>')) << i;
    return found;
}
#endif

// Writes the positions of the set bits, eight at a time; the next block overwrites the surplus.
// Most blocks have few set bits, so the number of rounds is rarely mispredicted.
[[gnu::always_inline]] inline int WritePositions(std::uint64_t found, int base, int* positions) {
    const int count = std::popcount(found);
    for (int written = 0; written < count; written += 8) {
        for (int i = 0; i < 8; ++i) {
            positions[written + i] = base + std::countr_zero(found);
            found &= found - 1;
        }
    }
    return count;
}

// Appends the positions in the whole blocks of text[begin, end) and returns the new count.
[[gnu::always_inline]] inline int ScanBlocks(const WCHAR* text, int begin, int end, int* positions,
                                             int count) {
    for (; end - begin >= 64; begin += 64)
        count += WritePositions(FindAngles(text + begin), begin, positions + count);
    return count;
}

int ScanBlocksBaseline(const WCHAR* text, int begin, int end, int* positions, int count) {
    return ScanBlocks(text, begin, end, positions, count);
}

#if defined(__x86_64__) || defined(__i386__)
// The same code compiled with bit-counting instructions, which the baseline lacks.
[[gnu::target("avx2,bmi,popcnt")]] int ScanBlocksAvx2(const WCHAR* text, int begin, int end,
                                                      int* positions, int count) {
    return ScanBlocks(text, begin, end, positions, count);
}

auto ChooseScanBlocks() {
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") ? ScanBlocksAvx2
                                                                           : ScanBlocksBaseline;
}
#else
auto ChooseScanBlocks() {
    return ScanBlocksBaseline;
}
#endif

#if defined(__SSE2__)
bool HasZero(const WCHAR* text) {
    FetchAhead(text);
    const auto* at = reinterpret_cast<const __m128i*>(text);
    __m128i found = _mm_setzero_si128();
    for (int i = 0; i < 8; ++i)
        found = _mm_or_si128(found, _mm_cmpeq_epi16(_mm_loadu_si128(at + i), _mm_setzero_si128()));
    return _mm_movemask_epi8(found) != 0;
}
#else
bool HasZero(const WCHAR* text) {
    return std::find(text, text + 64, WCHAR()) != text + 64;
}
#endif

// The position of the first zero character, or the length.
int FindZero(const WCHAR* text, int length) {
    int position = 0;
    while (length - position >= 64 && !HasZero(text + position))
        position += 64;
    return static_cast<int>(std::find(text + position, text + length, WCHAR()) - text);
}

} // namespace

#if defined(__SSE2__)
int TagNameLength(const WCHAR* name, const WCHAR* other, int readable) {
    for (int length = 0; readable - length >= 8; length += 8) {
        const __m128i left = _mm_loadu_si128(reinterpret_cast<const __m128i*>(name + length));
        const __m128i right = _mm_loadu_si128(reinterpret_cast<const __m128i*>(other + length));
        // Matches all characters that end a name and some more: up to "/", "<" to "?", the
        // backslash, and 0x8000 and above (the compare is signed). Those take the slow path.
        const __m128i low = _mm_cmplt_epi16(left, _mm_set1_epi16('/' + 1));
        const __m128i middle =
            _mm_cmpeq_epi16(_mm_and_si128(left, _mm_set1_epi16(-4)), _mm_set1_epi16('<'));
        const __m128i ends =
            _mm_or_si128(_mm_or_si128(low, middle), _mm_cmpeq_epi16(left, _mm_set1_epi16('\\')));
        const auto endMask = static_cast<unsigned>(_mm_movemask_epi8(ends));
        const auto equalMask =
            static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi16(left, right)));
        if (endMask != 0) {
            const int size = std::countr_zero(endMask);
            const bool equal = std::countr_one(equalMask) >= size;
            return equal && IsClass(name[length + size / 2], kClassDelimiter) ? length + size / 2
                                                                              : 0;
        }
        if (equalMask != 0xffff)
            return 0;
    }
    return 0;
}
#else
int TagNameLength(const WCHAR* name, const WCHAR* other, int readable) {
    int length = 0;
    while (length < readable && name[length] == other[length] && name[length] > '/' &&
           !IsClass(name[length], kClassDelimiter))
        ++length;
    return IsClass(name[length], kClassDelimiter) ? length : 0;
}
#endif

int FindEither(const WCHAR* text, int length, WCHAR character, WCHAR other) {
    int position = 0;
#if defined(__SSE2__)
    const __m128i first = _mm_set1_epi16(static_cast<short>(character));
    const __m128i second = _mm_set1_epi16(static_cast<short>(other));
    for (; length - position >= 8; position += 8) {
        const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + position));
        const auto found = static_cast<unsigned>(_mm_movemask_epi8(
            _mm_or_si128(_mm_cmpeq_epi16(units, first), _mm_cmpeq_epi16(units, second))));
        if (found != 0)
            return position + std::countr_zero(found) / 2;
    }
#endif
    while (position < length && text[position] != character && text[position] != other)
        ++position;
    return position;
}

void AngleScanner::Refill() {
    static const auto scanBlocks = ChooseScanBlocks();
    // Locals: the compiler must assume that a store to `positions` can change a member.
    int* const positions = m_positions;
    const WCHAR* const text = m_text;
    int end = m_end;
    int unread = m_unread;
    int count = 0;
    for (; m_first < m_count; ++m_first)
        positions[count++] = positions[m_first];
    while (count < 2 && unread < end) {
        int windowEnd = end - unread > kWindow ? unread + kWindow : end;
        const int size = FindZero(text + unread, windowEnd - unread);
        if (size < windowEnd - unread)
            end = windowEnd = unread + size;
        count = scanBlocks(text, unread, windowEnd, positions, count);
        unread += (windowEnd - unread) / kBlock * kBlock;
        if (unread < windowEnd) { // the last block of the text
            WCHAR rest[kBlock] = {};
            std::memcpy(rest, text + unread,
                        static_cast<std::size_t>(end - unread) * sizeof(WCHAR));
            count += WritePositions(FindAngles(rest), unread, positions + count);
            unread = end;
        }
    }
    if (count < 2)
        for (int i = 0; i < 2; ++i)
            positions[count++] = end;
    m_unread = unread;
    m_end = end;
    m_first = 0;
    m_count = count;
}

int AngleScanner::SkipTo(int position, WCHAR character) {
    for (;; Skip(1)) {
        Prepare();
        const int found = First();
        if (found >= m_end || (found >= position && m_text[found] == character))
            return found;
    }
}

void AngleScanner::SkipBefore(int position) {
    for (Prepare(); First() < position && First() < m_end; Prepare())
        Skip(1);
}

} // namespace quorvel
