#include "platform/linux/text/crt.h"

#include "platform/linux/text/crt_conversion.h"

#include <limits>

namespace quorvel::win32 {

namespace {

using namespace quorvel::crt;

void FetchStars(Conversion& conversion, ArgumentList& list) {
    if (conversion.widthIsArgument)
        conversion.SetWidth(va_arg(list.values, int));
    if (conversion.precisionIsArgument)
        conversion.SetPrecision(va_arg(list.values, int));
}

template <class Ch>
void PrintAll(Output<Ch>& output, const Ch* format, ArgumentList& list) {
    while (*format != 0 && !output.HasFailed()) {
        if (*format != '%') {
            const Ch* const text = format;
            while (*format != 0 && *format != '%')
                ++format;
            output.Append(text, static_cast<std::size_t>(format - text));
            continue;
        }
        if (format[1] == '%') {
            output.Fill('%', 1);
            format += 2;
            continue;
        }
        Conversion conversion;
        format = ScanConversion(format + 1, conversion);
        FetchStars(conversion, list);
        // Deliberate: for an unknown conversion only the percent sign, flags and numbers are
        // dropped, like in the Windows runtime. The text continues where the scan stopped.
        if (conversion.type != 0)
            PrintConversion(output, conversion, FetchArgument(list, TypeOfArgument(conversion)));
    }
}

template <class Ch>
int Format(Ch* text, std::size_t size, const Ch* format, va_list arguments) {
    if (format == nullptr)
        return -1;
    Output<Ch> output(text, size);
    ArgumentList list;
    va_copy(list.values, arguments);
    PrintAll(output, format, list);
    va_end(list.values);
    const std::size_t length = output.GetLength();
    if (output.HasFailed() || (text != nullptr && length > size))
        return -1;
    if (text != nullptr && length < size)
        text[length] = 0;
    return static_cast<int>(length);
}

// The zeros of the decimal digits that the runtime accepts; digits 1 to 9 follow each.
constexpr WCHAR kDigitZeros[] = {0x0030, 0x0660, 0x06f0, 0x0966, 0x09e6, 0x0a66,
                                 0x0ae6, 0x0b66, 0x0c66, 0x0ce6, 0x0d66, 0x0e50,
                                 0x0ed0, 0x0f20, 0x1040, 0x17e0, 0x1810, 0xff10};

// The digit's value, or a value beyond every base.
int DigitValue(WCHAR character) {
    if (character >= 'a' && character <= 'z')
        return character - 'a' + 10;
    if (character >= 'A' && character <= 'Z')
        return character - 'A' + 10;
    for (const WCHAR zero : kDigitZeros)
        if (character >= zero && character <= zero + 9)
            return character - zero;
    return std::numeric_limits<int>::max();
}

bool IsSpace(WCHAR character) {
    return (character >= '\t' && character <= '\r') || character == ' ' || character == 0x00a0 ||
           character == 0x1680 || (character >= 0x2000 && character <= 0x200a) ||
           character == 0x2028 || character == 0x2029 || character == 0x202f ||
           character == 0x205f || character == 0x3000;
}

// Resolves base 0 and skips 0x. Deliberate: 0x without a digit is not a number, although 0 alone
// would be one.
const WCHAR* ScanBase(const WCHAR* text, int& base) {
    const bool hexadecimal = text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    if ((base == 0 || base == 16) && hexadecimal) {
        base = 16;
        return text + 2;
    }
    if (base == 0)
        base = text[0] == '0' ? 8 : 10;
    return text;
}

} // namespace

int _vscwprintf(const WCHAR* format, va_list arguments) {
    return Format<WCHAR>(nullptr, 0, format, arguments);
}
int _vscprintf(const char* format, va_list arguments) {
    return Format<char>(nullptr, 0, format, arguments);
}
int _vsnwprintf(WCHAR* text, std::size_t size, const WCHAR* format, va_list arguments) {
    return Format(text, size, format, arguments);
}
int _vsnprintf(char* text, std::size_t size, const char* format, va_list arguments) {
    return Format(text, size, format, arguments);
}

__int64 _wcstoi64(const WCHAR* text, WCHAR** end, int base) {
    if (text == nullptr || base < 0 || base == 1 || base > 36)
        return 0;
    const WCHAR* position = text;
    while (IsSpace(*position))
        ++position;
    const bool negative = *position == '-';
    if (negative || *position == '+')
        ++position;
    position = ScanBase(position, base);

    constexpr __int64 minimum = std::numeric_limits<__int64>::min();
    const WCHAR* const digits = position;
    __int64 value = 0; // counts downwards, because the range has one more negative number
    bool saturated = false;
    for (int digit; (digit = DigitValue(*position)) < base; ++position) {
        saturated = saturated || value < (minimum + digit) / base;
        value = saturated ? minimum : value * base - digit;
    }
    if (end != nullptr)
        *end = const_cast<WCHAR*>(position == digits ? text : position);
    if (negative)
        return value;
    return value == minimum ? std::numeric_limits<__int64>::max() : -value;
}

} // namespace quorvel::win32
