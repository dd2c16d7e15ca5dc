#include <quorvel/util/calendar/date_parser.h>

#include "support/date_time.h"
#include "support/test.h"

// The date of a text that is refused.
const COleDateTime kMarker(1234.5);

static void ExpectDate(const WCHAR* text, const COleDateTime& expected, int order = 1) {
    SCOPED_TRACE(testing::PrintToString(CString(text)));
    COleDateTime date = kMarker;
    EXPECT_EQ(AfxStringToDate(text, date, order), expected != kMarker);
    EXPECT_EQ(date, expected);
}

TEST(DateParser, EveryFormOfATextHasItsDate) {
    const COleDateTime noon(2007, 3, 4, 12, 34, 56);
    const COleDateTime day(2007, 3, 4, 0, 0, 0);
    const std::tuple<const WCHAR*, COleDateTime> rows[] = {
        {_T("March 4, 2007 12:34:56 GMT"), noon},
        {_T("Sun, 04 Mar 2007 12:34:56 GMT"), noon},
        {_T("4/3/2007 12:34 GMT"), {2007, 3, 4, 12, 34, 0}},
        {_T("4/3/2007"), day},
        {_T("Sunday, 04-Mar-07 12:34:56 GMT"), noon},
        {_T("Sun Mar  4 12:34:56 2007"), noon},
        {_T("1990-12-31T23:59:60Z"), {1991, 1, 1, 0, 0, 0}},
        {_T("1937-01-01T12:00:27.87+00:20"), {1937, 1, 1, 11, 40, 27}},
        {_T("Fri, 29 Dec 1899 22:15:01 -0200"), {1899, 12, 30, 0, 15, 1}},
        // A time with a zone is converted to UTC; an unknown word is no zone.
        {_T("Sun, 04 Mar 2007 05:06:07 (CET)"), {2007, 3, 4, 5, 6, 7}},
        {_T("  Sun,\t04\r\n Mar 2007   5:6:7 +0100 (CET)"), {2007, 3, 4, 4, 6, 7}},
        {_T("sUN, 4 mARCH 2007 05:06:07 gmt; length=1"), {2007, 3, 4, 5, 6, 7}},
        {_T("2007-03-04 05:06:07"), day},
        // Years with two or three digits are in this century or the last.
        {_T("4 Mar 49"), {2049, 3, 4, 0, 0, 0}},
        {_T("4 Mar 50"), {1950, 3, 4, 0, 0, 0}},
        {_T("4 Mar 107"), day},
        {_T("1 Sept 2007"), {2007, 9, 1, 0, 0, 0}},
    };
    for (const auto& [text, date] : rows)
        ExpectDate(text, date);
}

TEST(DateParser, TheOrderIsThatOfTheSlashesOnly) {
    ExpectDate(_T("3/4/2007 05:06:07 GMT"), {2007, 3, 4, 5, 6, 7}, 0);
    ExpectDate(_T("2007/3/4 05:06"), {2007, 3, 4, 5, 6, 0}, 2);
    ExpectDate(_T("13/4/2007"), kMarker, 0);
    ExpectDate(_T("2007-03-04"), kMarker, 3);
}

TEST(DateParser, ATextThatIsNoDateLeavesTheDate) {
    // A word ends at a blank. 5:06 PM is not 5:06.
    for (const WCHAR* text :
         {static_cast<const WCHAR*>(nullptr), _T("4Mar2007"), _T("0099-03-04"), _T("4 Mar -107"),
          _T("4/3/2007 5:06 PM"), _T("0100-01-01T00:30:00+01:00"), _T("4 Ma 2007"),
          _T("Thu, 29 Feb 2007 05:06:07 GMT"), _T("Sun, 04 Mar 2007 24:00:00 GMT"),
          _T("Sun, 04 Mar 2007 05:06:07 +0160"), _T("4 Mar 99999999999999999999 05:06:07 GMT")})
        ExpectDate(text, kMarker);
}

TEST(DateParser, AZonesBiasIsWhatLeadsToUtc) {
    constexpr int kNone = 4711;
    const std::tuple<const WCHAR*, int> rows[] = {
        {_T("utc"), 0},       {_T("Z"), 0},        {_T("J"), kNone},     {_T("EST"), 300},
        {_T("EDT"), 240},     {_T("CST"), 360},    {_T("MST"), 420},     {_T("pdt"), 420},
        {_T("BST"), -60},     {_T("CEST"), -120},  {_T("EET"), -120},    {_T("-0330"), 210},
        {_T("+05:45"), -345}, {_T("-08"), 480},    {_T("+9959"), -5999}, {_T("+100"), kNone},
        {_T("+0160"), kNone}, {_T("+01:"), kNone}, {_T("+"), kNone},     {_T("GMTX"), kNone},
    };
    for (const auto& [text, expected] : rows) {
        SCOPED_TRACE(testing::PrintToString(CString(text)));
        int bias = kNone;
        EXPECT_EQ(AfxStringToUTCTimeZoneBias(text, bias), expected != kNone);
        EXPECT_EQ(bias, expected);
    }
}
