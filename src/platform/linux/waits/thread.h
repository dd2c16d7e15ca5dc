// Threads. Any thread.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// The attributes and the id must be null (87); the only flag is CREATE_SUSPENDED. The handle is
// signalled after the thread has ended and its thread_local objects are destroyed.
HANDLE CreateThread(SECURITY_ATTRIBUTES* security, SIZE_T stackSize, LPTHREAD_START_ROUTINE start,
                    LPVOID parameter, DWORD flags, DWORD* id);
// 1 for a thread that was created suspended and now runs, 0 for one that already runs, otherwise
// -1.
DWORD ResumeThread(HANDLE thread);
// STILL_ACTIVE until the thread has ended.
BOOL GetExitCodeThread(HANDLE thread, DWORD* exitCode);

DWORD GetCurrentThreadId();

} // namespace quorvel::win32
