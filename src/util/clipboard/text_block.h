// Text in a block of memory that another program made.
#pragma once

#include <quorvel/platform/platform.h>

#include <algorithm>
#include <cstddef>

namespace quorvel {

// The characters before the terminator; all of the block when it has none. Half a character at the
// end is left out.
inline std::size_t TextLengthOfBlock(const WCHAR* block, std::size_t sizeInBytes) {
    const WCHAR* const end = block + sizeInBytes / sizeof(WCHAR);
    return static_cast<std::size_t>(std::find(block, end, WCHAR{0}) - block);
}

} // namespace quorvel
