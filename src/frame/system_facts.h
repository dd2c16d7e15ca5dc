// The facts that the operating system reports, and the rules that describe a system by them.
//
// The rules are functions of the facts alone, so tests can try every Windows release.
#pragma once

#include <quorvel/framework/string.h>

#include "platform/win32.h"

namespace quorvel {

struct SystemVersion {
    OSVERSIONINFOEXW record = {};
    bool extended = false; // service pack numbers, suites and product type are valid
};

struct SystemFacts {
    SystemVersion version;
    bool release2 = false;    // the system metric SM_SERVERR2
    WORD nativeProcessor = 0; // PROCESSOR_ARCHITECTURE_..., of the machine, not of the process
    // Works like RegQueryValueExW for "ProductType": *size is the room in bytes on entry, the
    // text's size on return. Returns an error code when the value cannot be read.
    DWORD (*queryProductType)(BYTE* data, DWORD* size) = nullptr;
    bool (*hasServicePack6a)() = nullptr; // tests for the key of hotfix Q246009
};

// GetVersionExW. Tests replace it.
typedef BOOL (*VersionQuery)(OSVERSIONINFOW* record);
VersionQuery& CurrentVersionQuery();

// Reads the extended record, or the basic one where the system refuses the extended one.
bool ReadSystemVersion(SystemVersion& version);

int ClassifySystem(const SystemVersion& version);
bool DescribeSystem(const SystemFacts& facts, CString& text);
bool IsThemedSystem(const SystemVersion& version);

// Reads what only the processor and the registry of the machine show.
void ReadMachineFacts(SystemFacts& facts);
WORD NativeProcessor();

} // namespace quorvel
