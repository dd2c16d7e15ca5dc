// Dates and times by pictures and in the forms of a language.
#include "platform/win32.h"

#include "support/test.h"

namespace {

constexpr SYSTEMTIME kMorning{2007, 3, 5, 4, 5, 6, 7, 0}; // a Sunday; the record is wrong
constexpr SYSTEMTIME kMidnight{2007, 3, 0, 4, 0, 0, 0, 0};
constexpr SYSTEMTIME kNoon{2007, 3, 0, 4, 12, 0, 0, 0};

// The text, or the error in parentheses.
template <class Formatter>
CString Formatted(Formatter formatter, const SYSTEMTIME& time, const WCHAR* picture,
                  LCID locale = 0x0409) {
    WCHAR text[100];
    SetLastError(0);
    if (const int length = formatter(locale, 0, &time, picture, text, 100))
        return CString(text, length - 1);
    CString error;
    error.Format(_T("(%u)"), GetLastError());
    return error;
}
CString Date(const WCHAR* picture, const SYSTEMTIME& time = kMorning) {
    return Formatted(GetDateFormatW, time, picture);
}
CString Time(const WCHAR* picture, const SYSTEMTIME& time = kMorning) {
    return Formatted(GetTimeFormatW, time, picture);
}

} // namespace

TEST(DateFormat, LettersOfAPictureAreParts) {
    ExpectCases<CString, const WCHAR*>({
        CASE(Date(_T("d dd ddd dddd ddddd")), _T("4 04 Sun Sunday Sunday")),
        CASE(Date(_T("M MM MMM MMMM MMMMM")), _T("3 03 Mar March March")),
        CASE(Date(_T("y yy yyyy yyyyyy")), _T("07 07 2007 2007")),
        CASE(Date(_T("HH:mm d D Y")), _T("HH:mm 4 D Y")), // date letters are ignored
        CASE(Date(_T("'''d'''")), _T("'d'")),
        CASE(Date(_T("d 'open d")), _T("4 open d")),
        CASE(Time(_T("h hh hhh H HH m mm mmm s ss sss")), _T("5 05 05 5 05 6 06 06 7 07 07")),
        CASE(Time(_T("t tt ttt")), _T("A AM AM")),
        CASE(Time(_T("d M y f")), _T("d M y f")), // time letters are ignored
        CASE(Time(_T("h hh H HH t tt"), kMidnight), _T("12 12 0 00 A AM")),
        CASE(Time(_T("h hh H HH t tt"), kNoon), _T("12 12 12 12 P PM")),
    });
}

TEST(DateFormat, NamesAreOfTheLanguage) {
    const auto russian = [](const WCHAR* picture) {
        return Formatted(GetDateFormatW, kMorning, picture, 0x0419);
    };
    // The genitive is used next to the number of the day, but not next to its name.
    ExpectCases<CString, const WCHAR*>({
        CASE(russian(_T("d MMMM")), _T("4 марта")),
        CASE(russian(_T("d dddd MMMM")), _T("4 воскресенье март")),
        CASE(Formatted(GetTimeFormatW, kNoon, _T("tt"), 0x0411), _T("\x5348\x5f8c")), // Japanese
    });
    // Wine misreads the text after the month.
    EXPECT_EQ(russian(_T("MMMM yyyy d")) == _T("марта 2007 4"), kOnLinux);
}

TEST(DateFormat, OnlyWhatExistsIsFormatted) {
    ExpectCases<CString, const WCHAR*>({
        CASE(Date(_T("d"), {1600, 12, 0, 31, 13, 6, 0, 0}), _T("(87)")),
        CASE(Time(_T("HH:mm"), {1600, 12, 0, 31, 13, 6, 0, 0}), _T("13:06")),
        CASE(Date(_T("d"), {2007, 0, 0, 1, 0, 0, 0, 0}), _T("(87)")),
        CASE(Date(_T("d"), {2007, 1, 0, 1, 24, 0, 0, 0}), _T("1")),
        CASE(Time(_T("HH:mm"), {2007, 1, 0, 1, 24, 0, 0, 0}), _T("(87)")),
    });
}
