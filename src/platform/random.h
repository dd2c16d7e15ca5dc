// Random bytes that nobody can foresee.
#pragma once

#include <cstddef>

namespace quorvel {

// False when the system's source fails. Any thread.
bool FillRandom(void* bytes, std::size_t count);

} // namespace quorvel
