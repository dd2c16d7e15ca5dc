// What the locale changes, and what it must not; the test run's is German (Germany).
#include <quorvel/util/calendar/date_parser.h>
#include <quorvel/util/calendar/date_text.h>

#include "support/date_time.h"

#include <gtest/gtest.h>

TEST(GermanDateText, LocaleFormsAreGerman) {
    const COleDateTime date(2007, 12, 25, 17, 6, 7);
    EXPECT_EQ(AfxGetLocaleShortDateTime(date), _T("25.12.2007 17:06:07"));
    EXPECT_EQ(AfxGetLocaleDateTime(date), _T("25.12.2007 17:06"));
    EXPECT_EQ(AfxGetLocaleLongDate(date), _T("Dienstag, 25. Dezember 2007"));
    EXPECT_EQ(AfxFormatElapsedTime(1, 2, 3), _T("02:03"));
}

TEST(GermanDateText, ProtocolFormsAreEnglish) {
    const COleDateTime date(2007, 12, 25, 17, 6, 7);
    EXPECT_EQ(AfxFormatUTCTimeUsingRFC822(date, TRUE), _T("25 Dec 2007 17:06:07 GMT"));
    COleDateTime parsed;
    EXPECT_TRUE(AfxStringToDate(_T("Tue, 25 Dec 2007 17:06:07 GMT"), parsed, 1));
    EXPECT_EQ(parsed, date);
    EXPECT_EQ(AfxStringToMonth(_T("Dezember")), 0);
}
