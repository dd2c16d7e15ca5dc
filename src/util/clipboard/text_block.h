// The length of text in a memory block from another program.
#pragma once

#include <quorvel/platform/platform.h>

#include <algorithm>
#include <cstddef>

namespace quorvel {

// Counts the characters before the terminator, or all of them when there is no terminator. Ignores
// half a character at the end.
inline std::size_t TextLengthOfBlock(const WCHAR* block, std::size_t sizeInBytes) {
    const WCHAR* const end = block + sizeInBytes / sizeof(WCHAR);
    return static_cast<std::size_t>(std::find(block, end, WCHAR{0}) - block);
}

} // namespace quorvel
