#include "frame/module_entry.h"

namespace quorvel {

// A shared object has no entry point that could refuse the load. So static objects attach it, and
// the host sees a failure as a null resource handle.
HINSTANCE InstanceToAttach() {
    return OwnModule();
}

} // namespace quorvel
