#include "platform/linux/resources/version_info.h"

#include "platform/linux/resources/pe_file.h"
#include "platform/linux/resources/pe_module.h"
#include "platform/linux/resources/version_block.h"
#include "platform/linux/system/system_error.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace quorvel::win32 {

namespace {

// Zeros after the resource. They end a last text without a terminator, and a root value shorter
// than VS_FIXEDFILEINFO may still be read as one.
constexpr DWORD kTailSize = 64;
static_assert(kTailSize >= sizeof(VS_FIXEDFILEINFO) + sizeof(WCHAR));

// The version resource of a file, followed by the zeros; empty with the last error set on failure.
std::vector<BYTE> ReadVersionResource(LPCWSTR name) {
    PeFile file;
    const PeResources* own = FindOwnResources(name);
    if (own == nullptr) {
        const DWORD error = ReadPeFile(name, file);
        if (error != ERROR_SUCCESS && error != ERROR_BAD_EXE_FORMAT) {
            SetLastError(error);
            return {};
        }
    }
    const PeResources inFile(file.section, file.head.resources);
    const PeResources& resources = own != nullptr ? *own : inFile;
    constexpr WORD kVersionType = 16;
    constexpr WORD kVersionName = 1;
    DWORD error;
    const auto entry = resources.Find({kVersionType}, {kVersionName}, DefaultLanguages(), error);
    const auto data = entry ? resources.Data(*entry) : std::nullopt;
    WORD length = 0;
    if (data && data->size() >= sizeof length)
        std::memcpy(&length, data->data(), sizeof length);
    // Deliberate: as on Windows, one error means any missing part.
    if (length == 0) {
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
        return {};
    }
    std::vector<BYTE> block(data->begin(),
                            data->begin() + std::min<std::size_t>(length, data->size()));
    block.resize(block.size() + kTailSize);
    return block;
}

} // namespace

DWORD GetFileVersionInfoSizeW(LPCWSTR name, LPDWORD zero) try {
    if (zero != nullptr)
        *zero = 0;
    if (name == nullptr || *name == 0) {
        SetLastError(name == nullptr ? ERROR_INVALID_PARAMETER : ERROR_BAD_PATHNAME);
        return 0;
    }
    const std::vector<BYTE> block = ReadVersionResource(name);
    if (!block.empty())
        SetLastError(ERROR_SUCCESS);
    return static_cast<DWORD>(block.size());
} catch (const std::bad_alloc&) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return 0;
}

BOOL GetFileVersionInfoW(LPCWSTR name, DWORD, DWORD size, LPVOID data) try {
    if (data == nullptr)
        return FailWith(ERROR_INVALID_DATA);
    const std::vector<BYTE> block = ReadVersionResource(name);
    if (block.empty())
        return FALSE;
    // Even for a cut resource, the length covers only existing bytes, and the zeros follow them.
    const std::size_t fits = std::min<std::size_t>(size, block.size());
    const WORD length = static_cast<WORD>(fits > kTailSize ? fits - kTailSize : 0);
    std::memset(data, 0, fits);
    std::memcpy(data, block.data(), length);
    std::memcpy(data, &length, std::min(fits, sizeof length));
    SetLastError(ERROR_SUCCESS);
    return TRUE;
} catch (const std::bad_alloc&) {
    return FailWith(ERROR_NOT_ENOUGH_MEMORY);
}

BOOL VerQueryValueW(LPCVOID block, LPCWSTR path, LPVOID* value, PUINT length) {
    if (block == nullptr)
        return FALSE;
    WORD size;
    std::memcpy(&size, block, sizeof size);
    const std::span<const BYTE> bytes(static_cast<const BYTE*>(block), size);
    const auto found = FindVersionValue(bytes, path != nullptr ? path : u"");
    const std::size_t unit = found && found->isText ? sizeof(WCHAR) : 1;
    if (length != nullptr)
        *length = static_cast<UINT>(found ? found->bytes.size() / unit : 0);
    if (!found)
        return FailWith(ERROR_RESOURCE_TYPE_NOT_FOUND);
    *value = const_cast<BYTE*>(found->bytes.data());
    return TRUE;
}

} // namespace quorvel::win32
