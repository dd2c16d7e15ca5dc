// Changes of the system that windows are notified of. Windows only.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// Passes a change of the system's colours or settings on to all descendants of a top-level window;
// other messages are not passed on.
void PassOnChange(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace quorvel
