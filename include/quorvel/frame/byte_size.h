// Sizes in bytes as a user reads them, and the bits of a byte.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

// The platform's short form, in the user's locale: "1.50 KB" (StrFormatByteSizeW). Any thread.
QUORVEL_API CString AfxFormatFileSize(__int64 size);
// From 1024 bytes on with the whole count behind it, grouped as the user's locale groups:
// "1.50 KB (1,536 bytes)". The short form alone for less, for a negative size, and where the
// locale or the catalogue lacks what the long one needs. Any thread.
QUORVEL_API CString AfxFormatExtendedFileSize(__int64 size);

QUORVEL_API BOOL AfxIsValidByteBit(int bit); // 0 to 7
