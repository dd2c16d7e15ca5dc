// Random identifiers.
#pragma once

#include <quorvel/framework/string.h>

// Fills the text with `length` random hexadecimal digits in lower case, from the system's source of
// random bytes for cryptography. FALSE, and the text as it was, for a length below 1 or when that
// source or the memory fails. Never throws. Any thread.
QUORVEL_API BOOL AfxGenerateID(CString& id, int length);
QUORVEL_API BOOL AfxGenerateID(CStringA& id, int length);
