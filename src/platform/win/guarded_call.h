// Calls code that may crash.
#pragma once

#include <functional>

namespace quorvel {

// Makes the call. Returns false when an exception ended it: a C++ exception or, in 32-bit programs
// only, a processor exception such as an access violation that the called code does not handle.
// Resources of the called code are then not released.
bool CallGuarded(const std::function<void()>& call);

} // namespace quorvel
