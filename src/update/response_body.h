// The body of a response that was received into a file.
#pragma once

#include <quorvel/framework/string.h>

namespace quorvel {

// Both leave out the first `headerLength` bytes and give false with the text of a message when the
// response can't be read or the target not be written.

// The target is replaced as a whole or not at all.
bool CopyResponseBody(const WCHAR* response, ULONGLONG headerLength, const WCHAR* target,
                      CString& errorText);
bool ReadResponseBody(const WCHAR* response, ULONGLONG headerLength, CStringA& body,
                      CString& errorText);

} // namespace quorvel
