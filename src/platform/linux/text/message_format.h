// The platform's message formatter.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <cstdarg>

namespace quorvel::win32 {

// Formats a text (FORMAT_MESSAGE_FROM_STRING, `source` is a const WCHAR*) or the text of a system
// error code (FORMAT_MESSAGE_FROM_SYSTEM, English whatever the language, ending in "\r\n"; also for
// the HRESULT made of a code). Returns the length without the terminator, or 0 with the last error:
//
//   ERROR_INVALID_PARAMETER    the source's inserts or escapes, the flags or a pointer
//   ERROR_INSUFFICIENT_BUFFER  `size`, terminator included, is too small: it holds what fits
//   ERROR_MR_MID_NOT_FOUND     there is no text for that code
//   ERROR_NO_WORK_DONE         the result is the empty text
//   ERROR_NOT_ENOUGH_MEMORY    for the result or the buffer
//
// %1 to %99 insert an argument, %1!form! prints it by a printf form (without %, at most 30
// characters; integers, characters, texts and pointers; one conversion, then plain text), %0 ends
// the text. %n \r\n, %r \r, %t tab, %b blank; % and any other character is that character, % at the
// end is refused. A line end of the source, \r, \n or both, becomes \r\n. Narrow text (!hs!, !S!)
// is in the active code page.
//
// Arguments lie in pointer-sized slots, one each, a 64-bit one in two where pointers have 32 bits;
// with FORMAT_MESSAGE_ARGUMENT_ARRAY `arguments` is an array of them. An argument that is not
// inserted is skipped as one slot. A star takes an argument of its own, the insert's, and the value
// follows it. In an array, later inserts count the slots. In a va_list they count as the platform's
// do: the last argument of such an insert has the number of the one before it, so that the argument
// behind %1!*d! is %2 and behind %1!*.*d! is %3.
//
// FORMAT_MESSAGE_IGNORE_INSERTS keeps every % but those of %0, %n, %r, %t, %b.
// FORMAT_MESSAGE_MAX_WIDTH_MASK turns line ends of the source into blanks; there are no other
// widths. FORMAT_MESSAGE_ALLOCATE_BUFFER puts a buffer of at least `size` characters, for
// LocalFree, where `buffer` points, and null on failure.
DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD languageId, LPWSTR buffer,
                     DWORD size, va_list* arguments);

// Frees what FormatMessageW allocated. Null always: it does not fail, and null is allowed.
HLOCAL LocalFree(HLOCAL memory);

} // namespace quorvel::win32
