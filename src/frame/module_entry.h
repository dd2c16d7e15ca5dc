// Start-up and end of the library.
#pragma once

#include "platform/win32.h"

namespace quorvel {

// Enters the module into the resource chain; FALSE, with no resource handle, when that fails.
BOOL AttachModule(HINSTANCE instance);
void DetachModule();

// The module to attach when the library's static objects are made; null where the loader calls
// an entry point for that.
HINSTANCE InstanceToAttach();

} // namespace quorvel
