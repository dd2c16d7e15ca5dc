// The owner window of the library's message boxes.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// The last active popup of this thread's active window or, without one, of its main window. So the
// box blocks the front dialog. Null when the thread has no window, and always on Linux.
HWND MessageBoxOwner();

} // namespace quorvel
