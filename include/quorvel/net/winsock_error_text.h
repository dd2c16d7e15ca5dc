// The texts of Winsock errors.
#pragma once

#include <quorvel/framework/string.h>

// Returns "Unknown error." for a code without its own text, including 0 and 10104 to 10106. Any
// thread.
QUORVEL_API CString AfxGetWinsockErrorText(DWORD code);
