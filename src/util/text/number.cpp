#include <quorvel/util/text/number.h>

#include "platform/digits.h"
#include "platform/win32.h"

using namespace quorvel;

namespace {

constexpr int kMinimumRadix = 2;

bool IsRadix(int radix) {
    return radix >= kMinimumRadix && radix <= kMaximumRadix;
}

} // namespace

BOOL AfxIsValidNumber(const WCHAR* text, __int64 minimum, __int64 maximum, int base) {
    if (text == nullptr || *text == 0 || (base != 0 && !IsRadix(base)))
        return FALSE;
    WCHAR* end = nullptr;
    _wcstoi64(text, &end, base);
    if (end == text || *end != 0)
        return FALSE;
    const __int64 value = _wcstoi64(text, nullptr, 10);
    return value >= minimum && value <= maximum;
}

BOOL AfxIsNumeric(const WCHAR* text, BOOL allowSigned, int radix) {
    if (text == nullptr || !IsRadix(radix))
        return FALSE;
    if (allowSigned && (*text == '+' || *text == '-'))
        ++text;
    if (*text == 0)
        return FALSE;
    while (DigitValue(*text) < radix)
        ++text;
    return *text == 0;
}
