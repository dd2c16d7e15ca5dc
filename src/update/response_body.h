// The body of a response that was received into a file.
#pragma once

#include <quorvel/framework/string.h>

#include "update/body_decoder.h"

namespace quorvel {

// All of them skip the header, which is the first `headerLength` bytes. They return false with the
// text of a message if the response cannot be read or the target cannot be written.

// Replaces the target as a whole or not at all.
bool CopyResponseBody(const WCHAR* response, ULONGLONG headerLength, const WCHAR* target,
                      CString& errorText);
// Writes the decoded body to the target. Also returns true for a refused body: check the outcome.
bool DecodeResponseBody(const WCHAR* response, const CHttpHeader& header, ULONGLONG limit,
                        const WCHAR* target, BodyDecoder::Outcome& outcome, CString& errorText);
bool ReadResponseBody(const WCHAR* response, ULONGLONG headerLength, CStringA& body,
                      CString& errorText);

} // namespace quorvel
