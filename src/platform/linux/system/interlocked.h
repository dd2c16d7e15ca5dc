// Counting by several threads at once.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// The new value. Everything that was written before is seen by who counts afterwards.
inline LONG InterlockedIncrement(LONG volatile* number) {
    return __atomic_add_fetch(number, 1, __ATOMIC_SEQ_CST);
}
inline LONG InterlockedDecrement(LONG volatile* number) {
    return __atomic_sub_fetch(number, 1, __ATOMIC_SEQ_CST);
}

} // namespace quorvel::win32
