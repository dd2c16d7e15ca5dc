// Message boxes on the terminal.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <cstdio>

namespace quorvel {

// Writes the box to `out`. If `input` is not null, asks for a button by its letter; an empty line
// and the end of the input choose the default button. Control characters in the texts are removed.
// Returns the button's id.
int TerminalMessageBox(LPCWSTR text, LPCWSTR caption, UINT type, std::FILE* out, std::FILE* input);

} // namespace quorvel

namespace quorvel::win32 {

// Writes to the standard error. Asks if the standard input and error are terminals, otherwise
// returns the default button. Ignores the owner and a Help button. 0 with
// ERROR_INVALID_MSGBOX_STYLE for an unknown button set.
int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

} // namespace quorvel::win32
