// The converters for MultiByteToWideChar and WideCharToMultiByte, one class for each family of code
// pages.
//
// A converter is stateless and immutable: any thread may call it. It writes to an Output, which
// only counts when it has no buffer. It returns ERROR_SUCCESS, or, after writing what came before,
// ERROR_INSUFFICIENT_BUFFER or ERROR_NO_UNICODE_TRANSLATION.
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
    // With a null buffer it counts without limit.
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
    // Writes all units or no unit, never half a character.
    [[nodiscard]] bool Put(const Unit* units, std::size_t count) {
        if (Room() < count)
            return false;
        for (std::size_t i = 0; i < count && m_units != nullptr; ++i)
            m_units[m_count + i] = units[i];
        m_count += count;
        return true;
    }
    // Widens or narrows the ASCII characters at the start of `source` that fit, and returns their
    // number.
    template <class Source>
    std::size_t PutAscii(std::span<const Source> source);

    // For code that checks the room once and then writes many units. Next is the address for the
    // next unit (null when only counting), and Advance adds `count` units.
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

// Input and result of replacing characters that the code page lacks.
struct Substitution {
    WORD defaultChar = 0; // one byte, or a double-byte character with its lead byte on top
    bool bestFit = true;
    bool used = false; // set by the converter
};

// UTF-8. Unless strict, each ill-formed sequence becomes U+FFFD, each lone surrogate EF BF BD.
DWORD DecodeUtf8(Bytes bytes, bool strict, WideOutput& output);
DWORD EncodeUtf8(WideText text, bool strict, ByteOutput& output);

// UTF-7 (RFC 2152). A byte above 0x7F becomes the character with its number; no input is refused.
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
