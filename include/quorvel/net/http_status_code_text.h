// The texts for HTTP status codes.
#pragma once

#include <quorvel/framework/string.h>

// Returns "Unknown HTTP status code." for a code without its own text. Any thread.
QUORVEL_API CString AfxGetHTTPStatusCodeText(DWORD code);
