// The window classes of the common controls, which exist on Windows only.
#pragma once

namespace quorvel {

// Registers them, once in the process. Called before a window is made that may be or hold one.
void RegisterCommonControls();

} // namespace quorvel
