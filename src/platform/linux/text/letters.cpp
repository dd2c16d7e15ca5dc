#include "platform/letters.h"

#include "platform/linux/text/icu.h"

namespace quorvel {

LetterKind KindOfLetter(WCHAR unit) {
    switch (u_charType(unit)) {
    case U_UPPERCASE_LETTER:
        return LetterKind::Upper;
    case U_LOWERCASE_LETTER:
    case U_TITLECASE_LETTER: // on Windows, digraphs like U+01C5 are small letters
        return LetterKind::Lower;
    case U_MODIFIER_LETTER:
    case U_OTHER_LETTER:
    case U_LETTER_NUMBER:
        return LetterKind::Caseless;
    default:
        return LetterKind::None;
    }
}

} // namespace quorvel
