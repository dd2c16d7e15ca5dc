// Base64 (RFC 4648, standard alphabet) into buffers of the caller.
//
// Lengths of bytes are in bytes, lengths of text in characters of its width; no terminator is
// written. No function allocates or throws. Any thread.
#pragma once

#include <quorvel/platform/platform.h>

// Flags of the encoding functions; other bits are ignored.
constexpr DWORD BASE64_NO_PADDING = 1;     // leave out the "=" characters at the end
constexpr DWORD BASE64_NO_LINE_BREAKS = 2; // one line instead of lines of 76 characters and CR LF

// An upper bound of what the encoding functions write, which may be some characters more than they
// do. 0 for a length below 1 or one whose encoded length would be above INT_MAX.
QUORVEL_API int AfxBase64EncodeGetRequiredLength(int sourceLength, DWORD flags);

// An upper bound of what the decoding functions write: the length itself, 0 when it is below 1.
QUORVEL_API int AfxBase64DecodeGetRequiredLength(int sourceLength);

// Writes the encoded bytes to `dest` and the number of characters written to `destLength`, which on
// entry holds the room in `dest`. FALSE, and nothing written, for a null pointer, a source length
// below 1 or a room below the required length. Where the last full group of three bytes ends a
// line, that line's CR LF stays, whether or not a shorter group follows.
QUORVEL_API BOOL AfxBase64EncodeMultiByte(const BYTE* source, int sourceLength, char* dest,
                                          int* destLength, DWORD flags);
QUORVEL_API BOOL AfxBase64EncodeWideChar(const BYTE* source, int sourceLength, WCHAR* dest,
                                         int* destLength, DWORD flags);
QUORVEL_API BOOL AfxBase64Encode(const BYTE* source, int sourceLength, WCHAR* dest, int* destLength,
                                 DWORD flags); // AfxBase64EncodeWideChar

// Writes the decoded bytes to `dest`, skipping every character outside the alphabet, padding and
// line breaks included: four characters give three bytes, at the end three give two, two give one,
// and one gives none. `destLength` holds the room on entry (a negative one counts as 0) and
// receives the full decoded count. FALSE when the bytes did not all fit: then the groups before the
// first that did not fit are written. FALSE, and nothing changed, for a null pointer or a source
// length below 1.
QUORVEL_API BOOL AfxBase64DecodeMultiByte(const char* source, int sourceLength, BYTE* dest,
                                          int* destLength);
QUORVEL_API BOOL AfxBase64DecodeWideChar(const WCHAR* source, int sourceLength, BYTE* dest,
                                         int* destLength);
QUORVEL_API BOOL AfxBase64Decode(const WCHAR* source, int sourceLength, BYTE* dest,
                                 int* destLength); // AfxBase64DecodeWideChar

// The 6-bit value of a character of the alphabet, -1 for any other.
QUORVEL_API int AfxDecodeBase64Char(unsigned int character);
