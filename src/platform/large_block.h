// Large blocks of memory that are about to be written from one end to the other.
#pragma once

#include <cstddef>

namespace quorvel {

// Asks for huge pages where the block, from malloc or realloc, has at least a megabyte: there the
// first touch of every small page costs more than most work on the text itself. Never fails, and
// keeps the last error. Any thread.
void PreferHugePages(void* block, std::size_t size);

// How many bytes to ask realloc for, at least `size`, where a block grows time and again. Memory
// beyond what is written costs addresses alone.
std::size_t RoomToGrow(std::size_t size);

} // namespace quorvel
