// Conversion to and from UTF-8, and byte-order marks.
//
// The conversions fill a string. A null text, or one that cannot be converted, returns FALSE and
// leaves the string unchanged. Nothing throws. Any thread.
#pragma once

#include <quorvel/framework/string.h>

// FALSE for malformed UTF-8.
QUORVEL_API BOOL AfxUTF8ToWideChar(const char* utf8Text, CString& text);
// A lone surrogate becomes U+FFFD.
QUORVEL_API BOOL AfxWideCharToUTF8(const WCHAR* text, CStringA& utf8Text);
// `codePage` and `flags` are MultiByteToWideChar's.
QUORVEL_API BOOL AfxMultiByteToUTF8(UINT codePage, DWORD flags, const char* text,
                                    CStringA& utf8Text);

// Whether `size` bytes begin with the mark; FALSE for null. FF FE 00 00 is the mark of UTF-32, not
// of UTF-16.
QUORVEL_API BOOL AfxHasUTF8ByteOrderMark(const BYTE* bytes, SIZE_T size);
QUORVEL_API BOOL AfxHasUTF16LEByteOrderMark(const BYTE* bytes, SIZE_T size);
QUORVEL_API BOOL AfxHasUTF16BEByteOrderMark(const BYTE* bytes, SIZE_T size);
QUORVEL_API BOOL AfxHasUTF32LEByteOrderMark(const BYTE* bytes, SIZE_T size);
QUORVEL_API BOOL AfxHasUTF32BEByteOrderMark(const BYTE* bytes, SIZE_T size);
