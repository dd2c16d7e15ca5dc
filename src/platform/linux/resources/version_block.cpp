#include "platform/linux/resources/version_block.h"

#include "platform/case_fold.h"

#include <algorithm>
#include <cstring>

namespace quorvel {

namespace {

typedef std::basic_string_view<WCHAR> Text;

struct Node {
    std::span<const BYTE> key; // without the terminator
    VersionValue value;
    std::span<const BYTE> children;
    std::size_t length;
};

WORD WordAt(std::span<const BYTE> bytes, std::size_t offset) {
    WORD value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

std::span<const BYTE> From(std::span<const BYTE> bytes, std::size_t offset) {
    const std::size_t aligned = (offset + 3) & ~std::size_t{3};
    return bytes.subspan(std::min(aligned, bytes.size()));
}

std::optional<Node> ReadNode(std::span<const BYTE> bytes) {
    constexpr std::size_t kHeaderSize = 6;
    if (bytes.size() < kHeaderSize)
        return std::nullopt;
    Node node;
    node.length = WordAt(bytes, 0);
    if (node.length < kHeaderSize || node.length > bytes.size())
        return std::nullopt;
    const auto all = bytes.first(node.length);
    std::size_t end = kHeaderSize;
    while (end + sizeof(WCHAR) <= all.size() && WordAt(all, end) != 0)
        end += sizeof(WCHAR);
    if (end + sizeof(WCHAR) > all.size())
        return std::nullopt;
    node.key = all.subspan(kHeaderSize, end - kHeaderSize);

    const auto rest = From(all, end + sizeof(WCHAR));
    node.value.isText = WordAt(all, 4) == 1;
    const std::size_t size = WordAt(all, 2) * (node.value.isText ? sizeof(WCHAR) : 1);
    node.value.bytes = rest.first(std::min(size, rest.size()));
    node.children = From(rest, size);
    return node;
}

bool HasKey(const Node& node, Text key) {
    if (node.key.size() != key.size() * sizeof(WCHAR))
        return false;
    for (std::size_t i = 0; i < key.size(); ++i)
        if (FoldCase(static_cast<WCHAR>(WordAt(node.key, i * sizeof(WCHAR)))) != FoldCase(key[i]))
            return false;
    return true;
}

std::optional<Node> FindChild(const Node& parent, Text key) {
    auto rest = parent.children;
    while (const auto child = ReadNode(rest)) {
        if (HasKey(*child, key))
            return child;
        rest = From(rest, child->length);
    }
    return std::nullopt;
}

} // namespace

std::optional<VersionValue> FindVersionValue(std::span<const BYTE> block, Text path) {
    auto node = ReadNode(block);
    while (node && !path.empty()) {
        const std::size_t end = std::min(path.find('\\'), path.size());
        if (end > 0) // separators may be repeated
            node = FindChild(*node, path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return node ? std::optional(node->value) : std::nullopt;
}

} // namespace quorvel
