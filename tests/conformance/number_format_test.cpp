// Numbers and byte sizes, in a program that runs as English (United States).
#include "platform/win32.h"

#include "support/test.h"

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

TEST(NumberFormat, FollowsAFormat) {
    const std::tuple<const char*, Format, const WCHAR*, const WCHAR*> rows[] = {
        {"rounds half up", Format(0, 1, 3, 1), _T("0.5"), _T("1")},
        {"rounds away from zero", Format(2, 1, 3, 1), _T("-0.005"), _T("-0.01")},
        {"no leading zero", Format(2, 0, 3, 1), _T("-0.5"), _T("-.50")},
        {"three, then two", Format(0, 1, 32, 1), _T("12345678901"), _T("12,34,56,78,901")},
        {"in brackets", Format(1, 1, 3, 0), _T("-1234.5"), _T("(1,234.5)")},
        {"no such order", Format(1, 1, 3, 5), _T("-1234.5"), _T("(refused)")},
        {"long separators", Format(2, 1, 3, 1, _T("::"), _T("<>")), _T("1234567.5"),
         _T("1<>234<>567::50")},
        {"no decimal separator", Format(0, 1, 3, 1, nullptr), _T("1"), _T("(refused)")},
        {"beyond any integer", Format(0, 1, 3, 1), _T("18446744073709551616000"),
         _T("18,446,744,073,709,551,616,000")},
    };
    for (const auto& [label, format, value, text] : rows)
        EXPECT_EQ(Number(value, &format), text) << label;
}

TEST(ByteSize, HasThreeDigitsAndIsCut) {
    const std::tuple<LONGLONG, const WCHAR*> rows[] = {
        {1023, _T("1023 bytes")},   {-1, _T("-1 bytes")},         {1024, _T("1.00 KB")},
        {1126, _T("1.09 KB")},      {1127, _T("1.10 KB")},        {10239, _T("9.99 KB")},
        {10240, _T("10.0 KB")},     {102399, _T("99.9 KB")},      {102400, _T("100 KB")},
        {999 * 1024, _T("999 KB")}, {1000 * 1024, _T("0.97 MB")}, {1047527423, _T("998 MB")},
        {1047527424, _T("999 MB")}, {1ll << 50, _T("1.00 PB")},   {LLONG_MAX, _T("7.99 EB")},
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
