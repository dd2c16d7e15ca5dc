// Threads. Any thread.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// The attributes and the id must be null (87), and of the flags there is CREATE_SUSPENDED alone.
// The thread's handle is signalled when it has ended, its thread_local objects included.
HANDLE CreateThread(SECURITY_ATTRIBUTES* security, SIZE_T stackSize, LPTHREAD_START_ROUTINE start,
                    LPVOID parameter, DWORD flags, DWORD* id);
// 1 for a thread that was created suspended and runs now, 0 for one that runs already, otherwise
// -1.
DWORD ResumeThread(HANDLE thread);
// STILL_ACTIVE until it has ended.
BOOL GetExitCodeThread(HANDLE thread, DWORD* exitCode);

DWORD GetCurrentThreadId();

} // namespace quorvel::win32
