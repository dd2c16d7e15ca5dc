// The converters behind MultiByteToWideChar and WideCharToMultiByte, one class a family of code
// pages.
//
// A converter is stateless and immutable: any thread may call it. It writes to an Output, which
// counts when it has no buffer, and returns ERROR_SUCCESS, ERROR_INSUFFICIENT_BUFFER (what fitted
// has been written) or ERROR_NO_UNICODE_TRANSLATION (what preceded has been written).
#pragma once

#include <quorvel/platform/linux_types.h>

#include "platform/linux/text/ascii_run.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace quorvel {

template <class Unit>
class Output {
public:
    // A null buffer counts without a limit.
    Output(Unit* units, std::size_t capacity)
        : m_units(units), m_capacity(units != nullptr ? capacity : SIZE_MAX) {}

    std::size_t Count() const { return m_count; }
    std::size_t Room() const { return m_capacity - m_count; }

    [[nodiscard]] bool Put(Unit unit) {
        if (m_count == m_capacity)
            return false;
        if (m_units != nullptr)
            m_units[m_count] = unit;
        ++m_count;
        return true;
    }
    // All of them or none: half a character is never written.
    [[nodiscard]] bool Put(const Unit* units, std::size_t count) {
        if (Room() < count)
            return false;
        for (std::size_t i = 0; i < count && m_units != nullptr; ++i)
            m_units[m_count + i] = units[i];
        m_count += count;
        return true;
    }
    // Widens or narrows the ASCII characters at the start of `source` that there is room for, and
    // returns how many they were.
    template <class Source>
    std::size_t PutAscii(std::span<const Source> source);

    // For who tests the room once and then writes many units: where the next one goes (null while
    // only counting), and that there are `count` more.
    Unit* Next() const { return m_units != nullptr ? m_units + m_count : nullptr; }
    void Advance(std::size_t count) { m_count += count; }

private:
    Unit* m_units;
    std::size_t m_capacity;
    std::size_t m_count = 0;
};

typedef Output<WCHAR> WideOutput;
typedef Output<char> ByteOutput;
typedef std::span<const BYTE> Bytes;
typedef std::span<const WCHAR> WideText;

// How a character that the code page does not have is written, and what was found.
struct Substitution {
    WORD defaultChar = 0; // one byte, or a double-byte character with its lead byte on top
    bool bestFit = true;
    bool used = false; // set by the converter
};

// UTF-8. Not strict: each ill-formed sequence becomes U+FFFD, each lone surrogate EF BF BD.
DWORD DecodeUtf8(Bytes bytes, bool strict, WideOutput& output);
DWORD EncodeUtf8(WideText text, bool strict, ByteOutput& output);

// UTF-7 (RFC 2152). A byte above 0x7F is the character of the same number; nothing is refused.
DWORD DecodeUtf7(Bytes bytes, WideOutput& output);
DWORD EncodeUtf7(WideText text, ByteOutput& output);

template <class Unit>
template <class Source>
std::size_t Output<Unit>::PutAscii(std::span<const Source> source) {
    const std::size_t limit = source.size() < Room() ? source.size() : Room();
    std::size_t count = 0;
    if (m_units != nullptr)
        count = CopyAscii(source.data(), m_units + m_count, limit);
    else
        while (count < limit && source[count] < 0x80)
            ++count;
    m_count += count;
    return count;
}

} // namespace quorvel
