#include "platform/large_block.h"

namespace quorvel {

// Large pages need a privilege that users lack, and they are never paged out.
void PreferHugePages(void*, std::size_t) {}

std::size_t RoomToGrow(std::size_t size) {
    return size;
}

} // namespace quorvel
