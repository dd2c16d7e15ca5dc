// ASCII digits.
#pragma once

namespace quorvel {

template <class Ch>
constexpr bool IsDigit(Ch character) {
    return character >= '0' && character <= '9';
}

constexpr int kMaximumRadix = 36;

// The value of a digit in the largest radix, otherwise that radix. Case does not matter.
template <class Ch>
constexpr int DigitValue(Ch character) {
    if (IsDigit(character))
        return character - '0';
    const int letter = character | 0x20; // converted to lower case
    return letter >= 'a' && letter <= 'z' ? letter - 'a' + 10 : kMaximumRadix;
}

} // namespace quorvel
