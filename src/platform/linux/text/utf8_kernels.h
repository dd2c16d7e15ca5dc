// Vector converters of UTF-8 for ordinary text.
#pragma once

#include "platform/linux/text/code_page.h"

namespace quorvel {

// The position of a conversion, between two characters.
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
    // at a block that is ill-formed or follows half a character. Their output ends at `to`; they
    // may overwrite the units after it, up to `toEnd`.
    void (*decode)(Utf8DecodeCursor& cursor);
    void (*encode)(Utf8EncodeCursor& cursor);
};

// Null if the processor lacks the instructions.
const Utf8Kernels* Ssse3Utf8();
const Utf8Kernels* Avx2Utf8();

// Like the functions of code_page.h, with the given kernels; null: only the portable form.
DWORD DecodeUtf8(const Utf8Kernels* kernels, Bytes bytes, bool strict, WideOutput& output);
DWORD EncodeUtf8(const Utf8Kernels* kernels, WideText text, bool strict, ByteOutput& output);

} // namespace quorvel
