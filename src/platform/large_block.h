// Large blocks of memory that will be written from beginning to end.
#pragma once

#include <cstddef>

namespace quorvel {

// Requests huge pages for a block from malloc or realloc if it has at least a megabyte: there the
// first touch of each small page costs more than most work on the text. Never fails, and keeps the
// last error. Any thread.
void PreferHugePages(void* block, std::size_t size);

// The number of bytes, at least `size`, to request from realloc when a block grows repeatedly.
// Memory that is not written only costs address space.
std::size_t RoomToGrow(std::size_t size);

} // namespace quorvel
