#include <quorvel/util/text/number.h>

#include "support/text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <tuple>
#include <vector>

TEST(Number, IsValidWhenItParsesInItsBaseAndReadsInRangeAsDecimal) {
    struct Row {
        const WCHAR* text;
        __int64 minimum, maximum;
        int base;
        BOOL expected;
    };
    // What is not decimal is read again as a decimal number: "1A" as 1.
    std::vector<Row> rows = {
        {_T("5"), 1, 10, 10, TRUE},      {_T("1"), 1, 10, 10, TRUE},
        {_T("10"), 1, 10, 10, TRUE},     {_T("0"), 1, 10, 10, FALSE},
        {_T("11"), 1, 10, 10, FALSE},    {_T(" \t-5"), -5, -5, 10, TRUE},
        {_T("+5"), 5, 5, 10, TRUE},      {_T("5 "), 0, 10, 10, FALSE},
        {_T("- 5"), -10, 10, 10, FALSE}, {_T("5x"), 0, 10, 10, FALSE},
        {_T("-"), -10, 10, 10, FALSE},   {_T("  "), -10, 10, 10, FALSE},
        {_T("1A"), 1, 1, 16, TRUE},      {_T("1A"), 26, 26, 16, FALSE},
        {_T("FF"), 0, 0, 16, TRUE},      {_T("0x1A"), 0, 0, 0, TRUE},
        {_T("0x1A"), 0, 0, 10, FALSE},   {_T("017"), 17, 17, 0, TRUE},
        {_T("018"), 0, 100, 0, FALSE},   {_T("101"), 101, 101, 2, TRUE},
        {_T("102"), 0, 1000, 2, FALSE},  {_T("z"), 0, 0, 36, TRUE},
        {_T("0x"), 0, 0, 16, FALSE},     {_T("5"), 0, 10, 1, FALSE},
        {_T("5"), 0, 10, 37, FALSE},     {_T("5"), 0, 10, -10, FALSE},
        {_T("5"), 10, 0, 10, FALSE},     {_T(""), 0, 10, 10, FALSE},
        {nullptr, 0, 10, 10, FALSE},
    };
    const Row large[] = {
        {_T("9223372036854775807"), INT64_MAX, INT64_MAX, 10, TRUE},
        {_T("-9223372036854775808"), INT64_MIN, INT64_MIN, 10, TRUE},
        {_T("9223372036854775808"), 0, INT64_MAX - 1, 10, FALSE},
        {_T("9223372036854775808"), 0, INT64_MAX, 10, TRUE}, // the nearest number
        {_T("-99999999999999999999"), INT64_MIN, INT64_MIN, 10, TRUE},
        {_T("FFFFFFFFFFFFFFFFF"), 0, 0, 16, TRUE},
    };
    rows.insert(rows.end(), std::begin(large), std::end(large));
    for (const auto& row : rows)
        EXPECT_EQ(AfxIsValidNumber(row.text, row.minimum, row.maximum, row.base), row.expected)
            << testing::PrintToString(CString(row.text)) << " base " << row.base;
}

TEST(Number, IsNumericWhenThereAreOnlyDigits) {
    const std::tuple<const WCHAR*, BOOL, int, BOOL> rows[] = {
        {_T("0"), FALSE, 10, TRUE},      {_T("123456789012345678901234567890"), FALSE, 10, TRUE},
        {_T("-1"), TRUE, 10, TRUE},      {_T("+1"), TRUE, 10, TRUE},
        {_T("-1"), FALSE, 10, FALSE},    {_T("+-1"), TRUE, 10, FALSE},
        {_T("-"), TRUE, 10, FALSE},      {_T(""), TRUE, 10, FALSE},
        {nullptr, TRUE, 10, FALSE},      {_T(" 1"), TRUE, 10, FALSE},
        {_T("1 "), TRUE, 10, FALSE},     {_T("1.0"), TRUE, 10, FALSE},
        {_T("1a"), TRUE, 10, FALSE},     {_T("1aF"), TRUE, 16, TRUE},
        {_T("0x1"), TRUE, 16, FALSE},    {_T("g"), TRUE, 16, FALSE},
        {_T("zZ"), TRUE, 36, TRUE},      {_T("2"), TRUE, 2, FALSE},
        {_T("\x0662"), TRUE, 10, FALSE}, {_T("0"), TRUE, 1, FALSE},
        {_T("0"), TRUE, 37, FALSE},
    };
    for (const auto& [text, allowSigned, radix, expected] : rows)
        EXPECT_EQ(AfxIsNumeric(text, allowSigned, radix), expected)
            << testing::PrintToString(CString(text)) << " radix " << radix;
}
