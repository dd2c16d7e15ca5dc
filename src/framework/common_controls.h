// Registers the window classes of the common controls. Windows only.
#pragma once

namespace quorvel {

// Registers the classes once for each process. Call it before creating a window that may use one.
void RegisterCommonControls();

} // namespace quorvel
