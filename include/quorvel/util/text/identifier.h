// Random identifiers.
#pragma once

#include <quorvel/framework/string.h>

// Fills the text with `length` random hexadecimal digits in lower case, from the system's
// cryptographic random generator. Returns FALSE and leaves the text unchanged for a length below 1,
// or when the generator or an allocation fails. Never throws. Any thread.
QUORVEL_API BOOL AfxGenerateID(CString& id, int length);
QUORVEL_API BOOL AfxGenerateID(CStringA& id, int length);
