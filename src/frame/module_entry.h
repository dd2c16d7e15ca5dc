// Attaches and detaches the library.
#pragma once

#include "platform/win32.h"

namespace quorvel {

// Adds the module to the resource chain. Returns FALSE, with no resource handle, on failure.
BOOL AttachModule(HINSTANCE instance);
void DetachModule();

// The module that the library's static objects attach. Null where the loader calls an entry point
// instead.
HINSTANCE InstanceToAttach();

} // namespace quorvel
