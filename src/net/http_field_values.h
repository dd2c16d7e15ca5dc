// What the values of HTTP fields mean, however their field was found.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/framework/string.h>

namespace quorvel {

// Decimal digits alone; 0 for anything else and for more than 64 bits hold.
ULONGLONG ReadContentLength(const CString& value);
// The empty date when the text is none.
COleDateTime ReadHttpDate(const CString& value);

} // namespace quorvel
