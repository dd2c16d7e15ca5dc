// Wide numbers as the C runtime reads them.
#include "platform/win32.h"

#include "support/test.h"

namespace {

TEST(WideNumbers, AreReadAsTheRuntimeReadsThem) {
    // At the end how many characters are used, white space and sign included; 0: no number.
    const std::tuple<const char*, const WCHAR*, int, __int64, int> rows[] = {
        {"decimal", _T("-077x"), 10, -77, 4},
        {"white space beyond ASCII", _T("\u00a0\u1680\u2003\u2028\u30005"), 10, 5, 6},
        {"digits of other scripts", _T("\xff11\x0665\x0966"), 10, 150, 3},
        {"automatic: sixteen", _T("0x1Ag"), 0, 26, 4},
        {"no digit behind the prefix", _T("0xg"), 16, 0, 0},
        {"the largest base", _T("zZ_"), 36, 1295, 2},
        {"one more", _T("9223372036854775808"), 10, LLONG_MAX, 19},
        {"one less", _T("-9223372036854775809"), 10, LLONG_MIN, 20},
        {"digits go on after saturation", _T("100000000000000000000"), 10, LLONG_MAX, 21},
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

} // namespace
