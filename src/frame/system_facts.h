// What the operating system tells about itself, and what is said about a system that tells it.
//
// The rules are functions of the facts alone, so that every Windows release can be put to them.
#pragma once

#include <quorvel/framework/string.h>

#include "platform/win32.h"

namespace quorvel {

struct SystemVersion {
    OSVERSIONINFOEXW record = {};
    bool extended = false; // service pack numbers, suites and product type are known
};

struct SystemFacts {
    SystemVersion version;
    bool release2 = false;    // the system metric SM_SERVERR2
    WORD nativeProcessor = 0; // PROCESSOR_ARCHITECTURE_..., of the machine and not of the process
    // As RegQueryValueExW for "ProductType": *size bytes of room on entry, the text's own size on
    // return; an error code when the key or the value cannot be read.
    DWORD (*queryProductType)(BYTE* data, DWORD* size) = nullptr;
    bool (*hasServicePack6a)() = nullptr; // the key of hotfix Q246009
};

// GetVersionExW. Tests replace it.
typedef BOOL (*VersionQuery)(OSVERSIONINFOW* record);
VersionQuery& CurrentVersionQuery();

// Asks for the extended record and, where that is refused, for the basic one.
bool ReadSystemVersion(SystemVersion& version);

int ClassifySystem(const SystemVersion& version);
bool DescribeSystem(const SystemFacts& facts, CString& text);
bool IsThemedSystem(const SystemVersion& version);

// What only the machine's processor and its registry tell.
void ReadMachineFacts(SystemFacts& facts);
WORD NativeProcessor();

} // namespace quorvel
