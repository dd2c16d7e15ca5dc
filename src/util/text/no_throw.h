// For functions that fill a string and promise not to throw.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// Runs `body`, which returns whether it succeeded; FALSE in place of any exception. What can come
// is that of an exhausted memory, which is nobody's to delete.
template <class Body>
BOOL WithoutException(Body body) noexcept {
    try {
        return body() ? TRUE : FALSE;
    } catch (...) {
        return FALSE;
    }
}

} // namespace quorvel
