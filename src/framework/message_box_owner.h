// Which window a message box of the library lies over.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// The last active popup of this thread's active window, or else of its main window, so that the box
// blocks the dialog that is in front. Null when the thread has no window, and always on Linux.
HWND MessageBoxOwner();

} // namespace quorvel
