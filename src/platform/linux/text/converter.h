// An ICU converter: the source of the code page tables, and the codec of those pages that no table
// holds, because their texts have shift states or more than two bytes a character.
#pragma once

#include "platform/linux/text/code_page.h"

#include <memory>

struct UConverter;

namespace quorvel {

class Converter {
public:
    // By ICU's name. It may be closed afterwards, where this ICU lacks it.
    explicit Converter(const char* name);

    bool IsOpen() const { return m_converter != nullptr; }

    struct Single {
        bool isFound; // exactly one unit
        bool isCut;   // more bytes are needed
        WCHAR unit;
    };
    Single DecodeSingle(Bytes bytes);

    // Not strict: what has no meaning becomes U+FFFD.
    DWORD Decode(Bytes bytes, bool strict, WideOutput& output);
    // Strict: a lone surrogate is refused. A default character of 0 leaves it to the converter.
    DWORD Encode(WideText text, bool strict, Substitution& substitution, ByteOutput& output);

private:
    struct Close {
        void operator()(UConverter* converter) const;
    };
    std::unique_ptr<UConverter, Close> m_converter;
};

// The name of the converter that serves a code page without a table, or null.
const char* FindConverter(UINT codePage);

} // namespace quorvel
