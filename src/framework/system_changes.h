// System changes that windows are notified of. Windows only.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// Passes changes of the system's colours or settings to all descendants of a top-level window.
// Ignores other messages.
void PassOnChange(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace quorvel
