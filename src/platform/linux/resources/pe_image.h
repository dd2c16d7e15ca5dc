// The resources of a PE file (the format of the platform's programs and libraries), 32 and 64 bit.
//
// Reading has two steps, so that a large file need not be read whole: the head of the file gives
// the position of the resource section, which contains all resources. They are a tree of three
// levels (type, name or number, language); its leaves give the data's address and size.
//
// Files are not trusted: each offset, length and count is checked against the available bytes, the
// depth is fixed, and invalid parts count as missing. Resources outside the tree's section are not
// found; linkers make no such files. Objects refer to the caller's bytes.
#pragma once

#include <quorvel/platform/platform.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

typedef std::basic_string_view<WCHAR> TextView;

// The section with the resources: its position in the file, and the meaning of its bytes.
struct PeSection {
    DWORD fileOffset = 0;
    DWORD size = 0; // 0: the file has no resources
    DWORD address = 0;
    DWORD tree = 0; // the offset of the tree in the section
};

struct PeHead {
    bool hasCode = false; // whether it has an entry point
    PeSection resources;
};

// ReadPeHead reads at most this part of a file's start.
constexpr std::size_t kPeHeadSize = 16 * 1024;

// No value when the bytes are not the start of a PE file.
std::optional<PeHead> ReadPeHead(std::span<const BYTE> start);

// The name of a type or a resource: a number when `text` is empty. Letter case is ignored.
struct ResourceName {
    WORD number = 0;
    TextView text = {};
};

// The languages to choose from: the first one that the resource has. A resource with other
// languages only is found in its first language if `orFirst`, otherwise not at all.
struct LanguageChoice {
    std::span<const WORD> languages;
    bool orFirst = false;
};

class PeResources {
public:
    PeResources() = default;
    PeResources(std::span<const BYTE> section, const PeSection& where);

    // The offset of a resource's data entry in the section; otherwise no value and the platform's
    // error: 1812 no resources, 1813 unknown type, 1814 unknown name, 1815 unknown language.
    std::optional<DWORD> Find(const ResourceName& type, const ResourceName& name,
                              const LanguageChoice& choice, DWORD& error) const;
    // The bytes of a data entry. No value if the entry is invalid or its bytes are elsewhere.
    std::optional<std::span<const BYTE>> Data(DWORD entry) const;
    // Converts between an offset in the section and the address of its byte.
    const BYTE* Address(DWORD place) const { return m_section.data() + place; }
    std::optional<DWORD> Place(const void* address) const;

    // The numbered resources of a type, with their data entries, in the order of the tree.
    struct Numbered {
        WORD number;
        DWORD entry;
    };
    std::vector<Numbered> List(WORD type, const LanguageChoice& choice) const;
    // The names of the resources of a type, texts first. If there are no resources, empty with the
    // error as in Find.
    struct Name {
        WORD number;
        std::basic_string<WCHAR> text; // the name, unless it is empty
    };
    std::vector<Name> Names(const ResourceName& type, DWORD& error) const;

private:
    struct Directory {
        std::span<const BYTE> named; // entries of 8 bytes
        std::span<const BYTE> numbered;
    };
    std::optional<Directory> ReadDirectory(DWORD entryValue) const;
    std::optional<DWORD> FindEntry(const Directory& directory, const ResourceName& name) const;
    std::optional<DWORD> FindLanguage(DWORD entryValue, const LanguageChoice& choice) const;
    std::basic_string<WCHAR> NameText(DWORD nameOffset) const;
    bool HasName(DWORD nameOffset, TextView text) const;

    std::span<const BYTE> m_section;
    std::span<const BYTE> m_tree;
    DWORD m_address = 0;
    DWORD m_treeStart = 0;
};

// The texts of a module. Indexed once, so that finding a text needs no walk through the tree.
class PeStringTable {
public:
    PeStringTable() = default;
    PeStringTable(const PeResources& resources, const LanguageChoice& choice);

    // The text is not terminated. If it is missing: 1812, 1813 or 1814, like PeResources::Find. A
    // number without a text in an existing block of sixteen has an empty text.
    std::optional<TextView> Find(WORD id, DWORD& error) const;

private:
    struct Block {
        WORD number; // id / 16 + 1
        std::span<const BYTE> bytes;
    };
    std::vector<Block> m_blocks; // sorted by number
    DWORD m_errorWithoutBlocks = ERROR_RESOURCE_DATA_NOT_FOUND;
};

} // namespace quorvel
