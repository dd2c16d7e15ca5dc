// The test runs with the locale English (United States).
#include <quorvel/util/calendar/date_text.h>

#include "support/test.h"

const COleDateTime kDate(2007, 3, 4, 17, 6, 7);

TEST(DateText, LocaleFormsAndPictures) {
    const std::tuple<const char*, CString, const WCHAR*> rows[] = {
        {"date and time", AfxGetLocaleDateTime(kDate), _T("3/4/2007 5:06 PM")},
        {"protocol", AfxFormatUTCTimeUsingISO8601({100, 3, 4, 5, 6, 7}), _T("0100-03-04T05:06:07")},
        {"elapsed, without hours", AfxFormatElapsedTime(12, 5, 7), _T("05:07")},
        {"long", AfxFormatElapsedTime(0, 120, 0), _T("120:00")},
        {"empty picture", AfxFormatLocaleDateTime(kDate, _T(""), _T("HH")), _T(" 17")},
        {"long and time", AfxGetLocaleLongDateTime(kDate), _T("Sunday, March 4, 2007 5:06:07 PM")},
        {"before day 0",
         AfxFormatLocaleDateTime({1899, 12, 29, 6, 0, 1}, _T("d.M.yyyy"), _T("H:m:s")),
         _T("29.12.1899 6:0:1")},
        {"rounded", AfxFormatLocaleDate(COleDateTime(39145.999999), _T("d.M.yyyy")),
         _T("5.3.2007")},
        {"year before", AfxGetLocaleShortDate({1600, 12, 31, 0, 0, 0}), _T("")},
    };
    for (const auto& [label, text, expected] : rows)
        EXPECT_EQ(text, expected) << label;
}

TEST(DateText, PlatformTextsEndAt254Characters) {
    const CString longest = _T("'") + CString(_T('x'), 254) + _T("'");
    EXPECT_EQ(AfxFormatLocaleDateTime(kDate, longest, longest).GetLength(), 509);
    EXPECT_EQ(AfxFormatLocaleDateTime(kDate, _T("dd"), _T("x") + longest), _T(""));
}

TEST(DateText, ADateThatIsNotValidHasNoText) {
    COleDateTime null(kDate);
    null.SetStatus(COleDateTime::null);
    for (const COleDateTime& date :
         {null, COleDateTime(1e9), COleDateTime(std::numeric_limits<double>::quiet_NaN())})
        for (const CString& text :
             {AfxFormatLocaleDate(date, _T("yyyy")), AfxFormatLocaleTime(date, nullptr),
              AfxFormatLocaleDateTime(date, _T("yyyy"), _T("HH")), AfxGetLocaleDateTime(date),
              AfxFormatUTCTimeUsingRFC822(date, TRUE), AfxFormatUTCTimeUsingISO8601(date)})
            EXPECT_EQ(text, _T(""));
}
