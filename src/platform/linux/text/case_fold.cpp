#include "platform/case_fold.h"

#include "platform/linux/text/icu.h"

namespace quorvel {

WCHAR FoldCaseBeyondAscii(WCHAR unit) {
    // Windows folds only letters whose upper case is the same letter again: U+212A (kelvin) is not
    // folded to k, whose upper case is K.
    const UChar32 lower = u_tolower(unit);
    return lower <= 0xffff && u_toupper(lower) == unit ? static_cast<WCHAR>(lower) : unit;
}

} // namespace quorvel
