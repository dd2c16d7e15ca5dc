// The platform's message formatter.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <cstdarg>

namespace quorvel::win32 {

// Formats a text (FORMAT_MESSAGE_FROM_STRING, `source` is a const WCHAR*) or the text of a system
// error code (FORMAT_MESSAGE_FROM_SYSTEM, always English, ends in "\r\n"; also for the HRESULT made
// from a code). Returns the length without the terminator, or 0 with the last error:
//
//   ERROR_INVALID_PARAMETER    invalid inserts or escapes in the source, flags or pointer
//   ERROR_INSUFFICIENT_BUFFER  `size`, which includes the terminator, is too small; the text is cut
//   ERROR_MR_MID_NOT_FOUND     the code has no text
//   ERROR_NO_WORK_DONE         the result is the empty text
//   ERROR_NOT_ENOUGH_MEMORY    for the result or the buffer
//
// %1 to %99 insert an argument. %1!form! prints it by a printf form (without %, at most 30
// characters; integers, characters, texts and pointers; one conversion, then plain text). %0 ends
// the text. %n is \r\n, %r is \r, %t a tab, %b a blank; % and another character is that character.
// % at the end is refused. A line end of the source, \r, \n or both, becomes \r\n. Narrow text
// (!hs!, !S!) is in the active code page.
//
// Each argument takes one pointer-sized slot; a 64-bit one takes two if pointers have 32 bits. With
// FORMAT_MESSAGE_ARGUMENT_ARRAY `arguments` is an array of slots. An argument that is not inserted
// counts as one slot. A star takes the insert's argument, and the value is the next one. In an
// array, the numbers of later inserts count the slots. In a va_list they count like the platform's:
// the last argument of such an insert has the number of the one before it. So the argument after
// %1!*d! is %2, and the one after %1!*.*d! is %3.
//
// FORMAT_MESSAGE_IGNORE_INSERTS keeps every % except those of %0, %n, %r, %t, %b.
// FORMAT_MESSAGE_MAX_WIDTH_MASK replaces line ends of the source by blanks; other widths are not
// supported. FORMAT_MESSAGE_ALLOCATE_BUFFER stores a pointer to a new buffer of at least `size`
// characters where `buffer` points, or null on failure. Free it with LocalFree.
DWORD FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD languageId, LPWSTR buffer,
                     DWORD size, va_list* arguments);

// Frees a buffer from FormatMessageW. Never fails and returns null; null is allowed.
HLOCAL LocalFree(HLOCAL memory);

} // namespace quorvel::win32
