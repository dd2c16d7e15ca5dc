// Sets the kind of control that screen readers report for a window.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// Sets the role (ROLE_SYSTEM_LINK ...) instead of the default one of the window's class, until it
// is cleared. Has no effect if the component model is not initialised on the thread.
void SetAccessibleRole(HWND window, LONG role);
void ClearAccessibleRole(HWND window);

} // namespace quorvel
