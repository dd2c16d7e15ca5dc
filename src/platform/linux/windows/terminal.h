// Text for the terminal.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <cstdio>
#include <string>

namespace quorvel {

// UTF-8. A text may come from a server: control characters, which could steer the terminal, are
// left out, but for line ends and tabs. Null is the empty text.
std::string TerminalText(LPCWSTR text);

// The width of the terminal that the stream writes to, in columns; 0 when it is none, and 80 when
// the terminal does not tell.
int TerminalColumns(std::FILE* stream);

} // namespace quorvel
