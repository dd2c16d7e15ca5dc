#include "frame/system_facts.h"

namespace quorvel {

// Only descriptions of Windows name it: GetVersionExW never tells one of its platform ids here.
WORD NativeProcessor() {
    return 0;
}

} // namespace quorvel
