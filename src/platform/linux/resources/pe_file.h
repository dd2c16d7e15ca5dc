// Reads the resources of a PE file from the disk.
#pragma once

#include "platform/linux/resources/pe_image.h"

#include <vector>

namespace quorvel {

// The section is read whole and not mapped: a file that is cut or rewritten later cannot hurt us.
struct PeFile {
    PeHead head;
    std::vector<BYTE> section; // empty when the file has no resources
};

// 0, or the error of opening or reading; ERROR_BAD_EXE_FORMAT for what is no PE file, or one that
// ends before its resources do; ERROR_NOT_ENOUGH_MEMORY, also for more than 1 GB of resources.
DWORD ReadPeFile(const WCHAR* name, PeFile& file);

} // namespace quorvel
