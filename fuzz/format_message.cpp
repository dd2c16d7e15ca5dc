// The message formatter with an array of arguments. The lowest bit of the first byte chooses: a
// source of integer formats with stars that is made from the input, with small numbers as
// arguments; or the input as the source, with texts as arguments.
#include "platform/win32.h"

#include "fuzz_input.h"

// At most 48 arguments.
static std::string MakeSource(FuzzInput& input) {
    static const char* const flags[] = {"", "0", "-", "+", "#", " ", "-+", "#0"};
    static const char* const widths[] = {"", "*", "7", ".*", "*.*", "*.4", "5.*", ".3"};
    static const char* const types[] = {"d", "u", "x", "X", "o", "c", "hd", "i"};
    static const char* const between[] = {"", " ", "%n", "%%", "%0", "\n", "text", "%t"};
    std::string source;
    for (int count = input.Byte() % 48; count > 0; --count) {
        const int form = input.Byte();
        const int other = input.Byte();
        source += '%' + std::to_string(1 + (input.Byte() % 99)) + '!' + flags[form & 7] +
                  widths[form >> 3 & 7] + types[other & 7] + '!' + between[other >> 3 & 7];
    }
    return source;
}

FUZZ_TARGET(input) {
    // Text in either width. It is writable, because a format may ask for %n and the system obey.
    alignas(16) static char text[64];
    std::memcpy(text, "text\0x\0t\0\0\0\0\0", 14);
    const int choice = input.Byte();
    ULONG_PTR arguments[200]; // 99 numbers, and two for each star
    for (ULONG_PTR& argument : arguments)
        argument = choice & 1 ? static_cast<ULONG_PTR>(&argument - arguments) % 23
                              : reinterpret_cast<ULONG_PTR>(text);
    const DWORD flags = FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ARGUMENT_ARRAY |
                        FORMAT_MESSAGE_ALLOCATE_BUFFER |
                        (choice & 4 ? FORMAT_MESSAGE_IGNORE_INSERTS : 0) |
                        (choice & 8 ? FORMAT_MESSAGE_MAX_WIDTH_MASK : 0);
    const WideText source =
        Widened(choice & 1 ? MakeSource(input) : WithoutWideForms(input.Rest(), 4));
    constexpr DWORD untouched = 0xdead;
    SetLastError(untouched);
    WCHAR* result = nullptr; // a terminated text, or an error
    const DWORD length =
        FormatMessageW(flags, source.c_str(), 0, 0, reinterpret_cast<WCHAR*>(&result), 0,
                       reinterpret_cast<va_list*>(arguments));
    Require(length != 0 ? result[length] == 0 : result == nullptr && GetLastError() != untouched);
    LocalFree(result);
}
