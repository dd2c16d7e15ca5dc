// The number of bytes that remain to be read.
#pragma once

#include <quorvel/framework/file.h>

namespace quorvel {

// Returns 0 for an empty file, and when the position is at or after the end.
inline ULONGLONG BytesLeft(const CFile& file) {
    const ULONGLONG length = file.GetLength();
    const ULONGLONG position = length > 0 ? file.GetPosition() : 0;
    return position < length ? length - position : 0;
}

} // namespace quorvel
