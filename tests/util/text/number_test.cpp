#include <quorvel/util/text/number.h>

#include "support/test.h"

#include <cstdint>

TEST(Number, IsValidWhenItParsesInItsBaseAndReadsInRangeAsDecimal) {
    // A text in another base is read again as decimal: "1A" as 1. White space and digits of other
    // scripts count as in the C runtime.
    const std::tuple<const WCHAR*, __int64, __int64, int, BOOL> rows[] = {
        {_T("z"), 0, 0, 36, TRUE},    {_T("0x1A"), 0, 0, 0, TRUE},     {_T("017"), 17, 17, 0, TRUE},
        {_T("0x"), 0, 0, 16, FALSE},  {_T("-"), -10, 10, 10, FALSE},   {_T("+5"), 5, 5, 10, TRUE},
        {_T("5"), 0, 10, 37, FALSE},  {_T("1A"), 26, 26, 16, FALSE},   {_T("1A"), 1, 1, 16, TRUE},
        {_T("5"), 10, 0, 10, FALSE},  {_T("0x1A"), 0, 0, 10, FALSE},   {_T("5"), 0, 10, 1, FALSE},
        {nullptr, 0, 10, 10, FALSE},  {_T("018"), 0, 100, 0, FALSE},   {_T(""), 0, 10, 10, FALSE},
        {_T("11"), 1, 10, 10, FALSE}, {_T("102"), 0, 1000, 2, FALSE},  {_T("10"), 1, 10, 10, TRUE},
        {_T("5 "), 0, 10, 10, FALSE}, {_T(" \t-5"), -5, -5, 10, TRUE}, {_T("0"), 1, 10, 10, FALSE},
    };
    for (const auto& [text, minimum, maximum, base, expected] : rows)
        EXPECT_EQ(AfxIsValidNumber(text, minimum, maximum, base), expected)
            << testing::PrintToString(CString(text)) << " base " << base;
    EXPECT_TRUE(AfxIsValidNumber(_T("\u00a0\u1680\u2003\u2028\u30005"), 5, 5, 10));
    EXPECT_TRUE(AfxIsValidNumber(_T("\xff11\x0665\x0966"), 150, 150, 10));
    EXPECT_TRUE(AfxIsValidNumber(_T("-9223372036854775808"), INT64_MIN, INT64_MIN, 10));
    EXPECT_FALSE(AfxIsValidNumber(_T("9223372036854775808"), 0, INT64_MAX - 1, 10));
    EXPECT_TRUE(AfxIsValidNumber(_T("9223372036854775808"), 0, INT64_MAX, 10)); // the nearest
    EXPECT_TRUE(AfxIsValidNumber(_T("FFFFFFFFFFFFFFFFF"), 0, 0, 16));
}

TEST(Number, IsNumericWhenThereAreOnlyDigits) {
    const std::tuple<const WCHAR*, BOOL, int, BOOL> rows[] = {
        {_T("-1"), FALSE, 10, FALSE},    {_T("+1"), TRUE, 10, TRUE},
        {_T(" 1"), TRUE, 10, FALSE},     {_T("+-1"), TRUE, 10, FALSE},
        {_T("-"), TRUE, 10, FALSE},      {_T("-1"), TRUE, 10, TRUE},
        {nullptr, TRUE, 10, FALSE},      {_T(""), TRUE, 10, FALSE},
        {_T("\x0662"), TRUE, 10, FALSE}, {_T("1aF"), TRUE, 16, TRUE},
        {_T("g"), TRUE, 16, FALSE},      {_T("0"), TRUE, 37, FALSE},
        {_T("zZ"), TRUE, 36, TRUE},      {_T("2"), TRUE, 2, FALSE},
        {_T("0"), TRUE, 1, FALSE},       {_T("123456789012345678901234567890"), FALSE, 10, TRUE},
    };
    for (const auto& [text, allowSigned, radix, expected] : rows)
        EXPECT_EQ(AfxIsNumeric(text, allowSigned, radix), expected)
            << testing::PrintToString(CString(text)) << " radix " << radix;
}
