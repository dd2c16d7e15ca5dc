// The tree in a version resource (VS_VERSIONINFO): nodes of a key, a value and child nodes.
//
// A node has these parts: its length, its value's length, and 1 for a text value, each 16 bits; the
// key and its terminator; the value; the children. The value and each child start at multiples of
// 4. The length of a text counts characters, any other length counts bytes.
//
// Blocks are not trusted: a node that exceeds its parent or whose key has no end counts as missing,
// with all that follows. A value that exceeds its node is cut at the node's end.
#pragma once

#include <quorvel/platform/platform.h>

#include <optional>
#include <span>
#include <string_view>

namespace quorvel {

struct VersionValue {
    std::span<const BYTE> bytes; // inside the block; may lack a terminator
    bool isText;
};

// The value at a path of keys, each after a backslash; the root's value for an empty path. Letter
// case is ignored.
std::optional<VersionValue> FindVersionValue(std::span<const BYTE> block,
                                             std::basic_string_view<WCHAR> path);

} // namespace quorvel
