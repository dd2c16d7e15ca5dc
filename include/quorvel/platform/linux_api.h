// The operations of the platform that a Linux host needs to use the public signatures.
//
// Each has the name, the results and the error codes of its Windows namesake and is found in
// namespace quorvel::win32, so that one host source serves both systems:
//     using namespace quorvel::win32;
// What is not declared here is not available: there are no stubs.
#pragma once

#include <quorvel/platform/export.h>
#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// The calling thread's last error. Any thread.
QUORVEL_API DWORD GetLastError();
QUORVEL_API void SetLastError(DWORD error);

} // namespace quorvel::win32
