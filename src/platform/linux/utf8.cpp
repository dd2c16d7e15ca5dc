#include "platform/linux/code_page.h"

namespace quorvel {

namespace {

constexpr char32_t kIllFormed = 0xffffffff;
constexpr WCHAR kReplacement = 0xfffd;

// Of a lead byte from 0xC2 to 0xF4: how many bytes follow it.
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
// ill-formed one ends before the first byte that cannot continue it, except that a trail byte
// which only makes the start overlong, a surrogate or too large is still part of it: so the
// platform counts its replacement characters.
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

bool PutCharacter(char32_t character, WideOutput& output) {
    if (character < 0x10000)
        return output.Put(static_cast<WCHAR>(character));
    const WCHAR pair[] = {static_cast<WCHAR>(0xd7c0 + (character >> 10)),
                          static_cast<WCHAR>(0xdc00 | (character & 0x3ff))};
    return output.Put(pair, 2);
}

bool PutSequence(char32_t character, ByteOutput& output) {
    const auto trail = [character](int shift) {
        return static_cast<char>(0x80 | (character >> shift & 0x3f));
    };
    if (character < 0x800) {
        const char bytes[] = {static_cast<char>(0xc0 | character >> 6), trail(0)};
        return output.Put(bytes, 2);
    }
    if (character < 0x10000) {
        const char bytes[] = {static_cast<char>(0xe0 | character >> 12), trail(6), trail(0)};
        return output.Put(bytes, 3);
    }
    const char bytes[] = {static_cast<char>(0xf0 | character >> 18), trail(12), trail(6), trail(0)};
    return output.Put(bytes, 4);
}

bool IsHighSurrogate(WCHAR unit) {
    return (unit & 0xfc00) == 0xd800;
}
bool IsLowSurrogate(WCHAR unit) {
    return (unit & 0xfc00) == 0xdc00;
}

} // namespace

DWORD DecodeUtf8(Bytes bytes, bool strict, WideOutput& output) {
    std::size_t position = 0;
    for (;;) {
        position += output.PutAscii(bytes.subspan(position));
        if (position == bytes.size())
            return ERROR_SUCCESS;
        if (output.Room() == 0)
            return ERROR_INSUFFICIENT_BUFFER;
        while (position < bytes.size() && bytes[position] >= 0x80) {
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
}

DWORD EncodeUtf8(WideText text, bool strict, ByteOutput& output) {
    std::size_t position = 0;
    for (;;) {
        position += output.PutAscii(text.subspan(position));
        if (position == text.size())
            return ERROR_SUCCESS;
        if (output.Room() == 0)
            return ERROR_INSUFFICIENT_BUFFER;
        while (position < text.size() && text[position] >= 0x80) {
            char32_t character = text[position++];
            const WCHAR unit = static_cast<WCHAR>(character);
            if (IsHighSurrogate(unit) && position < text.size() && IsLowSurrogate(text[position])) {
                character = 0x10000 + ((character & 0x3ff) << 10) + (text[position++] & 0x3ff);
            } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
                if (strict)
                    return ERROR_NO_UNICODE_TRANSLATION;
                character = kReplacement;
            }
            if (!PutSequence(character, output))
                return ERROR_INSUFFICIENT_BUFFER;
        }
    }
}

} // namespace quorvel
