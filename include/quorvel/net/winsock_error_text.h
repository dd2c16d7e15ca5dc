// The texts of Winsock errors.
#pragma once

#include <quorvel/framework/string.h>

// "Unknown error." for a code without a text of its own, 0 and 10104 to 10106 among them. Any
// thread.
QUORVEL_API CString AfxGetWinsockErrorText(DWORD code);
