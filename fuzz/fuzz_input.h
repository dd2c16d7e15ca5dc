// Reads a fuzz input as numbers, and aborts when a promise is broken.
#pragma once

#include <quorvel/platform/platform.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

// Not assert(): the replays of a release build must check as well.
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

// A format whose arguments are all texts: without stars, which would read an address as a width,
// and without long numbers, which only take time.
inline std::string WithoutWideForms(std::string format, int mostDigits) {
    format.resize(std::min<std::size_t>(format.size(), 96));
    int digits = 0;
    for (char& character : format) {
        digits = character >= '0' && character <= '9' ? digits + 1 : 0;
        if (character == '*' || digits > mostDigits)
            character = '.';
    }
    return format;
}

// Returns zeros after the end.
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

    // All remaining bytes, and those up to a zero.
    std::string Bytes() const { return std::string(m_data, m_end); }
    std::string Rest() const { return std::string(Bytes().c_str()); }
    // All remaining bytes on the heap, so that a sanitizer finds overruns.
    std::vector<BYTE> Block() const { return std::vector<BYTE>(m_data, m_end); }
    // The same as UTF-16, with one additional unit, which is 0.
    std::vector<WCHAR> Units() const {
        std::vector<WCHAR> units(static_cast<std::size_t>(m_end - m_data) / sizeof(WCHAR) + 1);
        const std::string bytes = Bytes(); // memcpy needs a valid pointer even for size 0
        std::memcpy(units.data(), bytes.data(), (units.size() - 1) * sizeof(WCHAR));
        return units;
    }

private:
    const std::uint8_t* m_data;
    const std::uint8_t* m_end;
};

// The head of a target's function.
#define FUZZ_TARGET(input)                                                                         \
    static void Fuzz(FuzzInput input);                                                             \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {            \
        Fuzz({data, size});                                                                        \
        return 0;                                                                                  \
    }                                                                                              \
    static void Fuzz(FuzzInput input)
