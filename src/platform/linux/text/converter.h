// An ICU converter: builds the code page tables, and converts the code pages that have no table
// because their texts have shift states or more than two bytes for a character.
#pragma once

#include "platform/linux/text/code_page.h"

#include <memory>

struct UConverter;

namespace quorvel {

class Converter {
public:
    // By ICU's name. Check IsOpen: this ICU may lack the converter.
    explicit Converter(const char* name);

    bool IsOpen() const { return m_converter != nullptr; }

    struct Single {
        bool isFound; // exactly one unit
        bool isCut;   // more bytes are needed
        WCHAR unit;
    };
    Single DecodeSingle(Bytes bytes);

    // Unless strict, undefined input becomes U+FFFD.
    DWORD Decode(Bytes bytes, bool strict, WideOutput& output);
    // Strict refuses a lone surrogate. For a default character of 0 the converter chooses it.
    DWORD Encode(WideText text, bool strict, Substitution& substitution, ByteOutput& output);

private:
    struct Close {
        void operator()(UConverter* converter) const;
    };
    std::unique_ptr<UConverter, Close> m_converter;
};

// The name of the converter for a code page without a table, or null.
const char* FindConverter(UINT codePage);

} // namespace quorvel
