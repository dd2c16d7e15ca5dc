// The C runtime's wide and narrow text functions that the library calls, with the meanings of the
// Windows runtime: %s takes text of the format's own width, %I64d is 64 bits, %ld is 32 bits, %g
// prints 1e+020. tests/conformance/printf_test.cpp has all of them, measured on Windows' runtime.
//
// They return -1 for a null format, %n, a width or precision that would pad with more than
// 10,000,000 characters, and a result longer than INT_MAX. Narrow formats also refuse wide text
// (%S, %ls) with a character above U+00FF. Between the widths, characters are converted one to one,
// as in the C locale.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <cstdarg>

namespace quorvel::win32 {

// The length of the formatted text, without the terminator.
int _vscwprintf(const WCHAR* format, va_list arguments);
int _vscprintf(const char* format, va_list arguments);
// Writes at most `size` characters; writes the terminator only if it fits. Returns the length, or
// -1 when the text did not fit. With a null text it only counts.
int _vsnwprintf(WCHAR* text, std::size_t size, const WCHAR* format, va_list arguments);
int _vsnprintf(char* text, std::size_t size, const char* format, va_list arguments);

// Reads white space (also beyond ASCII), a sign, 0x for base 16 and 0, a leading 0 for base 0, and
// digits of any script. Saturates without errno. If there is no number, `end` is the start of the
// text. A base other than 0 and 2 to 36, or a null text, gives 0 and does not change `end`.
__int64 _wcstoi64(const WCHAR* text, WCHAR** end, int base);

} // namespace quorvel::win32
