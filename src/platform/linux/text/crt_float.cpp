// std::to_chars computes exact digits. This code adds the differences of the Windows runtime:
//
//   exact ties     round away from zero, 2.5 to 3 (the C library rounds half to even)
//   exponents      at least three digits, 1e+020
//   infinities     "1.#INF", not-a-number "1.#QNAN", with the sign bit "1.#IND". They count as a
//                  leading 1 and decimals: zeros extend them, and the precision cuts and rounds
//                  them by character code, so that %.2f of infinity is 1.#J
//   %a             13 decimals by default; a rounded leading digit may be 2
#include "platform/linux/text/crt_float.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace quorvel::crt {

namespace {

constexpr int kMaximumDigits = 767; // significant digits of a double
constexpr int kFractionBits = 52;

// Whether the value is exactly between two numbers with that many decimals (negative: tens,
// hundreds, ...). For odd * 2^e this means that e is -decimals - 1 and 5^-decimals divides odd.
bool IsTie(double magnitude, int decimals) {
    if (magnitude == 0)
        return false;
    int exponent = 0;
    auto mantissa = static_cast<std::uint64_t>(std::ldexp(std::frexp(magnitude, &exponent), 53));
    const int zeros = std::countr_zero(mantissa);
    mantissa >>= zeros;
    if (exponent - 53 + zeros != -decimals - 1)
        return false;
    for (int tens = -decimals; tens > 0; --tens, mantissa /= 5)
        if (mantissa % 5 != 0)
            return false;
    return true;
}

// Adds one to the last digit. Returns true when all digits were nines and are now zeros.
bool Increment(char* first, char* last) {
    while (last-- != first) {
        if (*last == '.')
            continue;
        if (*last != '9') {
            ++*last;
            return false;
        }
        *last = '0';
    }
    return true;
}

char* Print(FloatText& text, double magnitude, std::chars_format format, int decimals) {
    return std::to_chars(text.digits, std::end(text.digits), magnitude, format, decimals).ptr;
}

void WriteFixed(FloatText& text, double magnitude, int decimals) {
    const bool tie = IsTie(magnitude, decimals);
    char* end = Print(text, magnitude, std::chars_format::fixed, decimals + tie);
    if (tie) {
        end -= decimals == 0 ? 2 : 1; // removes the final 5, and a point before it
        if (Increment(text.digits, end)) {
            std::memmove(text.digits + 1, text.digits, static_cast<std::size_t>(end - text.digits));
            text.digits[0] = '1';
            ++end;
        }
    }
    text.digitCount = static_cast<std::size_t>(end - text.digits);
}

// Splits d.ddde+XX: removes the exponent from the text and returns it.
int SplitExponent(FloatText& text, char* end) {
    char* const letter = std::find(text.digits, end, 'e');
    text.digitCount = static_cast<std::size_t>(letter - text.digits);
    int exponent = 0;
    std::from_chars(letter + (letter[1] == '+' ? 2 : 1), end, exponent);
    return exponent;
}

// Returns the exponent; the caller writes it.
int WriteScientific(FloatText& text, double magnitude, int decimals) {
    const auto format = std::chars_format::scientific;
    int exponent = SplitExponent(text, Print(text, magnitude, format, decimals));
    // If to_chars has rounded up to the next power of ten, the exponent is too large by one here.
    // The value then has more digits than a tie, so the test is false, as it must be.
    if (!IsTie(magnitude, decimals - exponent))
        return exponent;
    exponent = SplitExponent(text, Print(text, magnitude, format, decimals + 1));
    text.digitCount -= decimals == 0 ? 2 : 1;
    if (Increment(text.digits, text.digits + text.digitCount)) {
        text.digits[0] = '1';
        ++exponent;
    }
    return exponent;
}

void SetDecimalExponent(FloatText& text, int exponent) {
    std::snprintf(text.exponent, sizeof text.exponent, "e%c%03d", exponent < 0 ? '-' : '+',
                  std::abs(exponent));
}

void AddPoint(FloatText& text) {
    text.digits[text.digitCount++] = '.';
}

// Converts d.ddd with an exponent that all its digits reach to the plain number.
void MovePoint(FloatText& text, int exponent) {
    char* const digits = text.digits;
    char* end = digits + text.digitCount;
    if (end > digits + 1)
        end = std::copy(digits + 2, end, digits + 1);
    if (exponent < 0) {
        const int shift = 1 - exponent; // the point and the zeros around it
        std::copy_backward(digits, end, end + shift);
        std::fill_n(digits, shift, '0');
        digits[1] = '.';
        end += shift;
    } else if (char* const point = digits + exponent + 1; point < end) {
        std::copy_backward(point, end, end + 1);
        *point = '.';
        ++end;
    }
    text.digitCount = static_cast<std::size_t>(end - digits);
}

void WriteGeneral(FloatText& text, double magnitude, int precision, bool alternate) {
    precision = std::max(precision, 1);
    const int written = std::min(precision, kMaximumDigits);
    const int exponent = WriteScientific(text, magnitude, written - 1);
    if (exponent < -4 || exponent >= precision)
        SetDecimalExponent(text, exponent);
    else
        MovePoint(text, exponent);
    const bool hasPoint =
        std::string_view(text.digits, text.digitCount).find('.') != std::string_view::npos;
    if (alternate) {
        if (!hasPoint)
            AddPoint(text);
        text.zeroCount = precision - written;
        return;
    }
    if (!hasPoint)
        return;
    while (text.digits[text.digitCount - 1] == '0')
        --text.digitCount;
    if (text.digits[text.digitCount - 1] == '.')
        --text.digitCount;
}

void WriteHex(FloatText& text, double magnitude, int precision, bool alternate) {
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    const auto stored = static_cast<int>(bits >> kFractionBits);
    std::uint64_t mantissa = bits & ((std::uint64_t{1} << kFractionBits) - 1);
    int exponent = stored - 1023;
    if (stored != 0)
        mantissa |= std::uint64_t{1} << kFractionBits;
    else
        exponent = mantissa == 0 ? 0 : -1022;

    const int decimals = std::min(precision, kFractionBits / 4);
    if (const int dropped = kFractionBits - 4 * decimals; dropped > 0)
        mantissa = (mantissa + (std::uint64_t{1} << (dropped - 1))) >> dropped;
    text.digits[0] = static_cast<char>('0' + (mantissa >> (4 * decimals)));
    text.digitCount = 1;
    if (precision > 0 || alternate)
        AddPoint(text);
    for (int place = decimals - 1; place >= 0; --place)
        text.digits[text.digitCount++] = "0123456789abcdef"[mantissa >> (4 * place) & 15];
    text.zeroCount = precision - decimals;
    std::snprintf(text.exponent, sizeof text.exponent, "p%+d", exponent);
}

void WriteNonFinite(FloatText& text, double value, char type, int precision) {
    std::string_view name = "#INF";
    if (std::isnan(value))
        name = std::signbit(value) ? "#IND" : "#QNAN";
    // Deliberate: for %g a precision of 0 does not cut, although for a number it counts as 1.
    auto decimals = static_cast<std::size_t>(precision);
    if (type == 'g')
        decimals = precision == 0 ? name.size() : decimals - 1;
    else if (decimals > name.size())
        text.zeroCount = static_cast<long long>(decimals - name.size());
    text.digits[0] = '1';
    text.digitCount = 1;
    if (decimals > 0)
        AddPoint(text);
    const std::string_view kept = name.substr(0, decimals);
    text.digitCount += kept.copy(text.digits + text.digitCount, kept.size());
    if (kept.size() < name.size() && name[kept.size()] >= '5')
        ++text.digits[text.digitCount - 1];
    if (type == 'e')
        SetDecimalExponent(text, 0);
    else if (type == 'a')
        std::strcpy(text.exponent, "p+0");
}

} // namespace

void WriteFloat(FloatText& text, double value, char type, int precision, bool alternate) {
    if (precision < 0)
        precision = type == 'a' ? kFractionBits / 4 : 6;
    const double magnitude = std::fabs(value);
    if (!std::isfinite(value))
        return WriteNonFinite(text, value, type, precision);
    if (type == 'a')
        return WriteHex(text, magnitude, precision, alternate);
    if (type == 'g')
        return WriteGeneral(text, magnitude, precision, alternate);

    const bool fixed = type == 'f';
    const int written = std::min(precision, fixed ? text.kMaximumDecimals : kMaximumDigits - 1);
    if (fixed)
        WriteFixed(text, magnitude, written);
    else
        SetDecimalExponent(text, WriteScientific(text, magnitude, written));
    text.zeroCount = precision - written;
    if (precision == 0 && alternate)
        AddPoint(text);
}

} // namespace quorvel::crt
