// The readers of PE files, resource sections and version blocks: results from hostile bytes must
// lie inside these bytes.
#include "platform/linux/resources/pe_image.h"
#include "platform/linux/resources/version_block.h"

#include "fuzz_input.h"

using namespace quorvel;

typedef std::span<const BYTE> Bytes;

constexpr WORD kLanguages[] = {0, 0x0409};

static void CheckInside(Bytes all, const void* start, std::size_t size) {
    const auto* first = static_cast<const BYTE*>(start);
    Require(size == 0 || (first >= all.data() && first + size <= all.data() + all.size()));
}

static void CheckVersion(Bytes block) {
    for (const WCHAR* path :
         {_T(""), _T("\\VarFileInfo\\Translation"), _T("\\StringFileInfo\\040904b0\\CompanyName"),
          _T("\\StringFileInfo\\040904b0\\x"), _T("\\\\a\\\\")})
        if (const auto value = FindVersionValue(block, path))
            CheckInside(block, value->bytes.data(), value->bytes.size());
}

static void CheckResources(Bytes section, const PeSection& where) {
    const PeResources resources(section, where);
    const PeStringTable strings(resources, {kLanguages, true});
    const ResourceName names[] = {{1}, {7}, {0, _T("Named")}, {0, _T("Kind")}, {10}, {16}};
    DWORD error;
    for (WORD id = 90; id < 130; ++id) // includes those of the samples
        if (const auto found = strings.Find(id, error))
            CheckInside(section, found->data(), found->size() * sizeof(WCHAR));
    for (const ResourceName& type : names)
        for (const ResourceName& name : names)
            for (const bool orFirst : {false, true}) {
                const auto entry = resources.Find(type, name, {kLanguages, orFirst}, error);
                const auto data = entry ? resources.Data(*entry) : std::nullopt;
                if (!data)
                    continue;
                CheckInside(section, data->data(), data->size());
                CheckVersion(*data);
            }
}

FUZZ_TARGET(input) {
    const std::vector<BYTE> file = input.Block();
    const std::size_t size = file.size();
    CheckVersion(file);
    CheckResources(file, {0, static_cast<DWORD>(size), 0x1000, 0});

    const auto head = ReadPeHead(Bytes(file).first(std::min(size, kPeHeadSize)));
    if (!head)
        return;
    // The existing part of the section: the reader must accept less than was announced.
    const std::size_t start = std::min<std::size_t>(head->resources.fileOffset, size);
    const std::size_t count = std::min<std::size_t>(head->resources.size, size - start);
    const std::vector<BYTE> section(file.begin() + static_cast<std::ptrdiff_t>(start),
                                    file.begin() + static_cast<std::ptrdiff_t>(start + count));
    CheckResources(section, head->resources);
}
