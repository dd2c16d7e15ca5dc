// The vector code of the UTF-8 converters, written once for registers of one or two lanes of 16
// bytes. A source defines the differences, includes this file and so compiles its own copy: no
// function here may be shared with code for another processor.
//
// Decoding computes a unit for each byte as if a character ended there, from its bits and those of
// the bytes before it. Then a table moves together the units of bytes where a character does end.
// Encoding makes the longest sequence of each unit, and tables remove the surplus bytes.
#include "platform/surrogates.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace quorvel {

typedef std::array<BYTE, 16> Shuffle;      // the source of each byte of the result
typedef std::array<Shuffle, 256> Shuffles; // one for each set of eight bits

// Two adjacent bytes have a fault if all three sets of the fault contain the nibbles: both of the
// first byte and the higher one of the second. The last fault is two trail bytes. It is correct for
// the second and third and for the third and fourth byte of a sequence.
struct Utf8Fault {
    unsigned firstHigh, firstLow, secondHigh; // a bit for each nibble
};
inline constexpr Utf8Fault kUtf8Faults[8] = {
    {0xf000, 0xffff, 0xf0ff}, // a lead byte without a trail byte
    {0x00ff, 0xffff, 0x0f00}, // a trail byte without a lead byte
    {0x1000, 0x0003, 0x0f00}, // overlong: C0 80 to C1 BF
    {0x4000, 0x0001, 0x0300}, // overlong: E0 80 to E0 9F
    {0x4000, 0x2000, 0x0c00}, // a surrogate: ED A0 to ED BF
    {0x8000, 0xffe1, 0x0100}, // overlong: F0 80 to F0 8F; too large: F5 80 to FF 8F
    {0x8000, 0xfff0, 0x0e00}, // too large: F4 90 to FF BF
    {0x0f00, 0xffff, 0x0f00},
};
// The faults whose set contains the nibble, one bit for each fault.
constexpr Shuffle FaultsByNibble(unsigned Utf8Fault::*set) {
    Shuffle faults{};
    for (unsigned nibble = 0; nibble < 16; ++nibble)
        for (unsigned i = 0; i < 8; ++i)
            faults[nibble] |= static_cast<BYTE>((kUtf8Faults[i].*set >> nibble & 1) << i);
    return faults;
}
alignas(16) inline constexpr Shuffle kFirstHigh = FaultsByNibble(&Utf8Fault::firstHigh);
alignas(16) inline constexpr Shuffle kFirstLow = FaultsByNibble(&Utf8Fault::firstLow);
alignas(16) inline constexpr Shuffle kSecondHigh = FaultsByNibble(&Utf8Fault::secondHigh);

// Keeps the last bytes of each item of `size` bytes, up to `most`. The items share the eight bits
// of a set; each bit means a byte to remove.
constexpr Shuffles KeepLastBytes(unsigned size, unsigned most) {
    const unsigned bits = size / 2;
    Shuffles shuffles{};
    for (unsigned set = 0; set < 256; ++set)
        for (unsigned item = 0, to = 0; item < 16 / size; ++item) {
            const unsigned dropped = set >> bits * item & ((1u << bits) - 1);
            for (auto left = most - static_cast<unsigned>(std::popcount(dropped)); left > 0; --left)
                shuffles[set][to++] = static_cast<BYTE>(size * (item + 1) - left);
        }
    return shuffles;
}
alignas(64) inline constexpr Shuffles kKeepOfTwo = KeepLastBytes(2, 2);
alignas(64) inline constexpr Shuffles kKeepOfThree = KeepLastBytes(4, 3);

// Keeps the units whose bit is set.
alignas(64) inline constexpr Shuffles kKeepUnits = [] {
    Shuffles shuffles{};
    for (unsigned set = 0; set < 256; ++set)
        for (unsigned i = 0, to = 0; i < 16; ++i)
            if ((set >> i / 2 & 1) != 0)
                shuffles[set][to++] = static_cast<BYTE>(i);
    return shuffles;
}();

namespace {

constexpr int kBytes = sizeof(Register);
constexpr int kUnits = kBytes / 2;
constexpr int kLanes = kBytes / 16;
constexpr std::uint32_t kEvery = 0xffffffff >> (32 - kBytes); // a bit for each byte
typedef BYTE ByteVector __attribute__((vector_size(kBytes)));
typedef signed char SignedVector __attribute__((vector_size(kBytes)));
typedef std::uint16_t UnitVector __attribute__((vector_size(kBytes)));

template <class V>
QUORVEL_INLINE V Load(const void* from) {
    V vector;
    std::memcpy(&vector, from, sizeof vector);
    return vector;
}
template <class V>
QUORVEL_INLINE void Store(void* to, V vector) {
    std::memcpy(to, &vector, sizeof vector);
}
// Prefetches one page ahead, where the processor's own prefetching stops. For a large text the
// kernel has just cleared the pages to write, so at best the outer caches have them.
template <int forWriting>
QUORVEL_INLINE void FetchAhead(const void* from) {
    const auto ahead = reinterpret_cast<std::uintptr_t>(from) + 4096;
    __builtin_prefetch(reinterpret_cast<const void*>(ahead), forWriting);
}
// Collects the highest bit of each byte.
template <class V>
QUORVEL_INLINE std::uint32_t Mask(V vector) {
    return static_cast<std::uint32_t>(QUORVEL_OP(movemask_epi8)((Register)vector));
}
// Sets all bits of the units whose bits in `mask` are `value`.
QUORVEL_INLINE UnitVector Are(UnitVector units, int mask, int value) {
    return (UnitVector)((units & static_cast<WORD>(mask)) == static_cast<WORD>(value));
}
template <class V>
QUORVEL_INLINE V Choose(V condition, V yes, V no) {
    return (V)Blend((Register)no, (Register)yes, (Register)condition);
}
// 0 if the result would be negative.
QUORVEL_INLINE ByteVector Minus(ByteVector bytes, BYTE subtrahend) {
    return (ByteVector)QUORVEL_OP(subs_epu8)((Register)bytes,
                                             (Register)(ByteVector{} + subtrahend));
}
QUORVEL_INLINE ByteVector LookUp(const Shuffle& table, ByteVector places) {
    return (ByteVector)QUORVEL_OP(shuffle_epi8)(InEveryLane(Load<__m128i>(&table)),
                                                (Register)places);
}
// Writes a lane, shuffled by the eight bits at `place`, and returns the number of bits that are 1.
QUORVEL_INLINE int PutLane(Register vector, int lane, const Shuffles& shuffles, std::uint32_t sets,
                           int place, void* to) {
    const std::uint32_t set16 = std::rotr(sets, 8 * place - 4) & 0xff0; // times sixteen
    const auto* const shuffle = reinterpret_cast<const BYTE*>(&shuffles) + set16;
    Store(to, _mm_shuffle_epi8(LaneOf(vector, lane), Load<__m128i>(shuffle)));
    return std::popcount(set16);
}

// A block of bytes, and the blocks that begin one to three bytes before it.
struct Window {
    ByteVector bytes, before1, before2, before3;
};
QUORVEL_INLINE Window WindowAt(const BYTE* from) {
    return {Load<ByteVector>(from), Load<ByteVector>(from - 1), Load<ByteVector>(from - 2),
            Load<ByteVector>(from - 3)};
}

QUORVEL_INLINE ByteVector AreTrails(ByteVector bytes) {
    return (ByteVector)((SignedVector)bytes < -64);
}

QUORVEL_INLINE bool IsWellFormed(const Window& window) {
    const ByteVector faults = LookUp(kFirstHigh, window.before1 >> 4) &
                              LookUp(kFirstLow, window.before1 & 15) &
                              LookUp(kSecondHigh, window.bytes >> 4);
    const ByteVector areThird = Minus(window.before2, 0xe0 - 0x80);
    const ByteVector areFourth = Minus(window.before3, 0xf0 - 0x80);
    return Mask(faults == ((areThird | areFourth) & 0x80)) == kEvery;
}

// Writes the units of the characters that end in the block; `ends` has a bit for each end. Of four
// bytes the third one gives the first surrogate.
template <bool fourBytes>
QUORVEL_INLINE WCHAR* PutUnits(const Window& window, std::uint32_t ends, WCHAR* to) {
    const ByteVector before1 = window.before1 & AreTrails(window.bytes);
    ByteVector low = (window.bytes & 0x7f) | before1 << 6;
    ByteVector high = (before1 >> 2 & 15) | Minus(window.before2, 0xe0) << 4;
    if constexpr (fourBytes) {
        const ByteVector areThird = (ByteVector)(window.before2 >= 0xf0);
        const ByteVector areFourth = (ByteVector)(window.before3 >= 0xf0);
        const ByteVector middle = before1 << 2 | (window.bytes >> 4 & 3);
        const ByteVector borrow = (ByteVector)(middle < 0x40);
        low = Choose(areThird, middle - 0x40, low);
        high = Choose(areFourth, (high & 3) | 0xdc, high);
        high = Choose(areThird, (window.before2 & 7) + 0xd8 + borrow, high);
        ends |= Mask(areThird);
    }
    const Register units[] = {QUORVEL_OP(unpacklo_epi8)((Register)low, (Register)high),
                              QUORVEL_OP(unpackhi_epi8)((Register)low, (Register)high)};
    for (int i = 0; i < 2 * kLanes; ++i)
        to += PutLane(units[i % 2], i / 2, kKeepUnits, ends, i, to);
    return to;
}

// Moves back before the last character, which the block's end may cut. Its unit was written unless
// the next byte seems to continue it; a first surrogate was written with the third of four bytes.
QUORVEL_INLINE void DropLast(const BYTE*& from, WCHAR*& to) {
    const auto isTrail = [](BYTE byte) { return (byte & 0xc0) == 0x80; };
    const bool isEnded = !isTrail(*from);
    int length = 1;
    while (isTrail(from[-length]))
        ++length;
    from -= length;
    const bool hasFirst = length >= 3 && *from >= 0xf0;
    to -= (hasFirst ? 1 : 0) + (isEnded && !(hasFirst && length == 3) ? 1 : 0);
}

QUORVEL_INLINE void WidenAscii(const BYTE*& from, WCHAR*& to, std::ptrdiff_t blocks) {
    for (; blocks > 0; --blocks, from += kBytes, to += kBytes) {
        const auto bytes = Load<Register>(from);
        if (Mask(bytes) != 0)
            return;
        FetchAhead<1>(to);
        Store(to, QUORVEL_OP(unpacklo_epi8)(SwapMiddle(bytes), Register{}));
        Store(to + kUnits, QUORVEL_OP(unpackhi_epi8)(SwapMiddle(bytes), Register{}));
    }
}

// The bytes before the first block count as zeros.
QUORVEL_INLINE Window FirstWindow(const BYTE* from) {
    BYTE copy[3 + kBytes] = {};
    std::memcpy(copy + 3, from, kBytes);
    return WindowAt(copy + 3);
}

QUORVEL_VECTOR void DecodeBlocks(Utf8DecodeCursor& cursor) {
    const BYTE* from = cursor.from;
    WCHAR* to = cursor.to;
    if (cursor.fromEnd - from <= kBytes || cursor.toEnd - to < kBytes)
        return;
    const BYTE* const lastFrom = cursor.fromEnd - kBytes - 1; // reads the byte after a block too
    WCHAR* const lastTo = cursor.toEnd - kBytes;
    bool mayBeCut = false; // whether the last block may end within a character
    while (from <= lastFrom && to <= lastTo) {
        if (Mask(Load<ByteVector>(from)) == 0) {
            if (mayBeCut && (from[-1] >= 0xc0 || from[-2] >= 0xe0 || from[-3] >= 0xf0))
                break; // an incomplete sequence
            mayBeCut = false;
            WidenAscii(from, to, std::min(lastFrom - from, lastTo - to) / kBytes + 1);
            continue;
        }
        const Window window = from == cursor.from ? FirstWindow(from) : WindowAt(from);
        if (!IsWellFormed(window))
            break;
        FetchAhead<1>(to);
        const std::uint32_t ends = ~Mask(AreTrails(Load<ByteVector>(from + 1)));
        const bool fourBytes =
            Mask(Minus(window.bytes, 0xf0 - 0x80) | Minus(window.before3, 0xf0 - 0x80)) != 0;
        to = fourBytes ? PutUnits<true>(window, ends, to) : PutUnits<false>(window, ends, to);
        from += kBytes;
        mayBeCut = true;
    }
    if (mayBeCut)
        DropLast(from, to);
    cursor.from = from;
    cursor.to = to;
}

// The input of one step of the encoder.
struct UnitBlock {
    UnitVector units[2];
};
QUORVEL_INLINE UnitBlock BlockAt(const WCHAR* from) {
    return {{Load<UnitVector>(from), Load<UnitVector>(from + kUnits)}};
}

// A bit for each unit of ASCII: in each lane eight of the first vector and eight of the second.
QUORVEL_INLINE std::uint32_t AsciiOf(const UnitBlock& block) {
    return Mask(QUORVEL_OP(packs_epi16)((Register)Are(block.units[0], 0xff80, 0),
                                        (Register)Are(block.units[1], 0xff80, 0)));
}

// Writes units below 0x800.
QUORVEL_INLINE char* PutPairs(const UnitBlock& block, std::uint32_t ascii, char* to) {
    for (int i = 0; i < 2 * kLanes; ++i) {
        const int vector = i / kLanes, lane = i % kLanes;
        const UnitVector units = block.units[vector];
        const UnitVector last = units << 8; // the higher byte comes last
        const UnitVector pairs =
            Choose(Are(units, 0xff80, 0), last, (last & 0x3f00) | units >> 6 | 0x80c0);
        to -= PutLane((Register)pairs, lane, kKeepOfTwo, ascii, 2 * lane + vector, to + 16 * i);
    }
    return to + 16 * 2 * kLanes;
}

// Writes any units, given the unit after each. The first surrogate of a pair gives three bytes,
// with bits of the second one. The second surrogate gives the last byte.
template <bool surrogates>
QUORVEL_INLINE char* PutTriples(UnitVector units, UnitVector following, char* to) {
    UnitVector areAscii = Are(units, 0xff80, 0);
    UnitVector areShort = Are(units, 0xf800, 0);
    UnitVector first = (units >> 4 & 0x0f00) | 0xe000; // its lower byte is unused
    const UnitVector last = units << 8;
    UnitVector lastTwo = (units >> 6 & 0x3f) | (areShort & 0x40) | (last & 0x3f00) | 0x8080;
    lastTwo = Choose(areAscii, last, lastTwo);
    if constexpr (surrogates) {
        const UnitVector areHigh = Are(units, 0xfc00, 0xd800);
        const UnitVector areLow = Are(units, 0xfc00, 0xdc00);
        const UnitVector upper = units - 0xd7c0; // the character without its last ten bits
        const UnitVector third = (upper & 3) << 4 | (following >> 6 & 15);
        first = Choose(areHigh, (upper & 0x0700) | 0xf000, first);
        lastTwo = Choose(areHigh, (upper >> 2 & 0x3f) | third << 8 | 0x8080, lastTwo);
        areAscii |= areLow;
        areShort |= areLow;
    }
    const Register sequences[] = {QUORVEL_OP(unpacklo_epi16)((Register)first, (Register)lastTwo),
                                  QUORVEL_OP(unpackhi_epi16)((Register)first, (Register)lastTwo)};
    const std::uint32_t sets = Mask((areAscii & 0xff) | (areShort & 0xff00));
    for (int i = 0; i < 2 * kLanes; ++i)
        to -= PutLane(sequences[i % 2], i / 2, kKeepOfThree, sets, i, to + 12 * i);
    return to + 12 * 2 * kLanes;
}

// Whether each second surrogate, and nothing else, follows a first one. `open` is not 0 if the
// previous unit is a first one; on return, if the last unit is.
QUORVEL_INLINE bool ArePaired(UnitVector units, std::uint32_t& open) {
    const std::uint32_t highs = Mask(Are(units, 0xfc00, 0xd800)); // two bits each
    const std::uint32_t lows = Mask(Are(units, 0xfc00, 0xdc00));
    const bool good = ((highs << 2 | open) ^ lows) << (32 - kBytes) == 0;
    open = highs >> (kBytes - 2);
    return good;
}

QUORVEL_INLINE void NarrowAscii(const WCHAR*& from, char*& to, std::ptrdiff_t blocks) {
    for (; blocks > 0; --blocks, from += kBytes, to += kBytes) {
        const UnitBlock block = BlockAt(from);
        const Register first = (Register)block.units[0];
        const Register second = (Register)block.units[1];
        if (HasBits(first | second, 0xff80))
            return;
        FetchAhead<0>(from);
        Store(to, SwapMiddle(QUORVEL_OP(packus_epi16)(first, second)));
    }
}

QUORVEL_VECTOR void EncodeBlocks(Utf8EncodeCursor& cursor) {
    const WCHAR* from = cursor.from;
    char* to = cursor.to;
    if (cursor.fromEnd - from <= kBytes || cursor.toEnd - to < 3 * kBytes + 4)
        return;
    // Reads the unit after a block too, and writes four bytes after its sequences.
    const WCHAR* const lastFrom = cursor.fromEnd - kBytes - 1;
    char* const lastTo = cursor.toEnd - 3 * kBytes - 4;
    std::uint32_t open = 0;
    bool wasAscii = true;
    while (from <= lastFrom && to <= lastTo) {
        FetchAhead<0>(from);
        const UnitBlock block = BlockAt(from);
        const auto& [first, second] = block.units;
        const bool areShort = !HasBits((Register)(first | second), 0xf800);
        if (!areShort && Mask(Are(first, 0xf800, 0xd800) | Are(second, 0xf800, 0xd800)) != 0) {
            std::uint32_t next = open;
            if (!ArePaired(first, next) || !ArePaired(second, next))
                break;
            open = next;
            to = PutTriples<true>(first, Load<UnitVector>(from + 1), to);
            to = PutTriples<true>(second, Load<UnitVector>(from + kUnits + 1), to);
        } else if (open != 0) {
            break;
        } else if (!areShort) {
            to = PutTriples<false>(second, second, PutTriples<false>(first, first, to));
        } else {
            // A single block of ASCII does not justify a branch that is hard to predict.
            const std::uint32_t ascii = AsciiOf(block);
            const bool isAscii = ascii == kEvery;
            if (isAscii & wasAscii) {
                NarrowAscii(from, to, std::min(lastFrom - from, lastTo - to) / kBytes + 1);
                continue;
            }
            wasAscii = isAscii;
            to = PutPairs(block, ascii, to);
        }
        from += kBytes;
    }
    if (open != 0) { // the last block ended between two surrogates
        --from;
        to -= 3;
    }
    cursor.from = from;
    cursor.to = to;
}

constexpr Utf8Kernels kKernels = {DecodeBlocks, EncodeBlocks};

} // namespace
} // namespace quorvel
