// Sizes in bytes as text for the user; validation of bit numbers.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

// The platform's short form, in the user's locale: "1.50 KB" (StrFormatByteSizeW). Any thread.
QUORVEL_API CString AfxFormatFileSize(__int64 size);
// From 1024 bytes on, also the exact count, grouped for the user's locale: "1.50 KB (1,536 bytes)".
// Only the short form for smaller or negative sizes, and when the locale or the catalogue lacks a
// part of the long form. Any thread.
QUORVEL_API CString AfxFormatExtendedFileSize(__int64 size);

QUORVEL_API BOOL AfxIsValidByteBit(int bit); // 0 to 7
