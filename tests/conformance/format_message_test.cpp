// The platform's message formatter. Expected texts are escaped as \xHHHH; a refusal is its error
// code.
#include "platform/win32.h"

#include "support/test.h"

#include <cstdarg>
namespace {

std::string Formatted(DWORD flags, const WCHAR* source, ...) {
    va_list arguments;
    va_start(arguments, source);
    WCHAR* text = nullptr;
    SetLastError(kUnset);
    const DWORD length =
        FormatMessageW(flags | FORMAT_MESSAGE_FROM_STRING | FORMAT_MESSAGE_ALLOCATE_BUFFER, source,
                       0, 0, reinterpret_cast<WCHAR*>(&text), 0, &arguments);
    va_end(arguments);
    const std::string outcome = length != 0 ? Printable(text, static_cast<int>(length))
                                            : "error " + std::to_string(GetLastError());
    EXPECT_TRUE(length == 0 ? text == nullptr : text[length] == 0) << outcome;
    LocalFree(text);
    return outcome;
}

#define FLAGGED(flags, expected, source, ...)                                                      \
    { source, Formatted(flags, _T(source) __VA_OPT__(, ) __VA_ARGS__), expected }
#define MESSAGE(expected, source, ...) FLAGGED(0, expected, source __VA_OPT__(, ) __VA_ARGS__)

const WCHAR* const kA = _T("a");
const WCHAR* const kB = _T("b");
const WCHAR* const kAbc = _T("abc");

TEST(FormatMessage, FillsInserts) {
    const int euro = 0x20ac;
    const WCHAR* const null = nullptr;
    const DWORD ignore = FORMAT_MESSAGE_IGNORE_INSERTS;
    ExpectCases<std::string>({
        MESSAGE("[a] [b] [a]", "[%1] [%2] [%1]", kA, kB),
        MESSAGE("1 10 11 100", "%1 %10 %11 %100", _T("1"), kA, kA, kA, kA, kA, kA, kA, kA, _T("10"),
                _T("11")),
        MESSAGE("(null)|(n", "%1|%1!.2s!", null),
        MESSAGE("%1 stays\\x000A", "%1", _T("%1 stays\n")), // an argument is not formatted again
        MESSAGE("   42|42   |00042|2a|0X2A|42|42|42|+0042",
                "%1!5d!|%1!-5d!|%1!05d!|%1!x!|%1!#X!|%1!u!|%1!ld!|%1!lu!|%1!+.4d!", 42),
        MESSAGE("abc|  abc|abc  |a|  a|00abc|abc|abc",
                "%1!s!|%1!5s!|%1!-5s!|%1!.1s!|%1!3.1s!|%1!05s!|%1!ls!|%1!ws!", kAbc),
        MESSAGE("\\x20AC|x|y|    x|0000x", "%1!c!|%2!hc!|%3!C!|%2!5c!|%2!05c!", euro, 'x', 'y'),
        MESSAGE("5497558138880 7 18446744073709551615", "%1!I64d! %2!d! %3!I64u!", 5LL << 40, 7,
                -1LL),
        // Text after the conversion is literal, and so are unknown conversions and floating point.
        MESSAGE("7 d|7%|7x|%d", "%1!d d!|%1!d%%!|%1!dx!|%1!%d!", 7),
        MESSAGE("k|k|f|I6d|7!", "%1!k!|%1!5k!|%1!10.3f!|%1!I6d!|%1!d!!", 7),
        MESSAGE("7aaaaaaaaaaaaaaaaaaaaaaaaaaaaa", "%1!daaaaaaaaaaaaaaaaaaaaaaaaaaaaa!", 7),
        MESSAGE("error 87", "%1!daaaaaaaaaaaaaaaaaaaaaaaaaaaaaa!", 7), // 31 characters
        // Stars take arguments of their own.
        MESSAGE("    42|42    |00042|  007", "%1!*d!|%2!*d!|%3!0*d!|%4!*.*d!", 6, 42, -6, 42, 5, 42,
                5, 3, 7),
        // The numbers of later arguments, and of earlier arguments that are used again.
        MESSAGE("5  6 0000008 3 8", "%5!d! %2!*d! %2!*.*d! %3!d! %6!d!", 1, 2, 3, 4, 5, 6, 7, 8),
        MESSAGE("17179869187 5 6", "%1!*I64d! %2!d! %3!d!", 2, 0x400000003LL, 5, 6),
        // Escapes
        MESSAGE("a\\x000D\\x000Ab\\x000Dc\\x0009d", "a%nb%rc%td"),
        MESSAGE(kOnLinux ? "a b" : "abb", "a%bb"), // Wine does not support the hard blank
        MESSAGE("abc", "abc%0def"),
        MESSAGE("error 235", ""),
        MESSAGE("error 235", "%1", _T("")),
        // Line ends of the source become complete; escaped ones do not.
        MESSAGE("a\\x000D\\x000Ab\\x000D\\x000Ac\\x000D\\x000Ad", "a\r\nb\nc\rd"),
        MESSAGE("a\\x000D\\x000D\\x000Ab\\x000Ac", "a%\r\nb%\nc"),
        // Flags
        FLAGGED(ignore, "%1 %12!d! %.%!%q%%%%0", "%1 %12!d! %.%!%q%%%%0"),
        FLAGGED(ignore, "%\\x000Ab\\x000D\\x000A", "%\nb\n"),
        FLAGGED(ignore, "error 87", "100%"),
        FLAGGED(FORMAT_MESSAGE_MAX_WIDTH_MASK, "a b  c\\x000D\\x000Ad x\\x000D\\x000Ay\\x000A",
                "a\r\nb\n\rc%nd %1%\n", _T("x\r\ny")),
    });
}

TEST(FormatMessage, RefusesWhatItCannotRead) {
    WCHAR text[8];
    const auto error = [](DWORD flags, const WCHAR* source, WCHAR* buffer) {
        return ErrorOf([=] { return FormatMessageW(flags, source, 0, 0, buffer, 8, nullptr); });
    };
    ExpectCases<DWORD>({CASE(error(0, _T("no source named"), text), 87),
                        CASE(error(FORMAT_MESSAGE_FROM_STRING, _T("no buffer"), nullptr), 87),
                        CASE(error(FORMAT_MESSAGE_FROM_STRING, _T("no %1"), text), 87)});
}

// Wine has no text for the last error.
TEST(FormatMessage, KnowsTheFailuresWithoutAReason) {
    for (const DWORD code : {0x80004001u, 0x8000ffffu}) {
        WCHAR text[200];
        const DWORD flags = FORMAT_MESSAGE_FROM_SYSTEM;
        EXPECT_EQ(FormatMessageW(flags, nullptr, code, 0, text, 200, nullptr) > 0,
                  kOnLinux || code != 0x8000ffffu)
            << code;
    }
}

TEST(FormatMessage, HasNoLimitOfItsOwn) {
    EXPECT_EQ(Formatted(0, _T("%1%1"), Wide(200'000, 'x').c_str()), std::string(400'000, 'x'));
}

} // namespace
