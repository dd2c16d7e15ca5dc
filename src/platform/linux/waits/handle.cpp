#include "platform/linux/waits/handle.h"

#include <mutex>
#include <new>
#include <utility>
#include <vector>

namespace quorvel {

namespace {

// A slot's generation grows whenever its handle is closed. A handle is a multiple of 4, as on
// Windows, never 0 and never INVALID_HANDLE_VALUE.
constexpr int kIndexBits = 24;

class HandleTable {
public:
    HANDLE Insert(std::shared_ptr<HandleObject> object) {
        const std::lock_guard lock(m_mutex);
        if (m_free.empty()) {
            if (m_slots.size() + 1 >= std::size_t{1} << kIndexBits)
                return nullptr;
            m_free.reserve(m_slots.size() + 1); // so that Remove cannot fail
            m_slots.emplace_back();
            m_free.push_back(m_slots.size() - 1);
        }
        const std::size_t index = m_free.back();
        m_free.pop_back();
        m_slots[index].object = std::move(object);
        return HandleOf(index);
    }

    std::shared_ptr<HandleObject> Find(HANDLE handle) const {
        const std::lock_guard lock(m_mutex);
        const std::size_t index = IndexOf(handle);
        return index < m_slots.size() && HandleOf(index) == handle ? m_slots[index].object
                                                                   : nullptr;
    }

    std::shared_ptr<HandleObject> Remove(HANDLE handle) {
        const std::lock_guard lock(m_mutex);
        const std::size_t index = IndexOf(handle);
        if (index >= m_slots.size() || HandleOf(index) != handle)
            return nullptr;
        std::shared_ptr<HandleObject> object = std::move(m_slots[index].object);
        if (object != nullptr) {
            ++m_slots[index].generation;
            m_free.push_back(index);
        }
        return object;
    }

private:
    struct Slot {
        std::shared_ptr<HandleObject> object;
        std::uint32_t generation = 0;
    };

    static std::size_t IndexOf(HANDLE handle) { // of no slot for 0
        const std::size_t number = reinterpret_cast<UINT_PTR>(handle) >> 2;
        return (number & ((std::size_t{1} << kIndexBits) - 1)) - 1;
    }
    HANDLE HandleOf(std::size_t index) const {
        const UINT_PTR generation = m_slots[index].generation;
        return reinterpret_cast<HANDLE>((generation << kIndexBits | (index + 1)) << 2);
    }

    mutable std::mutex m_mutex;
    std::vector<Slot> m_slots;
    std::vector<std::size_t> m_free;
};

// Never destroyed: static objects of a host may close their handles after ours have gone.
HandleTable& Table() {
    static HandleTable& table = *new HandleTable;
    return table;
}

} // namespace

HANDLE NewHandle(std::shared_ptr<HandleObject> object) {
    HANDLE handle = nullptr;
    try {
        handle = Table().Insert(std::move(object));
    } catch (const std::bad_alloc&) {
    }
    if (handle == nullptr)
        win32::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return handle;
}

std::shared_ptr<HandleObject> FindHandle(HANDLE handle) {
    auto object = Table().Find(handle);
    if (object == nullptr)
        win32::SetLastError(ERROR_INVALID_HANDLE);
    return object;
}

} // namespace quorvel

namespace quorvel::win32 {

BOOL CloseHandle(HANDLE handle) {
    if (handle == GetCurrentProcess())
        return TRUE; // a pseudo handle: nothing to close
    // The object goes outside the table's lock: its destructor may take its time.
    if (Table().Remove(handle) != nullptr)
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
