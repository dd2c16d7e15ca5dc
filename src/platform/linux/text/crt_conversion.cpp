#include "platform/linux/text/crt_conversion.h"

#include "platform/linux/text/crt_float.h"

#include <cctype>
#include <cmath>
#include <string>

namespace quorvel::crt {

namespace {

// The parts of a printed number, in this order. The padding is before or after the whole, or
// consists of zeros after the prefix.
struct NumberParts {
    std::string_view prefix; // the sign and 0x
    long long leadingZeros = 0;
    std::string_view digits;
    long long trailingZeros = 0;
    std::string_view exponent;
};

template <class Ch>
void PrintNumber(Output<Ch>& output, const Conversion& conversion, const NumberParts& parts) {
    const auto ascii =
        static_cast<long long>(parts.prefix.size() + parts.digits.size() + parts.exponent.size());
    const long long padding = conversion.width - ascii - parts.leadingZeros - parts.trailingZeros;
    const bool zeroFill = conversion.zeroFill && !conversion.leftAlign;
    if (!conversion.leftAlign && !zeroFill)
        output.Fill(' ', padding);
    output.Append(parts.prefix);
    if (zeroFill)
        output.Fill('0', padding);
    output.Fill('0', parts.leadingZeros);
    output.Append(parts.digits);
    output.Fill('0', parts.trailingZeros);
    output.Append(parts.exponent);
    if (conversion.leftAlign)
        output.Fill(' ', padding);
}

std::string_view SignOf(const Conversion& conversion, bool negative) {
    if (negative)
        return "-";
    if (conversion.plus)
        return "+";
    return conversion.space ? " " : "";
}

unsigned long long UnsignedValue(const Conversion& conversion, long long value) {
    if (conversion.is64)
        return static_cast<unsigned long long>(value);
    return conversion.isShort ? static_cast<WORD>(value) : static_cast<DWORD>(value);
}

long long SignedValue(const Conversion& conversion, long long value) {
    if (conversion.is64)
        return value;
    return conversion.isShort ? static_cast<SHORT>(value) : static_cast<LONG>(value);
}

// Writes the digits so that they end at `end`; no digit for zero. Returns the first digit.
char* WriteDigits(char* end, unsigned long long value, unsigned base, bool upperCase) {
    const char* const digits = upperCase ? "0123456789ABCDEF" : "0123456789abcdef";
    for (; value != 0; value /= base)
        *--end = digits[value % base];
    return end;
}

template <class Ch>
void PrintInteger(Output<Ch>& output, const Conversion& conversion, const Argument& argument) {
    const char type = conversion.type;
    const bool isSigned = type == 'd' || type == 'i';
    unsigned long long value = UnsignedValue(conversion, argument.integer);
    NumberParts parts;
    if (isSigned) {
        const long long number = SignedValue(conversion, argument.integer);
        value = static_cast<unsigned long long>(number);
        value = number < 0 ? 0 - value : value;
        parts.prefix = SignOf(conversion, number < 0);
    } else if (conversion.alternate && value != 0) {
        parts.prefix = type == 'x' ? "0x" : type == 'X' ? "0X" : "";
    }
    char buffer[24];
    char* const end = std::end(buffer);
    const unsigned base = type == 'o' ? 8 : type == 'x' || type == 'X' ? 16 : 10;
    char* first = WriteDigits(end, value, base, type == 'X');
    if (type == 'o' && conversion.alternate && value != 0)
        *--first = '0';
    parts.digits = std::string_view(first, end);
    // Deliberate: unlike in C, a precision does not disable the 0 flag.
    parts.leadingZeros = (conversion.precision < 0 ? 1 : conversion.precision) -
                         static_cast<long long>(parts.digits.size());
    parts.leadingZeros = std::max(parts.leadingZeros, 0LL);
    PrintNumber(output, conversion, parts);
}

template <class Ch>
void PrintFloat(Output<Ch>& output, const Conversion& conversion, const Argument& argument) {
    const auto type = static_cast<char>(std::tolower(conversion.type));
    const bool upperCase = type != conversion.type;
    FloatText text;
    WriteFloat(text, argument.real, type, conversion.precision, conversion.alternate);
    if (upperCase) {
        for (char* p = text.digits; p != text.digits + text.digitCount; ++p)
            *p = static_cast<char>(std::toupper(*p));
        text.exponent[0] = static_cast<char>(std::toupper(text.exponent[0]));
    }
    char prefix[3];
    std::size_t length = SignOf(conversion, std::signbit(argument.real)).copy(prefix, 1);
    if (type == 'a') {
        prefix[length++] = '0';
        prefix[length++] = upperCase ? 'X' : 'x';
    }
    NumberParts parts;
    parts.prefix = std::string_view(prefix, length);
    parts.digits = std::string_view(text.digits, text.digitCount);
    parts.trailingZeros = text.zeroCount;
    parts.exponent = text.exponent;
    PrintNumber(output, conversion, parts);
}

template <class Ch, class Other>
void PrintText(Output<Ch>& output, const Conversion& conversion, const Other* text,
               std::size_t length) {
    // As in the C locale, the runtime converts one byte to one character and back, whatever the
    // code page. A character above U+00FF has no byte.
    if constexpr (sizeof(Other) > sizeof(Ch))
        if (std::any_of(text, text + length, [](Other unit) { return unit > 0xff; }))
            return output.Fail();
    const long long padding = conversion.width - static_cast<long long>(length);
    if (!conversion.leftAlign)
        output.Fill(conversion.zeroFill ? '0' : ' ', padding);
    output.Append(text, length);
    if (conversion.leftAlign)
        output.Fill(' ', padding);
}

template <class Ch, class Other>
void PrintTerminated(Output<Ch>& output, const Conversion& conversion, const Other* text) {
    PrintText(output, conversion, text, TerminatedLength(text, conversion.precision));
}

template <class Ch>
void PrintString(Output<Ch>& output, const Conversion& conversion, const Argument& argument) {
    if (argument.pointer == nullptr)
        return PrintTerminated(output, conversion, "(null)");
    if (TakesWide<Ch>(conversion))
        return PrintTerminated(output, conversion, static_cast<const WCHAR*>(argument.pointer));
    PrintTerminated(output, conversion, static_cast<const char*>(argument.pointer));
}

template <class Ch>
void PrintCharacter(Output<Ch>& output, const Conversion& conversion, const Argument& argument) {
    std::size_t length = conversion.precision == 0 ? 0 : 1;
    if (!TakesWide<Ch>(conversion)) {
        const auto byte = static_cast<char>(argument.integer);
        return PrintText(output, conversion, &byte, length);
    }
    const auto unit = static_cast<WCHAR>(argument.integer);
    if (sizeof(Ch) == 1 && unit > 0xff)
        length = 0; // Deliberate: omits a single character that has no byte; this is not a failure.
    PrintText(output, conversion, &unit, length);
}

// Prints eight upper-case hexadecimal digits for 32-bit pointers and sixteen for 64-bit ones, as
// text: the precision cuts them, and the 0 flag has no effect.
template <class Ch>
void PrintPointer(Output<Ch>& output, Conversion conversion, const Argument& argument) {
    const auto value = reinterpret_cast<ULONG_PTR>(argument.pointer);
    char buffer[2 + 2 * sizeof(void*)];
    std::fill(buffer, std::end(buffer), '0');
    WriteDigits(std::end(buffer), value, 16, true);
    buffer[1] = 'X';
    std::string_view text(buffer, sizeof buffer);
    if (!conversion.alternate || value == 0)
        text.remove_prefix(2);
    if (conversion.precision >= 0)
        text = text.substr(0, static_cast<std::size_t>(conversion.precision));
    conversion.zeroFill = false;
    PrintText(output, conversion, text.data(), text.size());
}

template <class Ch>
const Ch* ScanFlags(const Ch* position, Conversion& conversion) {
    for (;; ++position) {
        switch (*position) {
        case '-':
            conversion.leftAlign = true;
            break;
        case '+':
            conversion.plus = true;
            break;
        case ' ':
            conversion.space = true;
            break;
        case '#':
            conversion.alternate = true;
            break;
        case '0':
            conversion.zeroFill = true;
            break;
        default:
            return position;
        }
    }
}

// Reads a number. A value above INT_MAX becomes INT_MAX, which printing refuses.
template <class Ch>
const Ch* ScanNumber(const Ch* position, int& number, bool& isArgument) {
    isArgument = *position == '*';
    if (isArgument)
        return position + 1;
    long long value = 0;
    for (; *position >= '0' && *position <= '9'; ++position)
        value = std::min<long long>(value * 10 + (*position - '0'), INT_MAX);
    number = static_cast<int>(value);
    return position;
}

enum class Size { None, Short, Long, Wide, Quad, Pointer };
struct SizePrefix {
    std::string_view name;
    Size size;
};
// A longer prefix is before a shorter one with the same beginning.
constexpr SizePrefix kSizePrefixes[] = {
    {"I64", Size::Quad},
    {"I32", Size::None},
    {"I", Size::Pointer},
    {"z", Size::Pointer},
    {"t", Size::Pointer},
    {"j", Size::Quad},
    {"ll", Size::Quad},
    {"l", Size::Long},
    {"w", Size::Wide},
    {"h", Size::Short},
    // The Windows runtime's long double is a double; F and N are obsolete far and near pointers.
    {"L", Size::None},
    {"F", Size::None},
    {"N", Size::None},
};

// A size of 64 bits is not reset; of h and l the last one counts.
void ApplySize(Conversion& conversion, Size size) {
    switch (size) {
    case Size::None:
        break;
    case Size::Short:
        conversion.isShort = true;
        conversion.textWidth = Conversion::Width::Narrow;
        break;
    case Size::Long:
        conversion.isShort = false;
        [[fallthrough]];
    case Size::Wide:
        conversion.textWidth = Conversion::Width::Wide;
        break;
    case Size::Quad:
        conversion.is64 = true;
        break;
    case Size::Pointer:
        conversion.is64 = conversion.is64 || sizeof(void*) == 8;
        break;
    }
}

template <class Ch>
bool StartsWith(const Ch* text, std::string_view ascii) {
    for (const char character : ascii)
        if (*text++ != static_cast<Ch>(character))
            return false;
    return true;
}

// The character if `ascii` contains it, otherwise 0.
template <class Ch>
char OneOf(Ch character, std::string_view ascii) {
    for (const char candidate : ascii)
        if (character == static_cast<Ch>(candidate))
            return candidate;
    return 0;
}

constexpr std::string_view kIntegerTypes = "diouxX";
constexpr std::string_view kTypes = "diouxXeEfgGaAcCsSpn";

template <class Ch>
const Ch* ScanSizes(const Ch* position, Conversion& conversion) {
    for (;;) {
        const auto prefix = std::find_if(
            std::begin(kSizePrefixes), std::end(kSizePrefixes),
            [&](const SizePrefix& candidate) { return StartsWith(position, candidate.name); });
        if (prefix == std::end(kSizePrefixes))
            return position;
        const Ch* const next = position + prefix->name.size();
        if (prefix->size == Size::Pointer && OneOf(*next, kIntegerTypes) == 0)
            return position;
        ApplySize(conversion, prefix->size);
        position = next;
    }
}

} // namespace

void Conversion::SetWidth(int value) {
    leftAlign = leftAlign || value < 0;
    width = value == INT_MIN ? INT_MAX : value < 0 ? -value : value;
}

template <class Ch>
const Ch* ScanConversion(const Ch* position, Conversion& conversion) {
    position = ScanFlags(position, conversion);
    position = ScanNumber(position, conversion.width, conversion.widthIsArgument);
    if (*position == '.')
        position = ScanNumber(position + 1, conversion.precision, conversion.precisionIsArgument);
    position = ScanSizes(position, conversion);
    conversion.type = OneOf(*position, kTypes);
    return conversion.type == 0 ? position : position + 1;
}

ArgumentType TypeOfArgument(const Conversion& conversion) {
    if (OneOf(conversion.type, kIntegerTypes) != 0)
        return conversion.is64 ? ArgumentType::Integer64 : ArgumentType::Integer;
    switch (conversion.type) {
    case 'c':
    case 'C':
        return ArgumentType::Integer;
    case 's':
    case 'S':
    case 'p':
        return ArgumentType::Pointer;
    case 0:
    case 'n':
        return ArgumentType::None;
    default:
        return ArgumentType::Double;
    }
}

Argument FetchArgument(ArgumentList& list, ArgumentType type) {
    Argument argument;
    argument.type = type;
    switch (type) {
    case ArgumentType::None:
        break;
    case ArgumentType::Integer:
        argument.integer = va_arg(list.values, int);
        break;
    case ArgumentType::Integer64:
        argument.integer = va_arg(list.values, long long);
        break;
    case ArgumentType::Pointer:
        argument.pointer = va_arg(list.values, const void*);
        break;
    case ArgumentType::Double:
        argument.real = va_arg(list.values, double);
        break;
    }
    return argument;
}

template <class Ch>
void PrintConversion(Output<Ch>& output, const Conversion& conversion, const Argument& argument) {
    switch (TypeOfArgument(conversion)) {
    case ArgumentType::None:
        return output.Fail();
    case ArgumentType::Double:
        return PrintFloat(output, conversion, argument);
    case ArgumentType::Pointer:
        if (conversion.type == 'p')
            return PrintPointer(output, conversion, argument);
        return PrintString(output, conversion, argument);
    default:
        if (conversion.type == 'c' || conversion.type == 'C')
            return PrintCharacter(output, conversion, argument);
        return PrintInteger(output, conversion, argument);
    }
}

template const char* ScanConversion(const char*, Conversion&);
template const WCHAR* ScanConversion(const WCHAR*, Conversion&);
template void PrintConversion(Output<char>&, const Conversion&, const Argument&);
template void PrintConversion(Output<WCHAR>&, const Conversion&, const Argument&);

} // namespace quorvel::crt
