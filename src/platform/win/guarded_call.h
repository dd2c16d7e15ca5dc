// A call into code that may fault.
#pragma once

#include <functional>

namespace quorvel {

// Makes the call. False when it was ended by an exception: one of C++, and in 32-bit programs also
// one of the processor, such as an access violation, that the called code does not handle itself.
// What the called code held is then not released.
bool CallGuarded(const std::function<void()>& call);

} // namespace quorvel
