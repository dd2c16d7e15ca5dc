// The kind of letter of a UTF-16 unit, by the platform's tables. The systems agree except for four
// superscript letters (U+00AA, U+00BA, U+2071, U+207F), which are small letters on Windows.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

enum class LetterKind { None, Caseless, Lower, Upper };

// Surrogates are not letters. Any thread.
LetterKind KindOfLetter(WCHAR unit);

} // namespace quorvel
