// Counters that several threads use at once.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// Returns the new value. All earlier writes are visible to a thread that counts afterwards.
inline LONG InterlockedIncrement(LONG volatile* number) {
    return __atomic_add_fetch(number, 1, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedDecrement(LONG volatile* number) {
    return __atomic_sub_fetch(number, 1, __ATOMIC_SEQ_CST);
}

} // namespace quorvel::win32
