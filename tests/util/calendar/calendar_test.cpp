#include <quorvel/util/calendar/calendar.h>

#include "support/date_time.h"
#include "support/test.h"

#include <array>

// 0 is the empty date.
static COleDateTime DateOf(int year, int month, int day) {
    return day == 0 ? COleDateTime() : COleDateTime(year, month, day, 0, 0, 0);
}

// A day of March 2007; numbers below 1 are days of February.
static COleDateTime March(int day) {
    return COleDateTime(DATE{39141.0 + day});
}

static COleDateTime WithStatus(DATE serial, COleDateTime::DateTimeStatus status) {
    COleDateTime date(serial);
    date.SetStatus(status);
    return date;
}

// Functions that take a date and a count.
typedef COleDateTime (*Stepper)(COleDateTime, int);
constexpr Stepper kSteppers[] = {
    AfxGetPreviousWeekday, AfxGetNextWeekday,    AfxGetPreviousWeekendDay,
    AfxGetNextWeekendDay,  AfxGetPreviousMonday, AfxGetNextMonday,
};

TEST(Calendar, DatesAndTimesHaveTheirRanges) {
    const std::tuple<int, int, int, BOOL> dates[] = {
        {1, 1, 1, TRUE},     {31, 12, INT_MAX, TRUE}, {1, 1, 0, FALSE},
        {0, 3, 2007, FALSE}, {31, 4, 2007, FALSE},    {29, 2, 1900, FALSE},
        {29, 2, 2000, TRUE}, {1, 0, 2007, FALSE},     {1, 13, 2007, FALSE},
    };
    for (const auto& [day, month, year, isValid] : dates)
        EXPECT_EQ(AfxIsValidDate(day, month, year), isValid) << day << '.' << month << '.' << year;
    EXPECT_TRUE(AfxIsValidTime(0, 0, 0) && AfxIsValidTime(23, 59, 59));
    EXPECT_FALSE(AfxIsValidTime(24, 0, 0) || AfxIsValidTime(0, 60, 0) || AfxIsValidTime(0, 0, 60) ||
                 AfxIsValidTime(-1, 0, 0));
    const char* const kinds = "--EWWWWWE--"; // for the days -1 to 9
    for (int day = -1; day < 10; ++day) {
        EXPECT_EQ(AfxIsValidDayOfWeek(day), kinds[day + 1] != '-') << day;
        EXPECT_EQ(AfxIsWeekendDay(day), kinds[day + 1] == 'E') << day;
        EXPECT_EQ(AfxIsWeekday(day), kinds[day + 1] == 'W') << day;
    }
    EXPECT_FALSE(AfxIsEmptyDateTime(COleDateTime(0.25)) ||
                 AfxIsEmptyDateTime(WithStatus(0, COleDateTime::null)));
}

TEST(Calendar, MonthsDaysAndWeeksAreCounted) {
    const std::tuple<int, int, int> lastDays[] = {
        {7, 2007, 31}, {8, 2007, 31}, {9, 2007, 30}, {2, 2007, 28}, {2, 2008, 29},
        {2, 1900, 28}, {2, 2000, 29}, {13, 2006, 1}, {0, 2006, 1},  {2, 0, 1},
    };
    for (const auto& [month, year, lastDay] : lastDays)
        EXPECT_EQ(AfxGetLastDayInMonth(month, year), lastDay) << month << '/' << year;
    EXPECT_TRUE(AfxIsLeapYear(2000) && !AfxIsLeapYear(1900) && !AfxIsLeapYear(2007));
    const std::tuple<COleDateTime, int, int> days[] = {
        {March(-52), 7, 1},
        {March(-51), 8, 2},
        {DateOf(100, 1, 1), 1, 1},
        {DateOf(2008, 12, 31), 366, 53},
    };
    for (const auto& [day, dayOfYear, week] : days) {
        EXPECT_EQ(AfxGetDayOfTheYear(day), dayOfYear);
        EXPECT_EQ(AfxGetWeekNumber(day), week);
    }
}

// 2147483647 is 12 * 178956970 + 7, and 2147483648 is 12 * 178956970 + 8.
TEST(Calendar, MonthsMoveOverYears) {
    // Month, year, offset, resulting month and year; 0 means refused.
    const std::tuple<int, int, int, int, int> rows[] = {
        {3, 0, 12, 0, 0},       {3, 2007, 9, 12, 2007},  {3, 2007, -15, 12, 2005},
        {1, 1, -1, 12, 0},      {1, INT_MAX, 12, 0, 0},  {12, 1, INT_MAX, 7, 178956972},
        {0, 2007, 1, 0, 0},     {1, 2007, -1, 12, 2006}, {1, 1, INT_MIN, 5, -178956970},
        {12, 2006, 1, 1, 2007},
    };
    for (const auto& [month, year, offset, movedMonth, movedYear] : rows) {
        SCOPED_TRACE(testing::Message() << month << '/' << year << " by " << offset);
        const bool isMoved = movedMonth != 0;
        int newMonth = month, newYear = year;
        EXPECT_EQ(AfxOffsetMonth(newMonth, newYear, offset), isMoved);
        EXPECT_EQ(newMonth, isMoved ? movedMonth : month);
        EXPECT_EQ(newYear, isMoved ? movedYear : year);
    }
}

TEST(Calendar, OneStepReachesTheNextDayOfItsKind) {
    // The result of each function from Sunday 4 March and from the following days.
    const int steps[][6] = {
        {2, 5, 3, 10, -2, 5}, {2, 6, 4, 10, -2, 12}, {5, 7, 4, 10, 5, 12},  {6, 8, 4, 10, 5, 12},
        {7, 9, 4, 10, 5, 12}, {8, 12, 4, 10, 5, 12}, {9, 12, 4, 11, 5, 12},
    };
    for (int from = 4; from <= 10; ++from)
        for (int i = 0; i < 6; ++i) {
            const COleDateTime late(2007, 3, from, 23, 59, 59);
            EXPECT_EQ(kSteppers[i](late, 1), March(steps[from - 4][i])) << i << " of " << from;
        }
}

TEST(Calendar, ACountRepeatsTheStep) {
    for (const Stepper step : kSteppers)
        for (const DATE start : {39145., 39146., 39150., 39151., 0., -1., -6.}) {
            SCOPED_TRACE(testing::Message() << &step - kSteppers << " from " << start);
            COleDateTime stepped(start);
            for (int count = 1; count <= 30; ++count) {
                stepped = step(stepped, 1);
                ASSERT_EQ(step(COleDateTime(start), count), stepped) << count;
            }
        }
    const COleDateTime first = DateOf(100, 1, 1), last = DateOf(9999, 12, 31);
    EXPECT_EQ(AfxGetNextFriday(first, 516557), last);
    for (const COleDateTime& refused :
         {AfxGetPreviousFriday(last, 516558), AfxGetNextWeekday(March(7), 0),
          AfxGetNextMonday(March(7), INT_MIN), AfxGetNextDayOfWeek(March(7), 0, 1),
          AfxGetNextDayOfWeek(March(7), 8, 1)})
        EXPECT_EQ(refused, COleDateTime());
}

TEST(Calendar, WhatIsNotValidLeadsNowhere) {
    // The last would round to 1 January 10000.
    for (const COleDateTime& date :
         {WithStatus(39146, COleDateTime::invalid),
          WithStatus(std::numeric_limits<double>::quiet_NaN(), COleDateTime::valid),
          WithStatus(2958465.999999, COleDateTime::valid)}) {
        SCOPED_TRACE(testing::PrintToString(date));
        EXPECT_EQ(AfxGetDayOfTheYear(date), 0);
        EXPECT_EQ(AfxGetWeekNumber(date), 0);
        for (const Stepper step : kSteppers)
            EXPECT_EQ(step(date, 1), COleDateTime()) << &step - kSteppers;
    }
}

TEST(Calendar, AMonthsFirstAndLastDaysOfAKind) {
    typedef COleDateTime (*Finder)(int, int);
    const Finder finders[] = {
        AfxGetFirstWeekdayInMonth,   AfxGetLastWeekdayInMonth, AfxGetFirstWeekendDayInMonth,
        AfxGetLastWeekendDayInMonth, AfxGetFirstMondayInMonth, AfxGetLastMondayInMonth,
    };
    // Months that begin and end with different kinds of days.
    const std::tuple<int, int, std::array<int, 6>> rows[] = {
        {3, 2007, {1, 30, 3, 31, 5, 26}},
        {4, 2007, {2, 30, 1, 29, 2, 30}},
        {12, 9999, {1, 31, 4, 26, 6, 27}},
    };
    for (const auto& [month, year, days] : rows)
        for (std::size_t i = 0; i < 6; ++i)
            EXPECT_EQ(finders[i](month, year), DateOf(year, month, days[i])) << month << ", " << i;
}

TEST(Calendar, AnOrdinalStaysInItsMonth) {
    enum { Sunday = 1, Monday, Tuesday, Friday = 6, Saturday };
    // Month, year, day of the week, ordinal, day; 0 means no such day.
    const std::tuple<int, int, int, int, int> named[] = {
        {3, 2007, Monday, 4, 26},   {3, 2007, Monday, 5, 0},  {3, 2007, Tuesday, INT_MAX, 0},
        {3, 2007, Saturday, 5, 31}, {3, 2007, Tuesday, 0, 0}, {12, 9999, Friday, 5, 31},
        {1, 100, Friday, 1, 1},     {12, 99, Friday, 1, 0},   {3, 2007, 0, 1, 0},
        {3, 2007, 8, 1, 0},
    };
    for (const auto& [month, year, dayOfWeek, ordinal, day] : named)
        EXPECT_EQ(AfxGetOrdinalDayOfWeekInMonth(month, year, dayOfWeek, ordinal),
                  DateOf(year, month, day))
            << dayOfWeek << " no. " << ordinal << " of " << month << '/' << year;
    // Month, ordinal, weekday, weekend day of 2007.
    const std::tuple<int, int, int, int> kinds[] = {
        {3, 1, 1, 3},   {3, 3, 5, 10}, {3, 9, 13, 31}, {3, 10, 14, 0},
        {3, 22, 30, 0}, {3, 23, 0, 0}, {9, 1, 3, 1},   {3, INT_MAX, 0, 0},
    };
    for (const auto& [month, ordinal, weekday, weekendDay] : kinds) {
        SCOPED_TRACE(testing::Message() << "no. " << ordinal << " of " << month);
        EXPECT_EQ(AfxGetOrdinalWeekdayInMonth(month, 2007, ordinal), DateOf(2007, month, weekday));
        EXPECT_EQ(AfxGetOrdinalWeekendDayInMonth(month, 2007, ordinal),
                  DateOf(2007, month, weekendDay));
    }
    // December 2006 and three months is March 2007.
    EXPECT_EQ(AfxGetFirstTuesdayInOffsetMonth(12, 2006, 3), March(6));
    EXPECT_EQ(AfxGetLastTuesdayInOffsetMonth(12, 2006, 3), March(27));
    EXPECT_EQ(AfxGetOrdinalTuesdayInOffsetMonth(12, 2006, 3, 3), March(20));
}
