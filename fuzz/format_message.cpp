// The message formatter. The first byte's lowest bit chooses: a source of integer forms with stars
// made from the input, whose arguments are all small numbers, or the input as the source, whose
// arguments are all texts; the next bit hands them over as an array.
#include "platform/win32.h"

#include "fuzz_input.h"

#include <array>
#include <cstdarg>
#include <string>
#include <utility>

namespace {

constexpr DWORD kUntouched = 0xdead;

// A text with its terminator, or an error.
void Check(DWORD flags, const WideText& source, va_list* arguments) {
    WCHAR* text = nullptr;
    SetLastError(kUntouched);
    const DWORD length = FormatMessageW(flags | FORMAT_MESSAGE_ALLOCATE_BUFFER, source.c_str(), 0,
                                        0, reinterpret_cast<WCHAR*>(&text), 0, arguments);
    if (length == 0)
        Require(text == nullptr && GetLastError() != kUntouched);
    else
        Require(text[length] == 0);
    LocalFree(text);
}

void CheckList(const WideText* source, DWORD flags, ...) {
    va_list list;
    va_start(list, flags);
    Check(flags, *source, &list);
    va_end(list);
}

constexpr std::size_t kArguments = 200; // 99 numbers, and two more for each of the stars
typedef std::array<ULONG_PTR, kArguments> Arguments;

template <std::size_t... indices>
void CheckAsList(DWORD flags, const WideText& source, const Arguments& arguments,
                 std::index_sequence<indices...>) {
    CheckList(&source, flags, arguments[indices]...);
}

// At most 48 inserts.
std::string MakeSource(FuzzInput& input) {
    static const char* const flags[] = {"", "0", "-", "+", "#", " ", "-+", "#0"};
    static const char* const widths[] = {"", "*", "7", ".*", "*.*", "*.4", "5.*", ".3"};
    static const char* const types[] = {"d", "u", "x", "X", "o", "c", "hd", "i"};
    static const char* const between[] = {"", " ", "%n", "%%", "%0", "\n", "text", "%t"};
    std::string source;
    for (int count = input.Byte() % 48; count > 0; --count) {
        const int form = input.Byte();
        const int other = input.Byte();
        source += '%';
        source += std::to_string(1 + (input.Byte() % 99));
        source += '!';
        source += flags[form & 7];
        source += widths[form >> 3 & 7];
        source += types[other & 7];
        source += '!';
        source += between[other >> 3 & 7];
    }
    return source;
}

// Stars would take an address for a width, and long widths only time.
std::string WithoutWideForms(std::string source) {
    source.resize(std::min<std::size_t>(source.size(), 96));
    int digits = 0;
    for (char& character : source) {
        digits = character >= '0' && character <= '9' ? digits + 1 : 0;
        if (character == '*' || digits > 4)
            character = '!';
    }
    return source;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // In either width a text; it is written to where a form asks for %n and the system obeys.
    alignas(16) static char text[64];
    std::memcpy(text, "text\0x\0t\0\0\0\0\0", 14);

    FuzzInput input(data, size);
    const int choice = input.Byte();
    Arguments arguments;
    for (std::size_t i = 0; i < kArguments; ++i)
        arguments[i] = choice & 1 ? i % 23 : reinterpret_cast<ULONG_PTR>(text);
    DWORD flags = FORMAT_MESSAGE_FROM_STRING;
    if (choice & 4)
        flags |= FORMAT_MESSAGE_IGNORE_INSERTS;
    if (choice & 8)
        flags |= FORMAT_MESSAGE_MAX_WIDTH_MASK;
    const WideText source =
        Widened(choice & 1 ? MakeSource(input) : WithoutWideForms(input.Rest()));
    if (choice & 2) {
        auto* const array = reinterpret_cast<va_list*>(arguments.data());
        Check(flags | FORMAT_MESSAGE_ARGUMENT_ARRAY, source, array);
    } else {
        CheckAsList(flags, source, arguments, std::make_index_sequence<kArguments>());
    }
    return 0;
}
