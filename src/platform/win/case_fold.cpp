#include "platform/case_fold.h"

namespace quorvel {

WCHAR FoldCaseBeyondAscii(WCHAR unit) {
    // A pointer below 0x10000 asks for the mapping of that one character.
    const auto result = CharLowerW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(unit)));
    return static_cast<WCHAR>(reinterpret_cast<ULONG_PTR>(result));
}

} // namespace quorvel
