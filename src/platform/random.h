// Unpredictable random bytes.
#pragma once

#include <cstddef>

namespace quorvel {

// Returns false when the system's source fails. Any thread.
bool FillRandom(void* bytes, std::size_t count);

} // namespace quorvel
