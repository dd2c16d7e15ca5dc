#include "platform/case_fold.h"

namespace quorvel {

WCHAR FoldCaseBeyondAscii(WCHAR unit) {
    // CharLowerW takes a pointer below 0x10000 as a single character.
    const auto result = CharLowerW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(unit)));
    return static_cast<WCHAR>(reinterpret_cast<ULONG_PTR>(result));
}

} // namespace quorvel
