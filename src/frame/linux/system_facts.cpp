#include "frame/system_facts.h"

namespace quorvel {

// Only descriptions of Windows use it, and GetVersionExW never reports a Windows platform id here.
WORD NativeProcessor() {
    return 0;
}

} // namespace quorvel
