#include "frame/system_facts.h"

namespace quorvel {

// Only descriptions of Windows use them: GetVersionExW never tells one of its platform ids here.
void ReadMachineFacts(SystemFacts& facts) {
    facts.queryProductType = [](BYTE*, DWORD*) -> DWORD { return ERROR_FILE_NOT_FOUND; };
    facts.hasServicePack6a = [] { return false; };
}

} // namespace quorvel
