// Closes a handle at the end of a block.
#pragma once

#include <quorvel/platform/linux_api.h>

namespace quorvel {

class ScopedHandle {
public:
    explicit ScopedHandle(HANDLE handle) : m_handle(handle) {}
    ScopedHandle(const ScopedHandle&) = delete;
    ScopedHandle& operator=(const ScopedHandle&) = delete;
    ~ScopedHandle() {
        if (IsValid())
            win32::CloseHandle(m_handle);
    }
    bool IsValid() const { return m_handle != nullptr && m_handle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return m_handle; }

private:
    HANDLE m_handle;
};

} // namespace quorvel
