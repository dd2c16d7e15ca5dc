#include "platform/large_block.h"

namespace quorvel {

// Large pages need a privilege that users don't have, and are never paged out.
void PreferHugePages(void*, std::size_t) {}

} // namespace quorvel
