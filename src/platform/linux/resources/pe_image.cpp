#include "platform/linux/resources/pe_image.h"

#include "platform/case_fold.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace quorvel {

namespace {

static_assert(std::endian::native == std::endian::little, "the format's fields are read in place");

constexpr DWORD kSubdirectory = 0x80000000u; // set in an entry's value: a directory
constexpr DWORD kNamed = 0x80000000u;        // set in an entry's name: an offset
constexpr std::size_t kDirectorySize = 16;
constexpr std::size_t kEntrySize = 8;
constexpr std::size_t kDataEntrySize = 16;
constexpr WORD kStringType = 6;
// Limits the cost of a look-up in a hostile file. There are fewer languages than this.
constexpr std::size_t kMaximumLanguages = 256;

// The bytes in [offset, offset + count), or an empty span when some of them are missing.
std::span<const BYTE> Part(std::span<const BYTE> bytes, std::size_t offset, std::size_t count) {
    if (offset > bytes.size() || count > bytes.size() - offset)
        return {};
    return bytes.subspan(offset, count);
}

template <class Number>
bool Read(std::span<const BYTE> bytes, std::size_t offset, Number& value) {
    const auto part = Part(bytes, offset, sizeof value);
    if (part.empty())
        return false;
    std::memcpy(&value, part.data(), sizeof value);
    return true;
}

struct Entry {
    DWORD name;
    DWORD value;
};
Entry EntryAt(std::span<const BYTE> entries, std::size_t index) {
    Entry entry;
    std::memcpy(&entry, entries.data() + index * kEntrySize, sizeof entry);
    return entry;
}
std::size_t EntryCount(std::span<const BYTE> entries) {
    return entries.size() / kEntrySize;
}

// The section that contains an address, limited to the bytes that the file has.
PeSection FindSection(std::span<const BYTE> table, DWORD address) {
    constexpr std::size_t kHeaderSize = 40;
    for (std::size_t i = 0; i + kHeaderSize <= table.size(); i += kHeaderSize) {
        DWORD fields[4]; // virtual size, address, size and position in the file
        std::memcpy(fields, table.data() + i + 8, sizeof fields);
        const auto [virtualSize, start, size, place] = fields;
        if (address >= start && address - start < size)
            return {place, size, start, address - start};
    }
    return {};
}

} // namespace

std::optional<PeHead> ReadPeHead(std::span<const BYTE> start) {
    constexpr WORD kDosMagic = 0x5a4d;
    constexpr DWORD kPeMagic = 0x00004550;
    constexpr WORD kMagic32 = 0x010b;
    constexpr WORD kMagic64 = 0x020b;
    constexpr DWORD kResourceDirectory = 2;

    WORD dosMagic;
    DWORD place;
    DWORD magic;
    if (!Read(start, 0, dosMagic) || dosMagic != kDosMagic || !Read(start, 0x3c, place) ||
        place > start.size() || !Read(start, place, magic) || magic != kPeMagic)
        return std::nullopt;

    const std::span<const BYTE> head = start.subspan(place + sizeof magic);
    WORD sectionCount;
    WORD optionalSize;
    WORD kind;
    DWORD entryPoint;
    constexpr std::size_t kFileHeaderSize = 20;
    if (!Read(head, 2, sectionCount) || !Read(head, 16, optionalSize))
        return std::nullopt;
    const auto optional = Part(head, kFileHeaderSize, optionalSize);
    if (!Read(optional, 0, kind) || (kind != kMagic32 && kind != kMagic64) ||
        !Read(optional, 16, entryPoint))
        return std::nullopt;
    const auto sections =
        Part(head, kFileHeaderSize + optionalSize, std::size_t{sectionCount} * 40);
    if (sections.empty() && sectionCount != 0)
        return std::nullopt;

    PeHead result;
    result.hasCode = entryPoint != 0;
    const std::size_t directories = kind == kMagic32 ? 96 : 112;
    DWORD count;
    DWORD address;
    if (Read(optional, directories - 4, count) && count > kResourceDirectory &&
        Read(optional, directories + kResourceDirectory * 8, address) && address != 0)
        result.resources = FindSection(sections, address);
    return result;
}

PeResources::PeResources(std::span<const BYTE> section, const PeSection& where)
    : m_section(section), m_address(where.address) {
    if (where.tree < section.size()) {
        m_tree = section.subspan(where.tree);
        m_treeStart = where.tree;
    }
}

// `entryValue` is the entry of the directory: its offset with the mark of a subdirectory.
std::optional<PeResources::Directory> PeResources::ReadDirectory(DWORD entryValue) const {
    if (!(entryValue & kSubdirectory))
        return std::nullopt;
    const DWORD offset = entryValue & ~kSubdirectory;
    WORD named;
    WORD numbered;
    if (!Read(m_tree, offset + std::size_t{12}, named) ||
        !Read(m_tree, offset + std::size_t{14}, numbered))
        return std::nullopt;
    const std::size_t count = std::size_t{named} + numbered;
    const auto entries = Part(m_tree, offset + kDirectorySize, count * kEntrySize);
    if (entries.size() != count * kEntrySize)
        return std::nullopt;
    return Directory{entries.first(named * kEntrySize), entries.subspan(named * kEntrySize)};
}

// Empty when part of the text is missing.
std::basic_string<WCHAR> PeResources::NameText(DWORD nameOffset) const {
    const std::size_t start = nameOffset & ~kNamed;
    WORD length;
    if (!(nameOffset & kNamed) || !Read(m_tree, start, length))
        return {};
    const auto bytes = Part(m_tree, start + sizeof length, length * sizeof(WCHAR));
    std::basic_string<WCHAR> text(bytes.size() / sizeof(WCHAR), 0);
    std::memcpy(text.data(), bytes.data(), bytes.size());
    return text;
}

bool PeResources::HasName(DWORD nameOffset, TextView text) const {
    const std::size_t start = nameOffset & ~kNamed;
    WORD length;
    if (!(nameOffset & kNamed) || !Read(m_tree, start, length) || length != text.size())
        return false;
    const auto bytes = Part(m_tree, start + sizeof length, length * sizeof(WCHAR));
    if (bytes.empty())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        WCHAR unit;
        std::memcpy(&unit, bytes.data() + i * sizeof unit, sizeof unit);
        if (FoldCase(unit) != FoldCase(text[i]))
            return false;
    }
    return true;
}

std::optional<DWORD> PeResources::FindEntry(const Directory& directory,
                                            const ResourceName& name) const {
    const bool byText = !name.text.empty();
    const auto entries = byText ? directory.named : directory.numbered;
    for (std::size_t i = 0; i < EntryCount(entries); ++i) {
        const Entry entry = EntryAt(entries, i);
        if (byText ? HasName(entry.name, name.text) : entry.name == name.number)
            return entry.value;
    }
    return std::nullopt;
}

// Finds the data entry in the directory of a resource's languages.
std::optional<DWORD> PeResources::FindLanguage(DWORD entryValue,
                                               const LanguageChoice& choice) const {
    const auto directory = ReadDirectory(entryValue);
    if (!directory || EntryCount(directory->numbered) > kMaximumLanguages)
        return std::nullopt;
    std::optional<DWORD> found;
    for (const WORD language : choice.languages)
        if (!found)
            found = FindEntry(*directory, {language});
    if (!found && choice.orFirst && !directory->numbered.empty())
        found = EntryAt(directory->numbered, 0).value;
    if (!found || *found >= m_tree.size())
        return std::nullopt; // also refuses a directory, which has kSubdirectory set
    return *found + m_treeStart;
}

std::optional<DWORD> PeResources::Find(const ResourceName& type, const ResourceName& name,
                                       const LanguageChoice& choice, DWORD& error) const {
    const auto types = ReadDirectory(kSubdirectory);
    error = ERROR_RESOURCE_DATA_NOT_FOUND;
    if (!types)
        return std::nullopt;
    error = ERROR_RESOURCE_TYPE_NOT_FOUND;
    const auto typeEntry = FindEntry(*types, type);
    const auto names = typeEntry ? ReadDirectory(*typeEntry) : std::nullopt;
    if (!names)
        return std::nullopt;
    error = ERROR_RESOURCE_NAME_NOT_FOUND;
    const auto nameEntry = FindEntry(*names, name);
    if (!nameEntry)
        return std::nullopt;
    error = ERROR_RESOURCE_LANG_NOT_FOUND;
    return FindLanguage(*nameEntry, choice);
}

std::optional<std::span<const BYTE>> PeResources::Data(DWORD entry) const {
    DWORD address;
    DWORD size;
    if (Part(m_section, entry, kDataEntrySize).empty() || !Read(m_section, entry, address) ||
        !Read(m_section, entry + std::size_t{4}, size) || address < m_address)
        return std::nullopt;
    const auto bytes = Part(m_section, address - m_address, size);
    if (bytes.size() != size)
        return std::nullopt;
    return bytes;
}

std::optional<DWORD> PeResources::Place(const void* address) const {
    const UINT_PTR place =
        reinterpret_cast<UINT_PTR>(address) - reinterpret_cast<UINT_PTR>(m_section.data());
    if (place >= m_section.size())
        return std::nullopt;
    return static_cast<DWORD>(place);
}

std::vector<PeResources::Numbered> PeResources::List(WORD type,
                                                     const LanguageChoice& choice) const {
    std::vector<Numbered> result;
    const auto types = ReadDirectory(kSubdirectory);
    const auto typeEntry = types ? FindEntry(*types, {type}) : std::nullopt;
    const auto names = typeEntry ? ReadDirectory(*typeEntry) : std::nullopt;
    for (std::size_t i = 0; names && i < EntryCount(names->numbered); ++i) {
        const Entry entry = EntryAt(names->numbered, i);
        if (entry.name > 0xffff)
            continue;
        if (const auto data = FindLanguage(entry.value, choice))
            result.push_back({static_cast<WORD>(entry.name), *data});
    }
    return result;
}

std::vector<PeResources::Name> PeResources::Names(const ResourceName& type, DWORD& error) const {
    std::vector<Name> result;
    const auto types = ReadDirectory(kSubdirectory);
    error = types ? ERROR_RESOURCE_TYPE_NOT_FOUND : ERROR_RESOURCE_DATA_NOT_FOUND;
    const auto typeEntry = types ? FindEntry(*types, type) : std::nullopt;
    const auto names = typeEntry ? ReadDirectory(*typeEntry) : std::nullopt;
    for (std::size_t i = 0; names && i < EntryCount(names->named); ++i)
        if (auto text = NameText(EntryAt(names->named, i).name); !text.empty())
            result.push_back({0, std::move(text)});
    for (std::size_t i = 0; names && i < EntryCount(names->numbered); ++i)
        if (const Entry entry = EntryAt(names->numbered, i); entry.name <= 0xffff)
            result.push_back({static_cast<WORD>(entry.name), {}});
    return result;
}

PeStringTable::PeStringTable(const PeResources& resources, const LanguageChoice& choice) {
    resources.Find({kStringType}, {}, choice, m_errorWithoutBlocks); // only sets the error
    for (const auto& [number, entry] : resources.List(kStringType, choice)) {
        const auto bytes = resources.Data(entry);
        // Callers get the texts in place, and a text cannot be at an odd address.
        if (bytes && reinterpret_cast<UINT_PTR>(bytes->data()) % sizeof(WCHAR) == 0)
            m_blocks.push_back({number, *bytes});
    }
    std::stable_sort(m_blocks.begin(), m_blocks.end(),
                     [](const Block& a, const Block& b) { return a.number < b.number; });
}

std::optional<TextView> PeStringTable::Find(WORD id, DWORD& error) const {
    const WORD number = static_cast<WORD>(id / 16 + 1);
    const auto block =
        std::lower_bound(m_blocks.begin(), m_blocks.end(), number,
                         [](const Block& a, WORD wanted) { return a.number < wanted; });
    error = m_errorWithoutBlocks;
    if (block == m_blocks.end() || block->number != number)
        return std::nullopt;
    std::span<const BYTE> rest = block->bytes;
    for (int i = 0;; ++i) {
        WORD length;
        if (!Read(rest, 0, length))
            return std::nullopt;
        const std::size_t size = length * sizeof(WCHAR);
        if (size > rest.size() - sizeof length)
            return std::nullopt;
        if (i == id % 16)
            return TextView(reinterpret_cast<const WCHAR*>(rest.data() + sizeof length), length);
        rest = rest.subspan(sizeof length + size);
    }
}

} // namespace quorvel
