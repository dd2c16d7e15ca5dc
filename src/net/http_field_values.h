// Interprets the values of HTTP fields.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/framework/string.h>

namespace quorvel {

// Returns 0 unless the value has only decimal digits and fits in 64 bits.
ULONGLONG ReadContentLength(const CString& value);
// Returns an empty date for an invalid text.
COleDateTime ReadHttpDate(const CString& value);

} // namespace quorvel
