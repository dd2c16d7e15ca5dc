// The classes of characters that the tokenizer of CMarkup distinguishes.
#pragma once

#include <quorvel/platform/platform.h>

#include <array>
#include <cstdint>

namespace quorvel {

enum CharacterClass : std::uint8_t {
    kClassSpace = 1,     // blank, tab, line feed, carriage return
    kClassDelimiter = 2, // ends a token: white space and < > = \ / ? !
    kClassEnd = 4,       // the terminating zero
};

inline constexpr std::array<std::uint8_t, 128> kCharacterClasses = [] {
    std::array<std::uint8_t, 128> classes{};
    for (const char c : {' ', '\t', '\n', '\r'})
        classes[static_cast<unsigned char>(c)] = kClassSpace | kClassDelimiter;
    for (const char c : {'<', '>', '=', '\\', '/', '?', '!'})
        classes[static_cast<unsigned char>(c)] = kClassDelimiter;
    classes[0] = kClassEnd;
    return classes;
}();

inline bool IsClass(WCHAR character, unsigned classes) {
    return character < 128 && (kCharacterClasses[character] & classes) != 0;
}

} // namespace quorvel
