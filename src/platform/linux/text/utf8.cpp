#include "platform/linux/text/code_page.h"

#include "platform/linux/text/utf8_kernels.h"
#include "platform/surrogates.h"

#include <algorithm>
#include <iterator>

namespace quorvel {

namespace {

constexpr char32_t kIllFormed = 0xffffffff;
constexpr WCHAR kReplacement = 0xfffd;

// The number of bytes after a lead byte from 0xC2 to 0xF4.
int TrailCount(BYTE lead) {
    return lead < 0xe0 ? 1 : lead < 0xf0 ? 2 : 3;
}

// True when no well-formed sequence starts with `value`, the bits of the lead byte and of the
// first trail byte: overlong forms, surrogates and code points above U+10FFFF.
bool IsIllFormedStart(int trailCount, char32_t value) {
    if (trailCount == 2)
        return value < 0x20 || (value >= 0xd800 >> 6 && value <= 0xdfff >> 6);
    return trailCount == 3 && (value < 0x10 || value > 0x10ffff >> 12);
}

// Decodes the sequence at `position`, which starts with a byte above 0x7F, and moves past it. An
// ill-formed one ends before the first byte that cannot continue it. But a trail byte that only
// makes the start overlong, a surrogate or too large still belongs to it: the platform counts its
// replacement characters in this way.
char32_t DecodeSequence(Bytes bytes, std::size_t& position) {
    const BYTE lead = bytes[position++];
    if (lead < 0xc2 || lead > 0xf4)
        return kIllFormed;
    const int trailCount = TrailCount(lead);
    char32_t value = lead & (0x3fu >> trailCount);
    for (int i = 0; i < trailCount; ++i) {
        if (position == bytes.size() || (bytes[position] & 0xc0) != 0x80)
            return kIllFormed;
        value = value << 6 | (bytes[position++] & 0x3fu);
        if (i == 0 && IsIllFormedStart(trailCount, value))
            return kIllFormed;
    }
    return value;
}

WCHAR HighSurrogate(char32_t character) {
    return static_cast<WCHAR>(0xd7c0 + (character >> 10));
}
WCHAR LowSurrogate(char32_t character) {
    return static_cast<WCHAR>(0xdc00 | (character & 0x3ff));
}
char32_t PairOf(WCHAR high, WCHAR low) {
    return 0x10000 + ((high & 0x3ffu) << 10) + (low & 0x3ffu);
}

bool PutCharacter(char32_t character, WideOutput& output) {
    if (character < 0x10000)
        return output.Put(static_cast<WCHAR>(character));
    const WCHAR pair[] = {HighSurrogate(character), LowSurrogate(character)};
    return output.Put(pair, 2);
}

// Writes the character as a sequence of `length` bytes and returns its end.
template <int length>
char* WriteSequence(char32_t character, char* to) {
    constexpr unsigned kLead = 0xff00 >> length & 0xff;
    to[0] = static_cast<char>(kLead | character >> 6 * (length - 1));
    for (int i = 1; i < length; ++i)
        to[i] = static_cast<char>(0x80 | (character >> 6 * (length - 1 - i) & 0x3f));
    return to + length;
}

bool PutSequence(char32_t character, ByteOutput& output) {
    char bytes[4];
    const char* end = character < 0x800     ? WriteSequence<2>(character, bytes)
                      : character < 0x10000 ? WriteSequence<3>(character, bytes)
                                            : WriteSequence<4>(character, bytes);
    return output.Put(bytes, static_cast<std::size_t>(end - bytes));
}

// The loops below convert ordinary text with pointers and without checking the room for each
// character. They stop when input or room gets short and at ill-formed input. Then the careful
// loops, which handle every case, convert one character.

bool IsTrail(BYTE byte) {
    return (byte & 0xc0) == 0x80;
}

template <class Source, class Target>
struct Places {
    const Source* from;
    Target* to;
};

// Converts up to `count` characters, ends before two ASCII ones; false if one is ill-formed.
bool ConvertRun(Places<BYTE, WCHAR>& places, std::size_t count) {
    const BYTE* from = places.from;
    WCHAR* to = places.to;
    bool good = true;
    for (; count > 0; --count) {
        const unsigned lead = from[0];
        if (lead < 0x80) {
            if (from[1] < 0x80)
                break;
            *to++ = static_cast<WCHAR>(lead); // a blank between two words
            ++from;
        } else if (lead < 0xe0) {
            good = lead >= 0xc2 && IsTrail(from[1]);
            if (!good)
                break;
            *to++ = static_cast<WCHAR>((lead & 0x1f) << 6 | (from[1] & 0x3f));
            from += 2;
        } else if (lead < 0xf0) {
            const unsigned character =
                (lead & 0xf) << 12 | (from[1] & 0x3f) << 6 | (from[2] & 0x3f);
            good = IsTrail(from[1]) && IsTrail(from[2]) && character >= 0x800 &&
                   (character & 0xf800) != 0xd800;
            if (!good)
                break;
            *to++ = static_cast<WCHAR>(character);
            from += 3;
        } else {
            const unsigned character = (lead & 7) << 18 | (from[1] & 0x3f) << 12 |
                                       (from[2] & 0x3f) << 6 | (from[3] & 0x3f);
            good = lead <= 0xf4 && IsTrail(from[1]) && IsTrail(from[2]) && IsTrail(from[3]) &&
                   character >= 0x10000 && character <= 0x10ffff;
            if (!good)
                break;
            *to++ = HighSurrogate(character);
            *to++ = LowSurrogate(character);
            from += 4;
        }
    }
    places = {from, to};
    return good;
}

// Converts up to `count` characters, ends before two ASCII ones; false at a lone surrogate.
bool ConvertRun(Places<WCHAR, char>& places, std::size_t count) {
    const WCHAR* from = places.from;
    char* to = places.to;
    bool good = true;
    for (; count > 0; --count) {
        const char32_t unit = from[0];
        if (unit < 0x80) {
            if (from[1] < 0x80)
                break;
            *to++ = static_cast<char>(unit);
            ++from;
        } else if (unit < 0x800) {
            to = WriteSequence<2>(unit, to);
            ++from;
        } else if ((unit & 0xf800) != 0xd800) {
            to = WriteSequence<3>(unit, to);
            ++from;
        } else {
            good = IsHighSurrogate(from[0]) && IsLowSurrogate(from[1]);
            if (!good)
                break;
            to = WriteSequence<4>(PairOf(from[0], from[1]), to);
            from += 2;
        }
    }
    places = {from, to};
    return good;
}

// Converts runs of ASCII and runs of other characters, which have at most `widestSource` and
// `widestTarget` units. Returns the number of source units converted.
template <int widestSource, int widestTarget, class Source, class Target>
std::size_t ConvertOrdinary(std::span<const Source> source, Output<Target>& output) {
    if (output.Next() == nullptr)
        return 0;
    Places<Source, Target> places{source.data(), output.Next()};
    const Source* const end = places.from + source.size();
    Target* const toEnd = places.to + output.Room();
    for (;;) {
        const std::size_t run =
            CopyAscii(places.from, places.to,
                      static_cast<std::size_t>(std::min(end - places.from, toEnd - places.to)));
        places.from += run;
        places.to += run;
        const std::ptrdiff_t sure =
            std::min((end - places.from) / widestSource, (toEnd - places.to) / widestTarget);
        if (sure == 0 || !ConvertRun(places, static_cast<std::size_t>(sure)))
            break;
    }
    output.Advance(static_cast<std::size_t>(places.to - output.Next()));
    return static_cast<std::size_t>(places.from - source.data());
}

// Null without a suitable processor.
const Utf8Kernels* FastestUtf8() {
    static const Utf8Kernels* const s_fastest = Avx2Utf8() != nullptr ? Avx2Utf8() : Ssse3Utf8();
    return s_fastest;
}

// Converts the blocks that the kernel accepts and returns their number of source units. When only
// counting, it writes to a buffer that is not read.
template <class Source, class Target>
std::size_t ConvertBlocks(void (*convert)(Utf8Cursor<Source, Target>&),
                          std::span<const Source> source, Output<Target>& output) {
    Target unread[2048];
    const bool isCounting = output.Next() == nullptr;
    const Source* const end = source.data() + source.size();
    Utf8Cursor<Source, Target> cursor = {source.data(), end, nullptr, nullptr};
    const Source* begin;
    do {
        begin = cursor.from;
        Target* const to = isCounting ? unread : output.Next();
        cursor.to = to;
        cursor.toEnd = to + (isCounting ? std::size(unread) : output.Room());
        convert(cursor);
        output.Advance(static_cast<std::size_t>(cursor.to - to));
    } while (isCounting && cursor.from != begin);
    return static_cast<std::size_t>(cursor.from - source.data());
}

// After a refused block the portable form converts this many units before the kernel is called
// again, because the whole text may be ill-formed.
constexpr std::size_t kPortableUnits = 64;

} // namespace

DWORD DecodeUtf8(const Utf8Kernels* kernels, Bytes bytes, bool strict, WideOutput& output) {
    std::size_t position = 0;
    std::size_t nextBlocks = 0;
    for (;;) {
        if (kernels != nullptr && position >= nextBlocks) {
            position += ConvertBlocks(kernels->decode, bytes.subspan(position), output);
            nextBlocks = position + kPortableUnits;
        }
        const std::size_t portableUnits = kernels != nullptr ? nextBlocks - position : bytes.size();
        position += ConvertOrdinary<4, 2>(
            bytes.subspan(position, std::min(bytes.size() - position, portableUnits)), output);
        position += output.PutAscii(bytes.subspan(position));
        if (position == bytes.size())
            return ERROR_SUCCESS;
        if (output.Room() == 0)
            return ERROR_INSUFFICIENT_BUFFER;
        if (bytes[position] < 0x80)
            continue;
        char32_t character = DecodeSequence(bytes, position);
        if (character == kIllFormed) {
            if (strict)
                return ERROR_NO_UNICODE_TRANSLATION;
            character = kReplacement;
        }
        if (!PutCharacter(character, output))
            return ERROR_INSUFFICIENT_BUFFER;
    }
}

DWORD EncodeUtf8(const Utf8Kernels* kernels, WideText text, bool strict, ByteOutput& output) {
    std::size_t position = 0;
    std::size_t nextBlocks = 0;
    for (;;) {
        if (kernels != nullptr && position >= nextBlocks) {
            position += ConvertBlocks(kernels->encode, text.subspan(position), output);
            nextBlocks = position + kPortableUnits;
        }
        const std::size_t portableUnits = kernels != nullptr ? nextBlocks - position : text.size();
        position += ConvertOrdinary<2, 4>(
            text.subspan(position, std::min(text.size() - position, portableUnits)), output);
        position += output.PutAscii(text.subspan(position));
        if (position == text.size())
            return ERROR_SUCCESS;
        if (output.Room() == 0)
            return ERROR_INSUFFICIENT_BUFFER;
        if (text[position] < 0x80)
            continue;
        const WCHAR unit = text[position++];
        char32_t character = unit;
        if (IsHighSurrogate(unit) && position < text.size() && IsLowSurrogate(text[position])) {
            character = PairOf(unit, text[position++]);
        } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
            if (strict)
                return ERROR_NO_UNICODE_TRANSLATION;
            character = kReplacement;
        }
        if (!PutSequence(character, output))
            return ERROR_INSUFFICIENT_BUFFER;
    }
}

DWORD DecodeUtf8(Bytes bytes, bool strict, WideOutput& output) {
    return DecodeUtf8(FastestUtf8(), bytes, strict, output);
}

DWORD EncodeUtf8(WideText text, bool strict, ByteOutput& output) {
    return EncodeUtf8(FastestUtf8(), text, strict, output);
}

} // namespace quorvel
