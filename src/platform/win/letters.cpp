#include "platform/letters.h"

namespace quorvel {

LetterKind KindOfLetter(WCHAR unit) {
    if (IsCharLowerW(unit))
        return LetterKind::Lower;
    if (IsCharUpperW(unit))
        return LetterKind::Upper;
    return IsCharAlphaW(unit) ? LetterKind::Caseless : LetterKind::None;
}

} // namespace quorvel
