// The sentences for HTTP status codes.
#pragma once

#include <quorvel/framework/string.h>

// "Unknown HTTP status code." for a code without a sentence of its own. Any thread.
QUORVEL_API CString AfxGetHTTPStatusCodeText(DWORD code);
