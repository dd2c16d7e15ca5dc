// The C runtime's wide and narrow text functions that the library calls, with the Windows runtime's
// meanings: %s takes text of the format's own width, %I64d is 64 bits, %ld is 32 bits, %g prints
// 1e+020. tests/conformance/printf_test.cpp has all of them, measured on Windows' runtime.
//
// Refused with -1: a null format, %n, a width or precision that would pad with more than
// 10,000,000 characters, a result longer than INT_MAX, and in narrow formats wide text (%S, %ls)
// that holds a character above U+00FF. The runtime converts between the widths one to one, as the C
// locale has it.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <cstdarg>

namespace quorvel::win32 {

// The length that the formatted text needs, without the terminator.
int _vscwprintf(const WCHAR* format, va_list arguments);
int _vscprintf(const char* format, va_list arguments);
// Writes at most `size` characters; the terminator is written only where it fits. Returns the
// length, or -1 when the text did not fit. A null text only counts.
int _vsnwprintf(WCHAR* text, std::size_t size, const WCHAR* format, va_list arguments);
int _vsnprintf(char* text, std::size_t size, const char* format, va_list arguments);

// White space (beyond ASCII too), a sign, 0x for base 16 and 0, a leading 0 for base 0; digits of
// any script. Saturates, without errno. `end` is the text itself when there is no number; another
// base than 0 and 2 to 36, or a null text, gives 0 and leaves `end` alone.
__int64 _wcstoi64(const WCHAR* text, WCHAR** end, int base);

} // namespace quorvel::win32
