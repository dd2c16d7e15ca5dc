// What kind of control a window is to screen readers.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// The role (ROLE_SYSTEM_LINK ...) in place of that of the window's class, until it is cleared. It
// is not set when the component model is not initialised on the thread.
void SetAccessibleRole(HWND window, LONG role);
void ClearAccessibleRole(HWND window);

} // namespace quorvel
