// printf formats. The lowest bit of the first byte chooses: one conversion made from the input,
// with an argument of its type; or the input as the format, with arguments that are safe for every
// conversion.
#include "platform/win32.h"

#include "fuzz_input.h"

#include <climits>
#include <cstdarg>
#include <cstdio>
#include <utility>

// The printed text; empty when it is refused or too long to be useful. The measured and the printed
// length must agree.
template <class Ch>
static std::basic_string<Ch> Printed(const Ch* format, ...) {
    va_list arguments, again;
    va_start(arguments, format);
    va_copy(again, arguments);
    const auto print = [format](Ch* text, std::size_t size, va_list from) {
        if constexpr (sizeof(Ch) == 1)
            return _vsnprintf(text, size, format, from);
        else
            return _vsnwprintf(text, size, format, from);
    };
    const int length = print(nullptr, 0, arguments);
    std::vector<Ch> text; // the exact size: reveals overruns
    if (length > 0 && length < 100'000) {
        text.resize(static_cast<std::size_t>(length));
        Require(print(text.data(), text.size(), again) == length);
    }
    va_end(again);
    va_end(arguments);
    return std::basic_string<Ch>(text.begin(), text.end());
}

// Both widths must print the same, except texts, which differ in type.
template <class... Arguments>
static std::string PrintedTwice(const std::string& format, Arguments... arguments) {
    const std::string narrow = Printed(format.c_str(), arguments...);
    Require(Widened(narrow) == Printed(Widened(format).c_str(), arguments...));
    return narrow;
}

static int SmallNumber(FuzzInput& input) {
    static constexpr int extremes[] = {INT_MAX, INT_MIN, 1'000'000, -1};
    const int number = input.Byte();
    return number < 250 ? number - 20 : extremes[number % 4];
}

// One conversion with flags, a width and a precision. Results that the Windows runtime shares with
// the C library are compared with the latter; an exact number is parsed back.
static void CheckConversion(FuzzInput& input) {
    std::string format = "%";
    for (int flags = input.Byte(), i = 0; i < 5; ++i)
        if (flags >> i & 1)
            format += "-+ #0"[i];
    const bool fillsWithZeros = format.find('0') != format.npos;
    format += "*.*";
    const int width = SmallNumber(input);
    const int precision = SmallNumber(input); // negative: no precision
    const int type = input.Byte() % 17;
    const auto bits = input.Value<std::uint64_t>();
    if (type >= 9) {
        double value;
        std::memcpy(&value, &bits, sizeof value);
        const std::string text =
            PrintedTwice(format + "eEfgGaAf"[type - 9], width, precision, value);
        if (type < 11 && precision >= 16 && !text.empty() && value - value == 0)
            Require(std::strtod(text.c_str() + text.find_first_not_of(' '), nullptr) == value);
        return;
    }
    const char letter = "diuxXodux"[type];
    const auto check = [&](const char* size, const char* librarySize, auto value) {
        const std::string text = PrintedTwice(format + size + letter, width, precision, value);
        if ((fillsWithZeros && precision >= 0) || letter == 'o' || text.empty())
            return;
        std::string expected(text.size() + 1, 0);
        const int length =
            std::snprintf(expected.data(), expected.size(), (format + librarySize + letter).c_str(),
                          width, precision, value);
        expected.pop_back();
        Require(length == static_cast<int>(text.size()) && text == expected);
    };
    if (type < 6)
        check("", "", static_cast<int>(bits));
    else
        check("I64", "ll", static_cast<long long>(bits));
}

// A text in either width. As an integer, or half of one, it is an odd but possible number.
alignas(16) char s_anything[64] = "text\0x\0t\0\0\0\0\0";

template <std::size_t... indices>
static void PrintAnything(std::string format, std::index_sequence<indices...>) {
    std::replace(format.begin(), format.end(), 'n', 'd'); // %n would write
    Printed(format.c_str(), (static_cast<void>(indices), s_anything)...);
    Printed(Widened(format).c_str(), (static_cast<void>(indices), s_anything)...);
}

FUZZ_TARGET(input) {
    if (input.Byte() & 1)
        CheckConversion(input);
    else
        PrintAnything(WithoutWideForms(input.Rest(), 2), std::make_index_sequence<96>());
}
