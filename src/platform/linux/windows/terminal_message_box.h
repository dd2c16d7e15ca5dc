// Message boxes on the terminal.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <cstdio>

namespace quorvel {

// Writes the box to `out` and, when `input` is not null, asks there for a button by its letter; an
// empty line, and the end of the input, choose the default button. Control characters of the texts
// do not reach the terminal. The result is the button's id.
int TerminalMessageBox(LPCWSTR text, LPCWSTR caption, UINT type, std::FILE* out, std::FILE* input);

} // namespace quorvel

namespace quorvel::win32 {

// Writes to the standard error. Asks where the standard input and error are terminals, otherwise
// takes the default button. The owner is ignored, and so is a Help button. 0 with
// ERROR_INVALID_MSGBOX_STYLE for an unknown button set.
int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

} // namespace quorvel::win32
