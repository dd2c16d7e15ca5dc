// Numbers and byte sizes, in a program that runs as English (United States).
#include "platform/win32.h"

#include "support/text.h"

#include <gtest/gtest.h>

#include <climits>
#include <tuple>

namespace {

constexpr LCID kEnglish = 0x0409;

struct Format : NUMBERFMTW {
    Format(UINT digits, UINT leadingZero, UINT grouping, UINT negativeOrder,
           const WCHAR* decimal = _T("."), const WCHAR* thousands = _T(",")) {
        NumDigits = digits;
        LeadingZero = leadingZero;
        Grouping = grouping;
        lpDecimalSep = const_cast<LPWSTR>(decimal);
        lpThousandSep = const_cast<LPWSTR>(thousands);
        NegativeOrder = negativeOrder;
    }
};

CString Number(const WCHAR* value, const NUMBERFMTW* format, LCID locale = kEnglish) {
    WCHAR text[100];
    const int length = GetNumberFormatW(locale, 0, value, format, text, 100);
    if (length == 0)
        return CString(_T("(refused)"));
    EXPECT_EQ(GetNumberFormatW(locale, 0, value, format, nullptr, 0), length);
    EXPECT_EQ(text[length - 1], 0);
    return CString(text);
}

TEST(NumberFormat, WritesTheLocalesWay) {
    const std::tuple<LCID, const WCHAR*, const WCHAR*> rows[] = {
        {kEnglish, _T("1234.5"), _T("1,234.50")},
        {kEnglish, _T("-0.5"), _T("-0.50")},
        {0x0807, _T("1234.5"), _T("1’234.50")},
        {0x1234, _T("12"), _T("(refused)")},
    };
    for (const auto& [locale, value, text] : rows)
        EXPECT_EQ(Number(value, nullptr, locale), text) << locale;
}

TEST(NumberFormat, TakesDigitsAndAPointOnly) {
    const std::tuple<const WCHAR*, const WCHAR*> rows[] = {
        {_T(".5"), _T("0.50")},       {_T("5."), _T("5.00")},       {_T(""), _T("0.00")},
        {_T("."), _T("0.00")},        {_T("-"), _T("-0.00")},       {_T("000123"), _T("123.00")},
        {_T("-000"), _T("-0.00")},    {_T("abc"), _T("(refused)")}, {_T("1a"), _T("(refused)")},
        {_T("1-"), _T("(refused)")},  {_T("--1"), _T("(refused)")}, {_T("1.2.3"), _T("(refused)")},
        {_T(" 1"), _T("(refused)")},  {_T("1 "), _T("(refused)")},  {_T("+1"), _T("(refused)")},
        {_T("1,0"), _T("(refused)")}, {_T("1e5"), _T("(refused)")}, {nullptr, _T("(refused)")},
    };
    for (const auto& [value, text] : rows)
        EXPECT_EQ(Number(value, nullptr), text);
}

TEST(NumberFormat, FollowsAFormat) {
    const std::tuple<const char*, Format, const WCHAR*, const WCHAR*> rows[] = {
        {"rounds half up", Format(0, 1, 3, 1), _T("0.5"), _T("1")},
        {"rounds away from zero", Format(2, 1, 3, 1), _T("-0.005"), _T("-0.01")},
        {"carries through", Format(1, 1, 3, 1), _T("9.95"), _T("10.0")},
        {"fills with zeros", Format(9, 1, 3, 1), _T("1234.5678"), _T("1,234.567800000")},
        {"no leading zero", Format(2, 0, 3, 1), _T("-0.5"), _T("-.50")},
        {"no leading zero, a number", Format(2, 0, 3, 1), _T("0012.5"), _T("12.50")},
        {"groups of three", Format(0, 1, 3, 1), _T("12345678901"), _T("12,345,678,901")},
        {"three, then two", Format(0, 1, 32, 1), _T("12345678901"), _T("12,34,56,78,901")},
        {"three, then no more", Format(0, 1, 30, 1), _T("12345678901"), _T("12345678,901")},
        {"one, two, then three", Format(0, 1, 123, 1), _T("12345678901"), _T("12,345,678,90,1")},
        {"in brackets", Format(1, 1, 3, 0), _T("-1234.5"), _T("(1,234.5)")},
        {"minus and blank", Format(1, 1, 3, 2), _T("-1234.5"), _T("- 1,234.5")},
        {"minus behind", Format(1, 1, 3, 3), _T("-1234.5"), _T("1,234.5-")},
        {"blank and minus behind", Format(1, 1, 3, 4), _T("-1234.5"), _T("1,234.5 -")},
        {"no such order", Format(1, 1, 3, 5), _T("-1234.5"), _T("(refused)")},
        {"long separators", Format(2, 1, 3, 1, _T("::"), _T("<>")), _T("1234567.5"),
         _T("1<>234<>567::50")},
        {"empty separators", Format(2, 1, 3, 1, _T(""), _T("")), _T("1234.5"), _T("123450")},
        {"no decimal separator", Format(0, 1, 3, 1, nullptr), _T("1"), _T("(refused)")},
        {"no thousands separator", Format(0, 1, 0, 1, _T("."), nullptr), _T("1"), _T("(refused)")},
        {"beyond any integer", Format(0, 1, 3, 1), _T("18446744073709551616000"),
         _T("18,446,744,073,709,551,616,000")},
    };
    for (const auto& [label, format, value, text] : rows)
        EXPECT_EQ(Number(value, &format), text) << label;
}

TEST(NumberFormat, RefusesArguments) {
    WCHAR text[10];
    const Format format(2, 1, 3, 1);
    const std::tuple<const char*, DWORD, const NUMBERFMTW*, WCHAR*, int, int, DWORD> rows[] = {
        {"just room", 0, nullptr, text, 9, 9, ERROR_SUCCESS},
        {"no room", 0, nullptr, text, 8, 0, ERROR_INSUFFICIENT_BUFFER},
        {"no buffer", 0, nullptr, nullptr, 8, 0, ERROR_INVALID_PARAMETER},
        {"negative length", 0, nullptr, text, -1, 0, ERROR_INVALID_PARAMETER},
        {"flags for a locale", LOCALE_NOUSEROVERRIDE, nullptr, text, 9, 9, ERROR_SUCCESS},
        {"flags beside a format", LOCALE_NOUSEROVERRIDE, &format, text, 9, 0, ERROR_INVALID_FLAGS},
    };
    for (const auto& [label, flags, picture, buffer, length, result, error] : rows) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(GetNumberFormatW(kEnglish, flags, _T("1234.5"), picture, buffer, length), result)
            << label;
        EXPECT_EQ(GetLastError(), error) << label;
    }
}

TEST(ByteSize, HasThreeDigitsAndIsCut) {
    const std::tuple<LONGLONG, const WCHAR*> rows[] = {
        {0, _T("0 bytes")},          {1023, _T("1023 bytes")},
        {-1, _T("-1 bytes")},        {1024, _T("1.00 KB")},
        {1126, _T("1.09 KB")},       {1127, _T("1.10 KB")},
        {10239, _T("9.99 KB")},      {10240, _T("10.0 KB")},
        {102399, _T("99.9 KB")},     {102400, _T("100 KB")},
        {999 * 1024, _T("999 KB")},  {1000 * 1024, _T("0.97 MB")},
        {1047527423, _T("998 MB")},  {1047527424, _T("999 MB")},
        {4294967295, _T("3.99 GB")}, {1023ll << 30, _T("0.99 TB")},
        {1ll << 50, _T("1.00 PB")},  {LLONG_MAX, _T("7.99 EB")},
    };
    for (const auto& [size, expected] : rows) {
        WCHAR text[100];
        EXPECT_EQ(StrFormatByteSizeW(size, text, 100), text);
        EXPECT_EQ(CString(text), expected) << size;
    }
    WCHAR text[5];
    StrFormatByteSizeW(532, text, 5);
    EXPECT_EQ(CString(text), _T("532 "));
}

} // namespace
