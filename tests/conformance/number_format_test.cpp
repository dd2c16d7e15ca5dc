// Numbers and byte sizes, in a program that runs as English (United States).
#include "platform/win32.h"

#include "support/test.h"

// As AfxFormatExtendedFileSize calls it: whole numbers, grouped for the user's locale.
TEST(NumberFormat, GroupsDigits) {
    const std::tuple<UINT, const WCHAR*, const WCHAR*> rows[] = {
        {3, _T("1024"), _T("1<>024")},
        {32, _T("12345678901"), _T("12<>34<>56<>78<>901")}, // groups of three, then of two
        {3, _T("18446744073709551616000"), _T("18<>446<>744<>073<>709<>551<>616<>000")},
    };
    for (const auto& [grouping, digits, expected] : rows) {
        WCHAR text[100], point[] = _T("."), separator[] = _T("<>");
        const NUMBERFMTW format = {0, 1, grouping, point, separator, 1};
        const int length = GetNumberFormatW(0x0409, 0, digits, &format, text, 100);
        EXPECT_EQ(GetNumberFormatW(0x0409, 0, digits, &format, nullptr, 0), length);
        EXPECT_EQ(CString(text, length - 1), expected);
    }
}

TEST(ByteSize, HasThreeDigitsAndIsCut) {
    const std::tuple<LONGLONG, const WCHAR*> rows[] = {
        {1023, _T("1023 bytes")},   {-1, _T("-1 bytes")},         {1024, _T("1.00 KB")},
        {999 * 1024, _T("999 KB")}, {1000 * 1024, _T("0.97 MB")}, {1047527423, _T("998 MB")},
        {10239, _T("9.99 KB")},     {10240, _T("10.0 KB")},       {1047527423, _T("998 MB")},
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
