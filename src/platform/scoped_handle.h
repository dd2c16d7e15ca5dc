// ScopedHandle: a handle that is closed at the end of its owner.
#pragma once

#include <quorvel/platform/platform.h>

#include <utility>

namespace quorvel {

class ScopedHandle {
public:
    ScopedHandle() = default;
    // INVALID_HANDLE_VALUE, by which CreateFileW says that it failed, counts as no handle.
    explicit ScopedHandle(HANDLE handle)
        : m_handle(handle != INVALID_HANDLE_VALUE ? handle : nullptr) {}
    ScopedHandle(ScopedHandle&& other) noexcept
        : m_handle(std::exchange(other.m_handle, nullptr)) {}
    ScopedHandle& operator=(ScopedHandle&& other) noexcept {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~ScopedHandle() { Close(); }

    bool IsValid() const { return m_handle != nullptr; }
    HANDLE Get() const { return m_handle; } // null when there is none
    // False when the system refuses, or when there is no handle; afterwards there is none.
    bool Close() {
        using namespace win32;
        const HANDLE handle = std::exchange(m_handle, nullptr);
        return handle != nullptr && CloseHandle(handle) != FALSE;
    }

private:
    HANDLE m_handle = nullptr;
};

} // namespace quorvel
