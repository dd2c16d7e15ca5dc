#include "frame/module_entry.h"

namespace quorvel {

// A shared object has no entry point that could refuse the load: its static objects attach it, and
// without a resource handle the host learns that it failed.
HINSTANCE InstanceToAttach() {
    return OwnModule();
}

} // namespace quorvel
