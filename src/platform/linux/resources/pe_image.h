// The resources of a PE file (the format of the platform's programs and libraries), 32 and 64 bit.
//
// Two steps, so that a large file need not be read whole: the head of the file tells where the
// section with the resources lies, and that section holds all of them. What is read is a tree of
// three levels (type, name or number, language) whose leaves give address and size of the data.
//
// Files are not trusted: every offset, length and count is tested against the bytes at hand, the
// depth is fixed, and what does not fit counts as missing. Resources outside the section that holds
// their tree are not found; linkers make no such files. Objects view the caller's bytes.
#pragma once

#include <quorvel/platform/platform.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

typedef std::basic_string_view<WCHAR> TextView;

// The section with the resources: where it lies in the file and what its bytes mean.
struct PeSection {
    DWORD fileOffset = 0;
    DWORD size = 0; // 0: the file has no resources
    DWORD address = 0;
    DWORD tree = 0; // where in the section the tree begins
};

struct PeHead {
    bool hasCode = false; // it has an entry point
    PeSection resources;
};

// As much of a file's start as ReadPeHead ever looks at.
constexpr std::size_t kPeHeadSize = 16 * 1024;

// Nothing when the bytes are not the start of a PE file.
std::optional<PeHead> ReadPeHead(std::span<const BYTE> start);

// The name of a type or a resource: a number when `text` is empty. Letter case does not count.
struct ResourceName {
    WORD number = 0;
    TextView text = {};
};

// Which of a resource's languages to take: the first of these that it has, otherwise its first or
// none at all.
struct LanguageChoice {
    std::span<const WORD> languages;
    bool orFirst = false;
};

class PeResources {
public:
    PeResources() = default;
    PeResources(std::span<const BYTE> section, const PeSection& where);

    // The place of a resource's data entry in the section; otherwise nothing and the platform's
    // error: 1812 no resources, 1813 no such type, 1814 name, 1815 language.
    std::optional<DWORD> Find(const ResourceName& type, const ResourceName& name,
                              const LanguageChoice& choice, DWORD& error) const;
    // The bytes that a data entry names; nothing when it is not one, or they lie elsewhere.
    std::optional<std::span<const BYTE>> Data(DWORD entry) const;
    // Between a place in the section and the address of its byte.
    const BYTE* Address(DWORD place) const { return m_section.data() + place; }
    std::optional<DWORD> Place(const void* address) const;

    // Numbers of the resources of a type, with their data entries, in the order of the tree.
    struct Numbered {
        WORD number;
        DWORD entry;
    };
    std::vector<Numbered> List(WORD type, const LanguageChoice& choice) const;
    // The names of the resources of a type, texts first. Empty, with the error as in Find, when
    // there is none.
    struct Name {
        WORD number;
        std::basic_string<WCHAR> text; // when it is not empty, the name
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

// The texts of a module, indexed once so that finding one takes no walk through the tree.
class PeStringTable {
public:
    PeStringTable() = default;
    PeStringTable(const PeResources& resources, const LanguageChoice& choice);

    // A text is not terminated. Without one: 1812, 1813 or 1814 as PeResources::Find has it. A
    // number that its block of sixteen leaves out has an empty text.
    std::optional<TextView> Find(WORD id, DWORD& error) const;

private:
    struct Block {
        WORD number; // id / 16 + 1
        std::span<const BYTE> bytes;
    };
    std::vector<Block> m_blocks; // by number
    DWORD m_errorWithoutBlocks = ERROR_RESOURCE_DATA_NOT_FOUND;
};

} // namespace quorvel
