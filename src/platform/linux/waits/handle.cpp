#include "platform/linux/waits/handle.h"

#include "platform/linux/slot_table.h"

#include <cstdint>
#include <mutex>
#include <new>
#include <utility>

namespace quorvel {

namespace {

// As on Windows, a handle is a multiple of 4, but never 0 or INVALID_HANDLE_VALUE.
constexpr int kIndexBits = 24;
constexpr UINT_PTR kIndexMask = (UINT_PTR{1} << kIndexBits) - 1;
constexpr std::uint32_t kLastGeneration = 0xffffffff;
using Table = SlotTable<std::shared_ptr<HandleObject>, kLastGeneration>;

HANDLE HandleOf(Table::Key key) {
    return reinterpret_cast<HANDLE>((UINT_PTR{key.generation} << kIndexBits | (key.index + 1))
                                    << 2);
}

Table::Key KeyOf(HANDLE handle) { // an invalid handle finds nothing
    const UINT_PTR number = reinterpret_cast<UINT_PTR>(handle) >> 2;
    const Table::Key key = {(number & kIndexMask) - 1,
                            static_cast<std::uint32_t>(number >> kIndexBits)};
    return HandleOf(key) == handle ? key : Table::Key{SIZE_MAX, 0};
}

struct Handles {
    std::mutex mutex;
    Table table;
};

// Never destroyed: a host's static objects may close their handles after ours are destroyed.
Handles& All() {
    static Handles& handles = *new Handles;
    return handles;
}

} // namespace

HANDLE NewHandle(std::shared_ptr<HandleObject> object) {
    try {
        const std::lock_guard lock(All().mutex);
        if (All().table.Count() < kIndexMask)
            return HandleOf(All().table.Insert(std::move(object)));
    } catch (const std::bad_alloc&) {
    }
    win32::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
}

std::shared_ptr<HandleObject> FindHandle(HANDLE handle) {
    {
        const std::lock_guard lock(All().mutex);
        if (const auto* const object = All().table.Find(KeyOf(handle)); object != nullptr)
            return *object;
    }
    win32::SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

} // namespace quorvel

namespace quorvel::win32 {

BOOL CloseHandle(HANDLE handle) {
    if (handle == GetCurrentProcess())
        return TRUE;                      // a pseudo handle needs no closing
    std::shared_ptr<HandleObject> object; // destroyed outside the lock, as it may take long
    {
        const std::lock_guard lock(All().mutex);
        object = All().table.Remove(KeyOf(handle));
    }
    if (object != nullptr)
        return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}

HANDLE GetCurrentProcess() {
    return INVALID_HANDLE_VALUE;
}

BOOL DuplicateHandle(HANDLE sourceProcess, HANDLE source, HANDLE targetProcess, HANDLE* target,
                     DWORD, BOOL, DWORD options) {
    if (sourceProcess != GetCurrentProcess() || targetProcess != GetCurrentProcess()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    if (target == nullptr || !(options & DUPLICATE_SAME_ACCESS)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    std::shared_ptr<HandleObject> object = FindHandle(source);
    if (object == nullptr)
        return FALSE;
    const HANDLE duplicate = NewHandle(std::move(object));
    if (duplicate == nullptr)
        return FALSE;
    *target = duplicate;
    return TRUE;
}

} // namespace quorvel::win32
