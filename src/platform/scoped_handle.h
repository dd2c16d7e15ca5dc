// ScopedHandle owns a handle and closes it.
#pragma once

#include <quorvel/platform/platform.h>

#include <utility>

namespace quorvel {

class ScopedHandle {
public:
    ScopedHandle() = default;
    // INVALID_HANDLE_VALUE, which CreateFileW returns on failure, means no handle.
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
    HANDLE Get() const { return m_handle; } // null without a handle
    // Returns false when the system refuses, or without a handle. Afterwards there is no handle.
    bool Close() {
        using namespace win32;
        const HANDLE handle = std::exchange(m_handle, nullptr);
        return handle != nullptr && CloseHandle(handle) != FALSE;
    }

private:
    HANDLE m_handle = nullptr;
};

} // namespace quorvel
