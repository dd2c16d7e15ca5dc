// printf forms. The first byte's lowest bit chooses: one conversion made from the input, with an
// argument of the type that it asks for, or the input as the format, with arguments that are safe
// as anything.
#include "platform/win32.h"

#include "fuzz_input.h"

#include <climits>
#include <cstdarg>
#include <cstdio>
#include <utility>
#include <vector>

namespace {

int Print(WCHAR* text, std::size_t size, const WCHAR* format, va_list arguments) {
    return _vsnwprintf(text, size, format, arguments);
}
int Print(char* text, std::size_t size, const char* format, va_list arguments) {
    return _vsnprintf(text, size, format, arguments);
}

// The printed text, empty when it is refused or too long to be worth while. The measured and the
// printed length agree.
template <class Ch>
std::basic_string<Ch> Printed(const Ch* format, ...) {
    va_list arguments, again;
    va_start(arguments, format);
    va_copy(again, arguments);
    const int length = Print(static_cast<Ch*>(nullptr), 0, format, arguments);
    std::vector<Ch> text; // exactly as long: what is written behind it is found
    if (length > 0 && length < 100'000) {
        text.resize(static_cast<std::size_t>(length));
        Require(Print(text.data(), text.size(), format, again) == length);
    }
    va_end(again);
    va_end(arguments);
    return std::basic_string<Ch>(text.begin(), text.end());
}

// Both widths print the same, except texts, which differ in type.
template <class... Arguments>
std::string PrintedTwice(const std::string& format, Arguments... arguments) {
    const std::string narrow = Printed(format.c_str(), arguments...);
    Require(Widened(narrow) == Printed(Widened(format).c_str(), arguments...));
    return narrow;
}

// Flags, a width and a precision, which always come as arguments.
struct MadeFormat {
    explicit MadeFormat(FuzzInput& input) {
        for (int flags = input.Byte(), i = 0; i < 5; ++i)
            if (flags >> i & 1)
                text += "-+ #0"[i];
        text += "*.*";
        width = SmallNumber(input);
        precision = SmallNumber(input);
    }
    static int SmallNumber(FuzzInput& input) {
        static constexpr int extremes[] = {INT_MAX, INT_MIN, 1'000'000, -1};
        const int number = input.Byte();
        return number < 250 ? number - 20 : extremes[number % 4];
    }
    bool FillsWithZeros() const { return text.find('0') != text.npos; }

    std::string text = "%";
    int width;
    int precision; // none when negative
};

template <class Value>
std::string PrintedAs(const MadeFormat& format, const std::string& type, Value value) {
    return PrintedTwice(format.text + type, format.width, format.precision, value);
}

template <class Value>
void CheckInteger(const MadeFormat& format, const char* size, const char* librarySize, char type,
                  Value value) {
    const std::string printed = PrintedAs(format, std::string(size) + type, value);
    if ((format.FillsWithZeros() && format.precision >= 0) || type == 'o' || printed.empty())
        return; // the Windows runtime has its own rules for these
    const std::string library = format.text + librarySize + type;
    std::string expected(printed.size() + 1, 0);
    const int length = std::snprintf(expected.data(), expected.size(), library.c_str(),
                                     format.width, format.precision, value);
    expected.pop_back();
    Require(length == static_cast<int>(printed.size()) && printed == expected);
}

void CheckDouble(const MadeFormat& format, char type, double value) {
    const std::string printed = PrintedAs(format, std::string(1, type), value);
    const bool isExact = (type == 'e' || type == 'E') && format.precision >= 16 && !printed.empty();
    if (isExact && value - value == 0)
        Require(std::strtod(printed.c_str() + printed.find_first_not_of(' '), nullptr) == value);
}

void CheckMadeFormat(FuzzInput& input) {
    const MadeFormat format(input);
    const int type = input.Byte() % 20;
    const auto bits = input.Value<std::uint64_t>();
    double real;
    std::memcpy(&real, &bits, sizeof real);
    const auto integer = static_cast<int>(bits);
    const auto quad = static_cast<long long>(bits);
    const std::string rest = input.Rest();
    if (type < 6)
        return CheckInteger(format, "", "", "diuxXo"[type], integer);
    if (type < 9)
        return CheckInteger(format, "I64", "ll", "dux"[type - 6], quad);
    if (type < 17)
        return CheckDouble(format, "eEfgGaAf"[type - 9], real);
    if (type == 17)
        PrintedAs(format, "hd", integer);
    else if (type == 18)
        PrintedAs(format, "hs", rest.c_str());
    else
        PrintedAs(format, "c", integer & 0xff);
}

// A text in either width, and as an integer or the half of one an odd but possible number.
alignas(16) char s_anything[64] = "text\0x\0t\0\0\0\0\0";

template <std::size_t... indices>
void PrintAnything(std::string format, std::index_sequence<indices...>) {
    std::replace(format.begin(), format.end(), 'n', 'd'); // %n would write
    Printed(format.c_str(), (static_cast<void>(indices), s_anything)...);
    Printed(Widened(format).c_str(), (static_cast<void>(indices), s_anything)...);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    if (input.Byte() & 1)
        CheckMadeFormat(input);
    else
        PrintAnything(WithoutWideForms(input.Rest(), 2), std::make_index_sequence<96>());
    return 0;
}
