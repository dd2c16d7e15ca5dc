// The two units of a character beyond U+FFFF.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

constexpr bool IsHighSurrogate(WCHAR unit) {
    return (unit & 0xfc00) == 0xd800;
}
constexpr bool IsLowSurrogate(WCHAR unit) {
    return (unit & 0xfc00) == 0xdc00;
}

} // namespace quorvel
