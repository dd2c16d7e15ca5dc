#include <quorvel/util/text/byte_swap.h>

namespace {

WORD Swapped(WORD word) {
    return __builtin_bswap16(word);
}
DWORD Swapped(DWORD dword) {
    return __builtin_bswap32(dword);
}

template <class Unit>
BOOL SwapAll(Unit* units, ULONGLONG count) {
    if (units == nullptr || count == 0)
        return FALSE;
    for (Unit* const end = units + count; units != end; ++units)
        *units = Swapped(*units);
    return TRUE;
}

} // namespace

BOOL AfxSwapWordData(WORD* words, ULONGLONG count) {
    return SwapAll(words, count);
}

BOOL AfxSwapDWordData(DWORD* dwords, ULONGLONG count) {
    return SwapAll(dwords, count);
}
