// The C runtime's text functions that the library calls beside the string class's formatting.
#include "platform/win32.h"

#include "support/text.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdarg>

namespace {

TEST(WideNumbers, AreReadAsTheRuntimeReadsThem) {
    struct {
        const char* label;
        const WCHAR* text;
        int base;
        __int64 value;
        int used; // characters, white space and sign included; 0 when there is no number
    } const rows[] = {
        {"decimal", _T("-077x"), 10, -77, 4},
        {"white space", _T("\v\f\r\n\t +5"), 10, 5, 8},
        {"white space beyond ASCII",
         _T("\x00a0\x1680\x2003\x2028\x3000")
         _T("5"),
         10, 5, 6},
        {"not white space",
         _T("\x200b")
         _T("5"),
         10, 0, 0},
        {"digits of other scripts", _T("\xff11\x0665\x0966"), 10, 150, 3},
        {"automatic: sixteen", _T("0x1Ag"), 0, 26, 4},
        {"automatic: eight", _T("-0778"), 0, -63, 4},
        {"automatic: ten", _T("778"), 0, 778, 3},
        {"a prefix of base 16", _T("0X1a"), 16, 26, 4},
        {"no digit behind the prefix", _T("0xg"), 16, 0, 0},
        {"no digit at all behind it", _T("0x"), 0, 0, 0},
        {"no prefix in base 10", _T("0x1"), 10, 0, 1},
        {"the largest base", _T("zZ_"), 36, 1295, 2},
        {"a digit that base 2 has not", _T("1012"), 2, 5, 3},
        {"the largest number", _T("9223372036854775807"), 10, LLONG_MAX, 19},
        {"one more", _T("9223372036854775808"), 10, LLONG_MAX, 19},
        {"the smallest number", _T("-9223372036854775808"), 10, LLONG_MIN, 20},
        {"one less", _T("-9223372036854775809"), 10, LLONG_MIN, 20},
        {"digits go on after saturation", _T("100000000000000000000"), 10, LLONG_MAX, 21},
        {"two signs", _T("+-5"), 10, 0, 0},
        {"a sign alone", _T(" -"), 10, 0, 0},
        {"nothing", _T(""), 10, 0, 0},
    };
    for (const auto& row : rows) {
        WCHAR* end = nullptr;
        EXPECT_EQ(_wcstoi64(row.text, &end, row.base), row.value) << row.label;
        EXPECT_EQ(end - row.text, row.used) << row.label;
        EXPECT_EQ(_wcstoi64(row.text, nullptr, row.base), row.value) << row.label;
    }
}

TEST(WideNumbers, HaveBases0And2To36) {
    for (const int base : {-1, 1, 37}) {
        WCHAR marker = 0;
        WCHAR* end = &marker;
        EXPECT_EQ(_wcstoi64(_T("1"), &end, base), 0) << base;
        EXPECT_EQ(end, &marker) << base;
    }
}

int PrintInto(WCHAR* text, std::size_t size, const WCHAR* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = _vsnwprintf(text, size, format, arguments);
    va_end(arguments);
    return length;
}

int PrintInto(char* text, std::size_t size, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = _vsnprintf(text, size, format, arguments);
    va_end(arguments);
    return length;
}

TEST(CountedPrinting, WritesTheTerminatorOnlyWhereItFits) {
    struct {
        std::size_t size;
        int length;
        const char* content;
    } const rows[] = {
        {0, -1, "#######"}, {1, -1, "a######"}, {3, -1, "a12####"},
        {4, 4, "a12b###"},  {5, 4, "a12b"},     {7, 4, "a12b"},
    };
    for (const auto& row : rows) {
        char text[] = "#######";
        EXPECT_EQ(PrintInto(text, row.size, "a%db", 12), row.length) << row.size;
        EXPECT_STREQ(text, row.content) << row.size;
        WCHAR wide[] = {'#', '#', '#', '#', '#', '#', '#', 0};
        EXPECT_EQ(PrintInto(wide, row.size, _T("a%db"), 12), row.length) << row.size;
        EXPECT_EQ(Printable(wide, CString(wide).GetLength()), row.content) << row.size;
    }
    EXPECT_EQ(PrintInto(static_cast<char*>(nullptr), 0, "abc"), 3);
}

} // namespace
