#include <quorvel/framework/date_time.h>

#include "support/test.h"

namespace {

constexpr double kSecond = 1.0 / 86400;

// Year, month, day, hour, minute and second.
typedef std::tuple<int, int, int, int, int, int> Parts;

Parts PartsOf(const COleDateTime& date) {
    return {date.GetYear(), date.GetMonth(),  date.GetDay(),
            date.GetHour(), date.GetMinute(), date.GetSecond()};
}

} // namespace

TEST(DateTime, SerialsAndCalendarPartsCorrespond) {
    const std::tuple<double, Parts, int, int> rows[] = {
        {-1.25, {1899, 12, 29, 6, 0, 0}, 6, 363}, // the fraction counts forward
        {61.0, {1900, 3, 1, 0, 0, 0}, 5, 60},     // 1900 is not a leap year
        {-657434.5, {100, 1, 1, 12, 0, 0}, 6, 1},
        {2958465 + 86399 * kSecond, {9999, 12, 31, 23, 59, 59}, 6, 365},
    };
    for (const auto& [serial, parts, dayOfWeek, dayOfYear] : rows) {
        SCOPED_TRACE(serial);
        const COleDateTime date(serial);
        EXPECT_EQ(PartsOf(date), parts);
        EXPECT_EQ(date.GetDayOfWeek(), dayOfWeek);
        EXPECT_EQ(date.GetDayOfYear(), dayOfYear);
        EXPECT_DOUBLE_EQ(std::make_from_tuple<COleDateTime>(parts).m_dt, serial);
    }
}

TEST(DateTime, EveryDayOfTheRangeFollowsTheOneBefore) {
    SYSTEMTIME last = {};
    ASSERT_TRUE(COleDateTime(-657434.0).GetAsSystemTime(last));
    for (int serial = -657433; serial <= 2958465; ++serial) {
        SYSTEMTIME day;
        ASSERT_TRUE(COleDateTime(static_cast<double>(serial)).GetAsSystemTime(day));
        const bool nextMonth = day.wDay == 1 && last.wDay >= 28;
        const int months = 12 * (day.wYear - last.wYear) + day.wMonth - last.wMonth;
        ASSERT_TRUE(nextMonth ? months == 1 : months == 0 && day.wDay == last.wDay + 1) << serial;
        ASSERT_EQ(day.wDayOfWeek, (last.wDayOfWeek + 1) % 7) << serial;
        ASSERT_EQ(COleDateTime(day).m_dt, serial);
        last = day;
    }
}

TEST(DateTime, APartOutOfRangeIsInvalidAndLeavesTheDate) {
    const Parts rows[] = {
        {99, 12, 31, 0, 0, 0},  {10000, 1, 1, 0, 0, 0}, {2007, 0, 1, 0, 0, 0},
        {1900, 2, 29, 0, 0, 0}, {2007, 1, 1, 24, 0, 0}, {2007, 1, 1, 0, -1, 0},
    };
    for (const Parts& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row));
        COleDateTime date(39083.0);
        EXPECT_EQ(std::apply([&](auto... parts) { return date.SetDateTime(parts...); }, row),
                  COleDateTime::invalid);
        EXPECT_EQ(date.m_dt, 39083.0);
        EXPECT_EQ(date.GetYear(), -1);
    }
    for (const double serial :
         {-657435.0, 2958466.0, -1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(COleDateTime(serial).GetStatus(), COleDateTime::invalid) << serial;
}

TEST(DateTime, ThePartsAreRoundedToTheNearestSecond) {
    const std::tuple<double, double, Parts> rows[] = {
        {39083, 0.4, {2007, 1, 1, 0, 0, 0}},  {39083, 0.6, {2007, 1, 1, 0, 0, 1}},
        {39083, 59.6, {2007, 1, 1, 0, 1, 0}}, {39082, 86399.6, {2007, 1, 1, 0, 0, 0}},
        {-1, -0.6, {1899, 12, 29, 0, 0, 1}},  {-1, -86399.6, {1899, 12, 30, 0, 0, 0}},
    };
    for (const auto& [serial, seconds, parts] : rows)
        EXPECT_EQ(PartsOf(COleDateTime(serial + seconds * kSecond)), parts);
    SYSTEMTIME time = {1, 2, 3, 4, 5, 6, 7, 8};
    EXPECT_FALSE(COleDateTime(2958465 + 86399.6 * kSecond).GetAsSystemTime(time));
    EXPECT_EQ(time.wYear, 1);
}

TEST(DateTime, SpansMoveDatesAlongTheTimeLine) {
    const COleDateTime late(0.25), early(-1.75); // half a day apart
    EXPECT_EQ(early + COleDateTimeSpan(0.5), late);
    EXPECT_EQ(late - COleDateTimeSpan(0.5), early);
    EXPECT_EQ((early - late).m_span, -0.5);
    EXPECT_EQ(COleDateTime(-0.25), COleDateTime(0.25));
}

TEST(DateTime, AResultTakesTheWorstStatus) {
    const COleDateTimeSpan day(1, 0, 0, 0);
    COleDateTime null;
    null.SetStatus(COleDateTime::null);
    EXPECT_EQ((null + day).GetStatus(), COleDateTime::null);
    EXPECT_EQ((COleDateTime(1e9) - null).GetStatus(), COleDateTimeSpan::null);
    EXPECT_EQ((COleDateTime(2958465.0) + day).GetStatus(), COleDateTime::invalid);
    EXPECT_EQ((COleDateTime(-657434.0) - day).GetStatus(), COleDateTime::invalid);
    EXPECT_EQ(COleDateTimeSpan(1e9).GetStatus(), COleDateTimeSpan::invalid);
    EXPECT_NE(null, COleDateTime());
}

TEST(DateTimeSpan, IsTakenApartInWholeSeconds) {
    const COleDateTimeSpan s(0, 49, 0, -1);
    EXPECT_TRUE(s.GetDays() == 2 && s.GetHours() == 0 && s.GetMinutes() == 59);
    EXPECT_EQ(s.GetSeconds(), 59);
    EXPECT_EQ(s.GetTotalSeconds(), 176399);
}

TEST(DateTime, FormatsTheListedDirectivesAndRefusesOthers) {
    const COleDateTime date(2007, 3, 4, 5, 6, 7);
    ExpectCases<CString, const WCHAR*>({
        CASE(date.Format(_T("%Y-%m-%dT%H:%M:%S")), _T("2007-03-04T05:06:07")),
        CASE(date.Format(_T("%a %A %B %j %y 100%%")), _T("Sun Sunday March 063 07 100%")),
        CASE(date.Format(_T("")), _T("")),
        CASE(date.Format(_T("%Y %")), _T("")),
        CASE(COleDateTime(1e9).Format(_T("%Y")), _T("")),
        CASE(COleDateTime(100, 1, 1, 0, 0, 0).Format(_T("%Y")), _T("0100")),
    });
}
