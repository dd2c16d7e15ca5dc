// Used by nearly every test: the test framework, tables of calls and of rows, readable failure
// messages for the library's strings, and which build this is.
#pragma once

#include <quorvel/framework/string.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <functional>
#include <initializer_list>
#include <limits>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

// For the few rows in which an emulated system is known to differ.
inline constexpr bool kOnLinux = !std::is_same_v<WCHAR, wchar_t>;

typedef std::basic_string<WCHAR> Wide;

// Printable ASCII unchanged, any other character as \xHHHH.
template <class Ch>
inline std::string Printable(const Ch* text, int length) {
    std::string result;
    for (int i = 0; i < length; ++i) {
        const unsigned unit =
            static_cast<std::make_unsigned_t<std::conditional_t<sizeof(Ch) == 1, char, short>>>(
                text[i]);
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\x%04X", unit);
        result += unit >= 0x20 && unit < 0x7f ? std::string(1, static_cast<char>(unit)) : escape;
    }
    return result;
}

template <class Ch>
void PrintTo(const CStringT<Ch>& text, std::ostream* stream) {
    *stream << '"' << Printable(text.GetString(), text.GetLength()) << '"';
}

// Rows of calls and their expected results; the text of the call is the row's label.
template <class Value, class Expected = Value>
struct Case {
    const char* call;
    Value actual;
    Expected expected;
};
#define CASE(call, expected)                                                                       \
    { #call, call, expected }

template <class Value, class Expected = Value>
void ExpectCases(std::initializer_list<Case<Value, Expected>> rows) {
    for (const auto& row : rows)
        EXPECT_EQ(row.actual, row.expected) << row.call;
}

// The error of a failing call, to compare with the expected error in a row.
inline constexpr DWORD kUnset = 0xdead;

// 0 when the call succeeds, otherwise its error; kUnset when it sets no error.
template <class Call>
DWORD ErrorOf(Call call) {
    using namespace quorvel::win32;
    SetLastError(kUnset);
    return call() ? 0 : GetLastError();
}
