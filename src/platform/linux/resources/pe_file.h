// Reads the resources of a PE file from the disk.
#pragma once

#include "platform/linux/resources/pe_image.h"

#include <vector>

namespace quorvel {

// Reads the whole section instead of mapping it, so that later changes to the file cannot hurt.
struct PeFile {
    PeHead head;
    std::vector<BYTE> section; // empty when the file has no resources
};

// Returns 0 or the error of opening or reading; ERROR_BAD_EXE_FORMAT if it is not a PE file or ends
// before its resources; ERROR_NOT_ENOUGH_MEMORY also for more than 1 GB of resources.
DWORD ReadPeFile(const WCHAR* name, PeFile& file);

} // namespace quorvel
