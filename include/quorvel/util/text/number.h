// Tests of texts that are to be numbers. Nothing throws. Any thread.
#pragma once

#include <quorvel/platform/platform.h>

// Whether the whole text is an integer in `base` (2 to 36, or 0: 0x means sixteen, a leading 0
// eight) within the range, ends included. Leading white space and a sign are allowed, and a number
// beyond 64 bits counts as the nearest one, as in the C runtime. FALSE for a null or empty text or
// another base.
// Deliberate: whatever the base, it is the text read as a decimal number that is compared with the
// range: 1A in base 16 counts as 1, and a text that does not begin with a decimal digit, like FF,
// counts as 0. White space and decimal digits of other scripts, full width included, count too.
QUORVEL_API BOOL AfxIsValidNumber(const WCHAR* text, __int64 minimum, __int64 maximum, int base);

// Whether the text is ASCII digits of the radix (2 to 36, either case), after one sign where
// `allowSigned` is set, and nothing else; its size does not matter. FALSE for null.
QUORVEL_API BOOL AfxIsNumeric(const WCHAR* text, BOOL allowSigned, int radix);
