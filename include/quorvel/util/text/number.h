// Tests whether a text is a number. Nothing throws. Any thread.
#pragma once

#include <quorvel/platform/platform.h>

// Whether the whole text is an integer in `base` (2 to 36, or 0: 0x means base 16, a leading 0 base
// 8) within the range, limits included. Leading white space and a sign are allowed. A number beyond
// 64 bits counts as the nearest 64-bit number, as in the C runtime. FALSE for a null or empty text
// and for any other base.
// Deliberate: the number compared with the range is always the text read as decimal: 1A in base 16
// counts as 1, and a text without a leading decimal digit, like FF, counts as 0. White space and
// decimal digits of other scripts, including full-width digits, are accepted too.
QUORVEL_API BOOL AfxIsValidNumber(const WCHAR* text, __int64 minimum, __int64 maximum, int base);

// Whether the text consists of ASCII digits of the radix (2 to 36, either case), after at most one
// sign if `allowSigned` is set. The number may be of any size. FALSE for null.
QUORVEL_API BOOL AfxIsNumeric(const WCHAR* text, BOOL allowSigned, int radix);
