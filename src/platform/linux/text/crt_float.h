// The digits of a floating-point conversion as the Windows runtime prints them, in any locale.
#pragma once

#include <cstddef>

namespace quorvel::crt {

// A number without its sign and 0x: the digits, then this number of zeros, then the exponent.
struct FloatText {
    static constexpr int kMaximumDecimals = 1074; // a double has no more decimals
    char digits[309 + 1 + kMaximumDecimals + 16];
    std::size_t digitCount = 0;
    long long zeroCount = 0;
    char exponent[16] = ""; // e+000 or p+0, or empty
};

// `type` is e, f, g or a. A negative precision means the default (6, for a 13). `alternate` keeps
// the point and, for g, trailing zeros.
void WriteFloat(FloatText& text, double value, char type, int precision, bool alternate);

} // namespace quorvel::crt
