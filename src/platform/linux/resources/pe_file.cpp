#include "platform/linux/resources/pe_file.h"

#include "platform/scoped_handle.h"

#include <algorithm>
#include <new>

namespace quorvel {

using namespace win32;

namespace {

constexpr DWORD kMaximumSection = 1u << 30;

DWORD ReadAt(HANDLE file, LONGLONG position, std::span<BYTE> bytes) {
    LARGE_INTEGER distance;
    distance.QuadPart = position;
    DWORD read = 0;
    if (!SetFilePointerEx(file, distance, nullptr, FILE_BEGIN) ||
        !ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr))
        return GetLastError();
    return read == bytes.size() ? ERROR_SUCCESS : ERROR_BAD_EXE_FORMAT;
}

} // namespace

DWORD ReadPeFile(const WCHAR* name, PeFile& file) {
    const ScopedHandle handle(CreateFileW(name, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                          nullptr, OPEN_EXISTING, 0, nullptr));
    LARGE_INTEGER size;
    if (!handle.IsValid() || !GetFileSizeEx(handle.Get(), &size))
        return GetLastError();
    if (size.QuadPart == 0)
        return ERROR_FILE_INVALID; // the file cannot be mapped into memory

    BYTE start[kPeHeadSize];
    const auto startSize = std::min<LONGLONG>(size.QuadPart, kPeHeadSize);
    const std::span<BYTE> bytes(start, static_cast<std::size_t>(startSize));
    if (const DWORD error = ReadAt(handle.Get(), 0, bytes))
        return error;
    const auto head = ReadPeHead(bytes);
    if (!head)
        return ERROR_BAD_EXE_FORMAT;
    const PeSection& section = head->resources;
    // Before allocating: a short file may claim any size.
    if (section.size > size.QuadPart || section.fileOffset > size.QuadPart - section.size)
        return ERROR_BAD_EXE_FORMAT;
    if (section.size > kMaximumSection)
        return ERROR_NOT_ENOUGH_MEMORY;
    try {
        file.section.resize(section.size);
    } catch (const std::bad_alloc&) {
        return ERROR_NOT_ENOUGH_MEMORY;
    }
    file.head = *head;
    return ReadAt(handle.Get(), section.fileOffset, file.section);
}

} // namespace quorvel
