// The C runtime's wide and narrow text functions that the library calls, with the Windows runtime's
// meanings: %s takes text of the format's own width, %I64d is 64 bits, %ld is 32 bits.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <cstdarg>

namespace quorvel::win32 {

// The length that the formatted text needs, without the terminator; -1 for a format or text that
// cannot be formatted.
int _vscwprintf(const WCHAR* format, va_list arguments);
int _vscprintf(const char* format, va_list arguments);
// Writes at most `size` characters; the terminator is written only where it fits. Returns the
// length, or -1 when the text did not fit.
int _vsnwprintf(WCHAR* text, std::size_t size, const WCHAR* format, va_list arguments);
int _vsnprintf(char* text, std::size_t size, const char* format, va_list arguments);

// As the C functions: leading white space, a sign, 0x and 0 prefixes for base 0; saturating.
__int64 _wcstoi64(const WCHAR* text, WCHAR** end, int base);

} // namespace quorvel::win32
