// What kind of letter a UTF-16 unit is, by the platform's tables. The systems agree but for four
// superscript letters (U+00AA, U+00BA, U+2071, U+207F), which Windows counts as small ones.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

enum class LetterKind { None, Caseless, Lower, Upper };

// Surrogates are not letters. Any thread.
LetterKind KindOfLetter(WCHAR unit);

} // namespace quorvel
