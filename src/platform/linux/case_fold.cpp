#include "platform/case_fold.h"

#include <unicode/uchar.h>

namespace quorvel {

WCHAR FoldCaseBeyondAscii(WCHAR unit) {
    const UChar32 lower = u_tolower(unit);
    return lower <= 0xffff ? static_cast<WCHAR>(lower) : unit;
}

} // namespace quorvel
