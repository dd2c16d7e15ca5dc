// ScopedKey owns an open registry key and closes it.
#pragma once

#include "platform/win32.h"

#include <utility>

namespace quorvel {

class ScopedKey {
public:
    ScopedKey() = default;
    explicit ScopedKey(HKEY key) : m_key(key) {}
    ScopedKey(ScopedKey&& other) noexcept : m_key(std::exchange(other.m_key, nullptr)) {}
    ScopedKey& operator=(ScopedKey&& other) noexcept {
        std::swap(m_key, other.m_key);
        return *this;
    }
    ~ScopedKey() {
        if (m_key != nullptr)
            RegCloseKey(m_key);
    }

    HKEY Get() const { return m_key; }
    HKEY Release() { return std::exchange(m_key, nullptr); }
    // An output argument for functions that open a key. The object must be empty.
    HKEY& Receive() { return m_key; }

private:
    HKEY m_key = nullptr;
};

} // namespace quorvel
