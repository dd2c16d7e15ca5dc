// How much of a file there still is to read.
#pragma once

#include <quorvel/framework/file.h>

namespace quorvel {

// 0 for an empty file, and at or behind the end of one.
inline ULONGLONG BytesLeft(const CFile& file) {
    const ULONGLONG length = file.GetLength();
    const ULONGLONG position = length > 0 ? file.GetPosition() : 0;
    return position < length ? length - position : 0;
}

} // namespace quorvel
