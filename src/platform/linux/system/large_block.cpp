#include "platform/large_block.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

namespace quorvel {

namespace {

constexpr std::size_t kLarge = std::size_t(1) << 20;

} // namespace

void PreferHugePages(void* block, std::size_t size) {
    if (size < kLarge)
        return;
    static const auto pageSize = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto begin = reinterpret_cast<std::uintptr_t>(block);
    // Extends the range to whole pages, so that it covers malloc's whole mapping for the block: the
    // kernel does not move a partly advised mapping, and realloc would have to copy it.
    const std::uintptr_t first = begin / pageSize * pageSize;
    const std::uintptr_t end = (begin + size + pageSize - 1) / pageSize * pageSize;
    const int error = errno;
    madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
    errno = error; // a kernel without huge pages refuses; that is not a failure
}

// malloc gives each block above 32 MB its own mapping, which realloc can grow by moving pages.
// Smaller blocks may be copied into new pages, which are then touched before they can be advised.
std::size_t RoomToGrow(std::size_t size) {
    constexpr std::size_t kOwnMapping = std::size_t(33) << 20;
    return size < kLarge ? size : std::max(size, kOwnMapping);
}

} // namespace quorvel
