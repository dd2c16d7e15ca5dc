// Text for the terminal.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <cstdio>
#include <string>

namespace quorvel {

// Converts to UTF-8. The text may come from a server, so control characters, which could control
// the terminal, are removed, except line ends and tabs. Null gives the empty text.
std::string TerminalText(LPCWSTR text);

// The width in columns of the terminal that the stream writes to. 0 when it is not a terminal, 80
// when the terminal does not report it.
int TerminalColumns(std::FILE* stream);

} // namespace quorvel
