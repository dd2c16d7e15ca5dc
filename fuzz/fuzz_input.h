// Reading a fuzz input as numbers, and stopping where a promise is broken.
#pragma once

#include <quorvel/platform/platform.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

// Not assert(): the replays of a release build check as well.
inline void Require(bool holds) {
    if (!holds)
        std::abort();
}

typedef std::basic_string<WCHAR> WideText;

inline WideText Widened(const std::string& text) {
    WideText wide;
    for (const char character : text)
        wide += static_cast<WCHAR>(static_cast<unsigned char>(character));
    return wide;
}

// Past the end there are zeros.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : m_data(data), m_end(data + size) {}

    std::uint8_t Byte() { return m_data != m_end ? *m_data++ : std::uint8_t{0}; }

    template <class Number>
    Number Value() {
        Number number;
        std::uint8_t bytes[sizeof number];
        for (std::uint8_t& next : bytes)
            next = Byte();
        std::memcpy(&number, bytes, sizeof number);
        return number;
    }

    // All bytes that are left, up to a zero.
    std::string Rest() const { return std::string(std::string(m_data, m_end).c_str()); }

private:
    const std::uint8_t* m_data;
    const std::uint8_t* m_end;
};
