// The body of a response that was received into a file.
#pragma once

#include <quorvel/framework/string.h>

#include "update/body_decoder.h"

namespace quorvel {

// All leave out the header, the first `headerLength` bytes, and give false with the text of a
// message when the response can't be read or the target not be written.

// The target is replaced as a whole or not at all.
bool CopyResponseBody(const WCHAR* response, ULONGLONG headerLength, const WCHAR* target,
                      CString& errorText);
// Writes the decoded body to the target. True also for a body that is refused: see the outcome.
bool DecodeResponseBody(const WCHAR* response, const CHttpHeader& header, ULONGLONG limit,
                        const WCHAR* target, BodyDecoder::Outcome& outcome, CString& errorText);
bool ReadResponseBody(const WCHAR* response, ULONGLONG headerLength, CStringA& body,
                      CString& errorText);

} // namespace quorvel
