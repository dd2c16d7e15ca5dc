// Numbers and byte sizes, in a program that runs as English (United States).
#include "platform/win32.h"

#include "support/test.h"

// As AfxFormatExtendedFileSize calls it: whole numbers, grouped for the user's locale.
TEST(NumberFormat, GroupsDigits) {
    const auto grouped = [](UINT grouping, const WCHAR* digits) {
        WCHAR text[100], point[] = _T("."), separator[] = _T("<>");
        const NUMBERFMTW format = {0, 1, grouping, point, separator, 1};
        return CString(text, GetNumberFormatW(0x0409, 0, digits, &format, text, 100));
    };
    EXPECT_EQ(grouped(3, _T("9223372036854775808")),
              CString(_T("9<>223<>372<>036<>854<>775<>808"), 32));
    EXPECT_EQ(grouped(32, _T("12345678901")), CString(_T("12<>34<>56<>78<>901"), 20));
}

TEST(ByteSize, HasThreeDigitsAndIsCut) {
    const auto formatted = [](LONGLONG size, UINT room = 100) {
        WCHAR text[100];
        return CString(StrFormatByteSizeW(size, text, room));
    };
    ExpectCases<CString, const WCHAR*>(
        {CASE(formatted(-1), _T("-1 bytes")), CASE(formatted(999 * 1024), _T("999 KB")),
         CASE(formatted(1000 * 1024), _T("0.97 MB")), CASE(formatted(1047527423), _T("998 MB")),
         CASE(formatted(10239), _T("9.99 KB")), CASE(formatted(10240), _T("10.0 KB")),
         CASE(formatted(532, 5), _T("532 "))});
}
