// The vector forms of the UTF-8 converters, for ordinary text.
#pragma once

#include "platform/linux/text/code_page.h"

namespace quorvel {

// Where a conversion stands, between two characters.
template <class Source, class Target>
struct Utf8Cursor {
    const Source* from;
    const Source* fromEnd;
    Target* to;
    Target* toEnd;
};
typedef Utf8Cursor<BYTE, WCHAR> Utf8DecodeCursor;
typedef Utf8Cursor<WCHAR, char> Utf8EncodeCursor;

struct Utf8Kernels {
    // Both convert whole blocks of well-formed text. They stop near the ends of text and room, and
    // at a block that is ill-formed or follows half a character. What they wrote ends at `to`;
    // units behind it, up to `toEnd`, may be overwritten.
    void (*decode)(Utf8DecodeCursor& cursor);
    void (*encode)(Utf8EncodeCursor& cursor);
};

// Null where the processor has no suitable instructions.
const Utf8Kernels* Ssse3Utf8();
const Utf8Kernels* Avx2Utf8();

// As the functions of code_page.h, with the kernels to use; null: the portable form alone.
DWORD DecodeUtf8(const Utf8Kernels* kernels, Bytes bytes, bool strict, WideOutput& output);
DWORD EncodeUtf8(const Utf8Kernels* kernels, WideText text, bool strict, ByteOutput& output);

} // namespace quorvel
