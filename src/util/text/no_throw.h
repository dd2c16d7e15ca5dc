// For functions that fill a string and promise not to throw.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// Runs `body`, which returns whether it succeeded. Returns FALSE for any exception. Only exceptions
// for exhausted memory can occur, and those must not be deleted.
template <class Body>
BOOL WithoutException(Body body) noexcept {
    try {
        return body() ? TRUE : FALSE;
    } catch (...) {
        return FALSE;
    }
}

} // namespace quorvel
