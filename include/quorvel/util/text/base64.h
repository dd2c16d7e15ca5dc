// Base64 (RFC 4648, standard alphabet) into and from the caller's buffers.
//
// Byte lengths are in bytes, text lengths in characters. No terminator is written. No function
// allocates or throws. Any thread.
#pragma once

#include <quorvel/platform/platform.h>

// Flags of the encoding functions; other bits are ignored.
constexpr DWORD BASE64_NO_PADDING = 1;     // leave out the "=" characters at the end
constexpr DWORD BASE64_NO_LINE_BREAKS = 2; // one line instead of lines of 76 characters and CR LF

// An upper bound for the output of the encoding functions, possibly a few characters too high. 0
// for a length below 1, and when the encoded length would exceed INT_MAX.
QUORVEL_API int AfxBase64EncodeGetRequiredLength(int sourceLength, DWORD flags);

// An upper bound for the output of the decoding functions: the length itself; 0 below 1.
QUORVEL_API int AfxBase64DecodeGetRequiredLength(int sourceLength);

// Writes the encoded text to `dest` and its length to `destLength`, which on entry holds the size
// of `dest`. Returns FALSE and writes nothing for a null pointer, a source length below 1 or a size
// below the required length. When the last full group of three bytes ends a line, the CR LF of that
// line stays even if no shorter group follows.
QUORVEL_API BOOL AfxBase64EncodeMultiByte(const BYTE* source, int sourceLength, char* dest,
                                          int* destLength, DWORD flags);
QUORVEL_API BOOL AfxBase64EncodeWideChar(const BYTE* source, int sourceLength, WCHAR* dest,
                                         int* destLength, DWORD flags);
QUORVEL_API BOOL AfxBase64Encode(const BYTE* source, int sourceLength, WCHAR* dest, int* destLength,
                                 DWORD flags); // AfxBase64EncodeWideChar

// Writes the decoded bytes to `dest` and skips every character outside the alphabet, including
// padding and line breaks. Four characters give three bytes; at the end three give two, two give
// one, and one gives no byte. `destLength` holds the size of `dest` on entry (a negative size
// counts as 0) and receives the full decoded length. Returns FALSE when the bytes did not all fit;
// the groups before the first that did not fit are written. Returns FALSE and changes nothing for a
// null pointer or a source length below 1.
QUORVEL_API BOOL AfxBase64DecodeMultiByte(const char* source, int sourceLength, BYTE* dest,
                                          int* destLength);
QUORVEL_API BOOL AfxBase64DecodeWideChar(const WCHAR* source, int sourceLength, BYTE* dest,
                                         int* destLength);
QUORVEL_API BOOL AfxBase64Decode(const WCHAR* source, int sourceLength, BYTE* dest,
                                 int* destLength); // AfxBase64DecodeWideChar

// The 6-bit value of a character of the alphabet; -1 for any other character.
QUORVEL_API int AfxDecodeBase64Char(unsigned int character);
