// The C runtime's text functions that the library calls beside the string class's formatting.
#include "platform/win32.h"

#include "support/text.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdarg>
#include <tuple>

namespace {

TEST(WideNumbers, AreReadAsTheRuntimeReadsThem) {
    // At the end how many characters are used, white space and sign included; 0: no number.
    const std::tuple<const char*, const WCHAR*, int, __int64, int> rows[] = {
        {"decimal", _T("-077x"), 10, -77, 4},
        {"white space", _T("\v\f\r\n\t +5"), 10, 5, 8},
        {"white space beyond ASCII", _T("\u00a0\u1680\u2003\u2028\u30005"), 10, 5, 6},
        {"not white space", _T("\u200b5"), 10, 0, 0},
        {"digits of other scripts", _T("\xff11\x0665\x0966"), 10, 150, 3},
        {"automatic: sixteen", _T("0x1Ag"), 0, 26, 4},
        {"automatic: eight", _T("-0778"), 0, -63, 4},
        {"a prefix of base 16", _T("0X1a"), 16, 26, 4},
        {"no digit behind the prefix", _T("0xg"), 16, 0, 0},
        {"no prefix in base 10", _T("0x1"), 10, 0, 1},
        {"the largest base", _T("zZ_"), 36, 1295, 2},
        {"a digit that base 2 has not", _T("1012"), 2, 5, 3},
        {"the largest number", _T("9223372036854775807"), 10, LLONG_MAX, 19},
        {"one more", _T("9223372036854775808"), 10, LLONG_MAX, 19},
        {"the smallest number", _T("-9223372036854775808"), 10, LLONG_MIN, 20},
        {"one less", _T("-9223372036854775809"), 10, LLONG_MIN, 20},
        {"digits go on after saturation", _T("100000000000000000000"), 10, LLONG_MAX, 21},
        {"two signs", _T("+-5"), 10, 0, 0},
        {"nothing", _T(""), 10, 0, 0},
    };
    for (const auto& [label, text, base, value, used] : rows) {
        WCHAR* end = nullptr;
        EXPECT_EQ(_wcstoi64(text, &end, base), value) << label;
        EXPECT_EQ(end - text, used) << label;
        EXPECT_EQ(_wcstoi64(text, nullptr, base), value) << label;
    }
    for (const int base : {-1, 1, 37}) {
        WCHAR marker = 0;
        WCHAR* end = &marker;
        EXPECT_EQ(_wcstoi64(_T("1"), &end, base), 0) << base;
        EXPECT_EQ(end, &marker) << base;
    }
}

template <class Ch, class Print>
int PrintInto(Print print, Ch* text, std::size_t size, const Ch* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = print(text, size, format, arguments);
    va_end(arguments);
    return length;
}

TEST(CountedPrinting, WritesTheTerminatorOnlyWhereItFits) {
    const std::tuple<std::size_t, int, const char*> rows[] = {
        {0, -1, "#######"}, {1, -1, "a######"}, {3, -1, "a12####"},
        {4, 4, "a12b###"},  {5, 4, "a12b"},     {7, 4, "a12b"},
    };
    for (const auto& [size, length, content] : rows) {
        char text[] = "#######";
        EXPECT_EQ(PrintInto(_vsnprintf, text, size, "a%db", 12), length) << size;
        EXPECT_STREQ(text, content) << size;
        WCHAR wide[] = {'#', '#', '#', '#', '#', '#', '#', 0};
        EXPECT_EQ(PrintInto(_vsnwprintf, wide, size, _T("a%db"), 12), length) << size;
        EXPECT_EQ(Printable(wide, CString(wide).GetLength()), content) << size;
    }
    EXPECT_EQ(PrintInto<char>(_vsnprintf, nullptr, 0, "abc"), 3);
}

} // namespace
