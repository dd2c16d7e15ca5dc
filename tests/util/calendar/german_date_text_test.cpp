// What depends on the locale, and what must not. The test runs with German (Germany).
#include <quorvel/util/calendar/date_parser.h>
#include <quorvel/util/calendar/date_text.h>

#include "support/date_time.h"

#include <gtest/gtest.h>

TEST(GermanDateText, LocaleFormsAreGermanAndProtocolFormsEnglish) {
    const COleDateTime date(2007, 12, 25, 17, 6, 7);
    EXPECT_EQ(AfxGetLocaleDateTime(date), _T("25.12.2007 17:06"));
    EXPECT_EQ(AfxGetLocaleLongDate(date), _T("Dienstag, 25. Dezember 2007"));
    EXPECT_EQ(AfxFormatElapsedTime(1, 2, 3), _T("02:03"));
    EXPECT_EQ(AfxFormatUTCTimeUsingRFC822(date, TRUE), _T("25 Dec 2007 17:06:07 GMT"));
    EXPECT_EQ(AfxStringToMonth(_T("Dezember")), 0);
}
