// The tree in a version resource (VS_VERSIONINFO): nodes of a key, a value and child nodes.
//
// A node is: its length, its value's length and 1 for a text value, each 16 bits; the key with its
// terminator; the value; the children. The last two and each child start at multiples of 4. A
// text's length counts characters, any other bytes.
//
// Blocks are not trusted: a node must lie in its parent and its key must end, else it and what
// follows count as missing; a value that passes its node's end is cut there.
#pragma once

#include <quorvel/platform/platform.h>

#include <optional>
#include <span>
#include <string_view>

namespace quorvel {

struct VersionValue {
    std::span<const BYTE> bytes; // in the block; may lack a terminator
    bool isText;
};

// The value at a path of keys, each after a backslash; the root's for none. Letter case does not
// count.
std::optional<VersionValue> FindVersionValue(std::span<const BYTE> block,
                                             std::basic_string_view<WCHAR> path);

} // namespace quorvel
