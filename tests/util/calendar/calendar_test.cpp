#include <quorvel/util/calendar/calendar.h>

#include "support/date_time.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <tuple>

namespace {

struct Day {
    int year, month, day;
};
constexpr Day kNone{0, 0, 0}; // the empty date
constexpr Day kFirst{100, 1, 1};
constexpr Day kLast{9999, 12, 31};

COleDateTime DateOf(Day day) {
    return day.year == 0 ? COleDateTime() : COleDateTime(day.year, day.month, day.day, 0, 0, 0);
}

COleDateTime WithStatus(DATE serial, COleDateTime::DateTimeStatus status) {
    COleDateTime date(serial);
    date.SetStatus(status);
    return date;
}

const COleDateTime kUnusable[] = {
    WithStatus(39146, COleDateTime::invalid),
    WithStatus(39146, COleDateTime::null),
    WithStatus(std::numeric_limits<double>::quiet_NaN(), COleDateTime::valid),
    WithStatus(2958466, COleDateTime::valid),
    WithStatus(2958465.999999, COleDateTime::valid), // rounds to 1 January 10000
    WithStatus(-657435, COleDateTime::valid),
    WithStatus(1e300, COleDateTime::valid),
};

enum DayOfWeek { Sunday = 1, Monday, Tuesday, Wednesday, Thursday, Friday, Saturday };

// Steps by a count: the functions with a date and a count.
typedef COleDateTime (*Stepper)(COleDateTime, int);
const struct {
    const char* label;
    Stepper step;
} kSteppers[] = {
    {"previous weekday", AfxGetPreviousWeekday},        {"next weekday", AfxGetNextWeekday},
    {"previous weekend day", AfxGetPreviousWeekendDay}, {"next weekend day", AfxGetNextWeekendDay},
    {"previous Monday", AfxGetPreviousMonday},          {"next Monday", AfxGetNextMonday},
};

} // namespace

TEST(Calendar, ADateIsOneOfItsMonthsDays) {
    const std::tuple<int, int, int, BOOL> rows[] = {
        {1, 1, 1, TRUE},      {31, 12, INT_MAX, TRUE}, {1, 1, 0, FALSE},      {1, 1, -4, FALSE},
        {0, 3, 2007, FALSE},  {31, 3, 2007, TRUE},     {32, 3, 2007, FALSE},  {31, 4, 2007, FALSE},
        {29, 2, 2007, FALSE}, {29, 2, 2008, TRUE},     {29, 2, 1900, FALSE},  {29, 2, 2000, TRUE},
        {1, 0, 2007, FALSE},  {1, 13, 2007, FALSE},    {-1, -1, 2007, FALSE},
    };
    for (const auto& [day, month, year, isValid] : rows)
        EXPECT_EQ(AfxIsValidDate(day, month, year), isValid) << day << '.' << month << '.' << year;
}

TEST(Calendar, ATimeIsOneOfTheDaysSeconds) {
    const std::tuple<int, int, int, BOOL> rows[] = {
        {0, 0, 0, TRUE},   {23, 59, 59, TRUE}, {24, 0, 0, FALSE}, {0, 60, 0, FALSE},
        {0, 0, 60, FALSE}, {-1, 0, 0, FALSE},  {0, -1, 0, FALSE}, {0, 0, INT_MIN, FALSE},
    };
    for (const auto& [hour, minute, second, isValid] : rows)
        EXPECT_EQ(AfxIsValidTime(hour, minute, second), isValid)
            << hour << ':' << minute << ':' << second;
}

TEST(Calendar, SundayAndSaturdayAreTheWeekend) {
    const char* const kinds = "-EWWWWWE--"; // of 0 to 9
    for (int day = -3; day < 10; ++day) {
        SCOPED_TRACE(day);
        const char kind = day < 0 ? '-' : kinds[day];
        EXPECT_EQ(AfxIsValidDayOfWeek(day), kind != '-');
        EXPECT_EQ(AfxIsWeekendDay(day), kind == 'E');
        EXPECT_EQ(AfxIsWeekday(day), kind == 'W');
    }
}

TEST(Calendar, LeapYearsLengthenFebruary) {
    const std::tuple<int, int, int> rows[] = {
        {1, 2007, 31},  {2, 2007, 28},      {3, 2007, 31},   {4, 2007, 30},        {5, 2007, 31},
        {6, 2007, 30},  {7, 2007, 31},      {8, 2007, 31},   {9, 2007, 30},        {10, 2007, 31},
        {11, 2007, 30}, {12, 2007, 31},     {2, 2008, 29},   {2, 1900, 28},        {2, 2000, 29},
        {2, 4, 29},     {2, 1, 28},         {13, 2006, 1},   {0, 2006, 1},         {2, 0, 1},
        {2, -4, 1},     {INT_MIN, 2006, 1}, {INT_MAX, 1, 1}, {2, INT_MAX - 3, 29},
    };
    for (const auto& [month, year, lastDay] : rows) {
        SCOPED_TRACE(testing::Message() << month << '/' << year);
        EXPECT_EQ(AfxGetLastDayInMonth(month, year), lastDay);
        if (month == 2) {
            EXPECT_EQ(AfxIsLeapYear(year), lastDay == 29);
        }
    }
}

TEST(Calendar, DaysAndWeeksAreCountedFromTheFirstOfJanuary) {
    const std::tuple<Day, int, int> rows[] = {
        {{2007, 1, 1}, 1, 1},      {{2007, 1, 7}, 7, 1},      {{2007, 1, 8}, 8, 2},
        {{2006, 1, 7}, 7, 1},      {{2006, 1, 8}, 8, 2},      {{2007, 12, 30}, 364, 52},
        {{2007, 12, 31}, 365, 53}, {{2008, 12, 31}, 366, 53}, {{2008, 3, 1}, 61, 9},
        {{1899, 12, 30}, 364, 52}, {{1899, 12, 29}, 363, 52}, {kFirst, 1, 1},
        {kLast, 365, 53},
    };
    for (const auto& [day, dayOfYear, week] : rows) {
        SCOPED_TRACE(testing::PrintToString(DateOf(day)));
        EXPECT_EQ(AfxGetDayOfTheYear(DateOf(day)), dayOfYear);
        EXPECT_EQ(AfxGetWeekNumber(DateOf(day)), week);
    }
    for (const COleDateTime& date : kUnusable) {
        EXPECT_EQ(AfxGetDayOfTheYear(date), 0) << testing::PrintToString(date);
        EXPECT_EQ(AfxGetWeekNumber(date), 0) << testing::PrintToString(date);
    }
}

TEST(Calendar, OnlyAValidZeroIsTheEmptyDate) {
    EXPECT_TRUE(AfxIsEmptyDateTime(COleDateTime()));
    EXPECT_FALSE(AfxIsEmptyDateTime(COleDateTime(0.25)));
    EXPECT_FALSE(AfxIsEmptyDateTime(WithStatus(0, COleDateTime::null)));
    EXPECT_FALSE(AfxIsEmptyDateTime(WithStatus(0, COleDateTime::invalid)));
}

// 2147483647 is 12 times 178956970 and 7, 2147483648 is 12 times 178956970 and 8.
TEST(Calendar, MonthsMoveOverYears) {
    // movedMonth: 0: refused
    // movedYear: 0: refused
    const std::tuple<int, int, int, int, int> rows[] = {
        {12, 2006, 1, 1, 2007},         {1, 2007, -1, 12, 2006}, {3, 2007, -14, 1, 2006},
        {3, 2007, -15, 12, 2005},       {3, 2007, 0, 3, 2007},   {3, 2007, 9, 12, 2007},
        {3, 2007, 10, 1, 2008},         {3, 2007, -2, 1, 2007},  {12, 2007, -12, 12, 2006},
        {12, 2007, -24, 12, 2005},      {1, 1, -1, 12, 0},       {1, 1, -13, 12, -1},
        {1, INT_MAX, 11, 12, INT_MAX},  {1, INT_MAX, 12, 0, 0},  {0, 2007, 1, 0, 0},
        {13, 2007, -1, 0, 0},           {3, 0, 12, 0, 0},        {12, 1, INT_MAX, 7, 178956972},
        {1, 1, INT_MIN, 5, -178956970},
    };
    for (const auto& [month, year, offset, movedMonth, movedYear] : rows) {
        SCOPED_TRACE(testing::Message() << month << '/' << year << " by " << offset);
        const bool isMoved = movedMonth != 0;
        int newMonth = month;
        int newYear = year;
        EXPECT_EQ(AfxOffsetMonth(newMonth, newYear, offset), isMoved);
        EXPECT_EQ(newMonth, isMoved ? movedMonth : month);
        EXPECT_EQ(newYear, isMoved ? movedYear : year);
    }
}

// Sunday 4 March 2007 to Saturday 10 March 2007, and where one step leads.
TEST(Calendar, OneStepGoesToTheDaysOfItsKindOnly) {
    const int steps[][4] = {
        // previous weekday, next weekday, previous weekend day, next weekend day; days of March
        {2, 5, 3, 10},  // from Sunday 4
        {2, 6, 4, 10},  // Monday 5
        {5, 7, 4, 10},  // Tuesday 6
        {6, 8, 4, 10},  // Wednesday 7
        {7, 9, 4, 10},  // Thursday 8
        {8, 12, 4, 10}, // Friday 9
        {9, 12, 4, 11}, // Saturday 10
    };
    for (int from = 4; from <= 10; ++from) {
        for (int i = 0; i < 4; ++i) {
            SCOPED_TRACE(testing::Message() << kSteppers[i].label << " of " << from);
            const COleDateTime late(2007, 3, from, 23, 59, 59);
            EXPECT_EQ(kSteppers[i].step(late, 1), DateOf({2007, 3, steps[from - 4][i]}));
        }
        for (int dayOfWeek = Sunday; dayOfWeek <= Saturday; ++dayOfWeek) {
            SCOPED_TRACE(testing::Message() << "day " << dayOfWeek << " from " << from);
            const int inWeek = 3 + dayOfWeek; // the day of March in this week
            const COleDateTime date = DateOf({2007, 3, from});
            EXPECT_EQ(AfxGetNextDayOfWeek(date, dayOfWeek, 1),
                      DateOf({2007, 3, inWeek > from ? inWeek : inWeek + 7}));
            EXPECT_EQ(AfxGetPreviousDayOfWeek(date, dayOfWeek, 1),
                      DateOf(inWeek < from ? Day{2007, 3, inWeek}
                             : inWeek >= 8 ? Day{2007, 3, inWeek - 7}
                                           : Day{2007, 2, inWeek + 21}));
        }
    }
}

TEST(Calendar, ACountRepeatsTheStep) {
    for (const auto& row : kSteppers) {
        for (const int start : {39145, 39146, 39150, 39151, 0, -1, -6}) {
            SCOPED_TRACE(testing::Message() << row.label << " from " << start);
            COleDateTime stepped(DATE{1.0 * start});
            for (int count = 1; count <= 30; ++count) {
                stepped = row.step(stepped, 1);
                ASSERT_EQ(row.step(COleDateTime(DATE{1.0 * start}), count), stepped) << count;
            }
        }
    }
}

TEST(Calendar, StepsReachFarAndEndWithTheRange) {
    const std::tuple<const char*, Stepper, Day, int, Day> rows[] = {
        {"Friday before", AfxGetPreviousWeekday, {2007, 3, 6}, 2, {2007, 3, 2}},
        {"2000 weeks on", AfxGetNextWeekday, {2007, 3, 7}, 10000, {2045, 7, 5}},
        {"2000 weeks back", AfxGetPreviousWeekday, {2007, 3, 7}, 10000, {1968, 11, 6}},
        {"to the last day", AfxGetNextWeekday, {9999, 12, 30}, 1, kLast},
        {"past the last day", AfxGetNextWeekday, {9999, 12, 30}, 2, kNone},
        {"past the last weekend", AfxGetNextWeekendDay, {9999, 12, 26}, 1, kNone},
        {"to the first day", AfxGetPreviousWeekday, {100, 1, 4}, 1, kFirst},
        {"before the first day", AfxGetPreviousWeekday, {100, 1, 4}, 2, kNone},
        {"before the first Monday", AfxGetPreviousMonday, {100, 1, 4}, 1, kNone},
        {"over the whole range", AfxGetNextFriday, kFirst, 516557, kLast},
        {"and back", AfxGetPreviousFriday, kLast, 516557, kFirst},
        {"one week too many", AfxGetPreviousFriday, kLast, 516558, kNone},
        {"most weekend days", AfxGetPreviousWeekendDay, {2007, 3, 7}, INT_MAX, kNone},
        {"most Mondays", AfxGetNextMonday, kFirst, INT_MAX, kNone},
        {"no step", AfxGetNextWeekday, {2007, 3, 7}, 0, kNone},
        {"a negative count", AfxGetPreviousWeekendDay, {2007, 3, 7}, -1, kNone},
        {"the least count", AfxGetNextMonday, {2007, 3, 7}, INT_MIN, kNone},
    };
    for (const auto& [label, step, from, count, to] : rows)
        EXPECT_EQ(step(DateOf(from), count), DateOf(to)) << label;
}

TEST(Calendar, DatesThatAreNotValidLeadNowhere) {
    for (const COleDateTime& date : kUnusable)
        for (const auto& row : kSteppers)
            EXPECT_EQ(row.step(date, 1), COleDateTime())
                << row.label << " of " << testing::PrintToString(date);
    for (const int dayOfWeek : {INT_MIN, -1, 0, 8, INT_MAX}) {
        SCOPED_TRACE(dayOfWeek);
        const COleDateTime date(2007, 3, 7, 0, 0, 0);
        EXPECT_EQ(AfxGetNextDayOfWeek(date, dayOfWeek, 1), COleDateTime());
        EXPECT_EQ(AfxGetPreviousDayOfWeek(date, dayOfWeek, 1), COleDateTime());
        EXPECT_EQ(AfxGetFirstDayOfWeekInMonth(3, 2007, dayOfWeek), COleDateTime());
        EXPECT_EQ(AfxGetLastDayOfWeekInMonth(3, 2007, dayOfWeek), COleDateTime());
        EXPECT_EQ(AfxGetOrdinalDayOfWeekInMonth(3, 2007, dayOfWeek, 1), COleDateTime());
        EXPECT_EQ(AfxGetOrdinalDayOfWeekInOffsetMonth(3, 2007, 1, dayOfWeek, 1), COleDateTime());
    }
}

TEST(Calendar, AMonthsFirstAndLastDaysOfAKind) {
    const std::tuple<int, int, int, int, int, int, int, int> rows[] = {
        // Months that begin and end with each kind of day.
        {3, 2007, 1, 30, 3, 31, 5, 26}, {9, 2007, 3, 28, 1, 30, 3, 24},
        {4, 2007, 2, 30, 1, 29, 2, 30}, {2, 2008, 1, 29, 2, 24, 4, 25},
        {2, 2010, 1, 26, 6, 28, 1, 22}, {12, 1899, 1, 29, 2, 31, 4, 25},
        {1, 100, 1, 29, 2, 31, 4, 25},  {12, 9999, 1, 31, 4, 26, 6, 27},
    };
    for (const auto& [month, year, firstWeekday, lastWeekday, firstWeekendDay, lastWeekendDay,
                      firstMonday, lastMonday] : rows) {
        SCOPED_TRACE(testing::Message() << month << '/' << year);
        const auto day = [&](int number) { return DateOf({year, month, number}); };
        EXPECT_EQ(AfxGetFirstWeekdayInMonth(month, year), day(firstWeekday));
        EXPECT_EQ(AfxGetLastWeekdayInMonth(month, year), day(lastWeekday));
        EXPECT_EQ(AfxGetFirstWeekendDayInMonth(month, year), day(firstWeekendDay));
        EXPECT_EQ(AfxGetLastWeekendDayInMonth(month, year), day(lastWeekendDay));
        EXPECT_EQ(AfxGetFirstMondayInMonth(month, year), day(firstMonday));
        EXPECT_EQ(AfxGetLastMondayInMonth(month, year), day(lastMonday));
    }
}

TEST(Calendar, AnOrdinalStaysInItsMonth) {
    // month: 0: none
    // year: 0: none
    // dayOfWeek: 0: none
    // ordinal: 0: none
    // day: 0: none
    const std::tuple<int, int, int, int, int> rows[] = {
        {3, 2007, Monday, 1, 5},        {3, 2007, Monday, 4, 26},       {3, 2007, Monday, 5, 0},
        {4, 2007, Monday, 5, 30},       {4, 2007, Monday, 6, 0},        {3, 2007, Thursday, 5, 29},
        {3, 2007, Saturday, 5, 31},     {3, 2007, Sunday, 5, 0},        {2, 2008, Friday, 5, 29},
        {2, 2007, Friday, 5, 0},        {3, 2007, Tuesday, 0, 0},       {3, 2007, Tuesday, -1, 0},
        {3, 2007, Tuesday, INT_MAX, 0}, {3, 2007, Tuesday, INT_MIN, 0}, {12, 9999, Friday, 5, 31},
        {12, 9999, Friday, 6, 0},       {1, 100, Friday, 1, 1},         {12, 99, Friday, 1, 0},
        {1, 10000, Monday, 1, 0},       {0, 2007, Monday, 1, 0},        {13, 2007, Monday, 1, 0},
        {3, -1, Monday, 1, 0},          {12, 1899, Friday, 5, 29},
    };
    for (const auto& [month, year, dayOfWeek, ordinal, day] : rows) {
        SCOPED_TRACE(testing::Message()
                     << dayOfWeek << " no. " << ordinal << " of " << month << '/' << year);
        EXPECT_EQ(AfxGetOrdinalDayOfWeekInMonth(month, year, dayOfWeek, ordinal),
                  DateOf(day == 0 ? kNone : Day{year, month, day}));
    }
}

TEST(Calendar, OrdinalWeekdaysAndWeekendDaysStayInTheirMonth) {
    const struct {
        int month, year, ordinal, weekday, weekendDay; // 0: none
    } rows[] = {
        {3, 2007, 1, 1, 3},   {3, 2007, 2, 2, 4},   {3, 2007, 3, 5, 10},
        {3, 2007, 9, 13, 31}, {3, 2007, 10, 14, 0}, {3, 2007, 22, 30, 0},
        {3, 2007, 23, 0, 0},  {9, 2007, 1, 3, 1},   {9, 2007, 10, 14, 30},
        {9, 2007, 20, 28, 0}, {9, 2007, 21, 0, 0},  {12, 9999, 23, 31, 0},
        {3, 2007, 0, 0, 0},   {3, 2007, -1, 0, 0},  {3, 2007, INT_MAX, 0, 0},
        {13, 2007, 1, 0, 0},  {3, 99, 1, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << "no. " << row.ordinal << " of " << row.month << '/' << row.year);
        const auto day = [&](int number) {
            return DateOf(number == 0 ? kNone : Day{row.year, row.month, number});
        };
        EXPECT_EQ(AfxGetOrdinalWeekdayInMonth(row.month, row.year, row.ordinal), day(row.weekday));
        EXPECT_EQ(AfxGetOrdinalWeekendDayInMonth(row.month, row.year, row.ordinal),
                  day(row.weekendDay));
    }
}

// Three months on from December 2006 is March 2007.
TEST(Calendar, OffsetMonthsMoveBeforeTheyAreSearched) {
    const std::tuple<const char*, COleDateTime, Day> rows[] = {
        {"last day", AfxGetLastDayInOffsetMonth(12, 2006, 3), {2007, 3, 31}},
        {"last day of February", AfxGetLastDayInOffsetMonth(3, 2008, -1), {2008, 2, 29}},
        {"first Tuesday", AfxGetFirstDayOfWeekInOffsetMonth(12, 2006, 3, Tuesday), {2007, 3, 6}},
        {"last Tuesday", AfxGetLastDayOfWeekInOffsetMonth(12, 2006, 3, Tuesday), {2007, 3, 27}},
        {"first weekday", AfxGetFirstWeekdayInOffsetMonth(12, 2006, 3), {2007, 3, 1}},
        {"last weekday", AfxGetLastWeekdayInOffsetMonth(12, 2006, 3), {2007, 3, 30}},
        {"first weekend day", AfxGetFirstWeekendDayInOffsetMonth(12, 2006, 3), {2007, 3, 3}},
        {"last weekend day", AfxGetLastWeekendDayInOffsetMonth(12, 2006, 3), {2007, 3, 31}},
        {"third Tuesday",
         AfxGetOrdinalDayOfWeekInOffsetMonth(12, 2006, 3, Tuesday, 3),
         {2007, 3, 20}},
        {"fifth Tuesday", AfxGetOrdinalDayOfWeekInOffsetMonth(12, 2006, 3, Tuesday, 5), kNone},
        {"third weekday", AfxGetOrdinalWeekdayInOffsetMonth(12, 2006, 3, 3), {2007, 3, 5}},
        {"third weekend day", AfxGetOrdinalWeekendDayInOffsetMonth(12, 2006, 3, 3), {2007, 3, 10}},
        {"to the year 0", AfxGetFirstDayInOffsetMonth(1, 1, -1), kNone},
        {"to the year 99", AfxGetLastDayInOffsetMonth(1, 100, -1), kNone},
        {"to the year 10000", AfxGetFirstDayInOffsetMonth(12, 9999, 1), kNone},
        {"from the year 99", AfxGetFirstDayInOffsetMonth(12, 99, 1), kFirst},
        {"far off", AfxGetLastWeekdayInOffsetMonth(12, 2006, INT_MAX), kNone},
        {"far back", AfxGetFirstWeekendDayInOffsetMonth(12, 2006, INT_MIN), kNone},
    };
    for (const auto& [label, date, expected] : rows)
        EXPECT_EQ(date, DateOf(expected)) << label;
}

#define NAMED_DAY(Day)                                                                             \
    {                                                                                              \
        Day, AfxGetPrevious##Day, AfxGetNext##Day, AfxGetFirst##Day##InMonth,                      \
            AfxGetLast##Day##InMonth, AfxGetFirst##Day##InOffsetMonth,                             \
            AfxGetLast##Day##InOffsetMonth, AfxGetOrdinal##Day##InMonth,                           \
            AfxGetOrdinal##Day##InOffsetMonth                                                      \
    }

TEST(Calendar, ANamedDayFixesTheDayOfTheWeek) {
    const struct {
        int dayOfWeek;
        Stepper previous, next;
        COleDateTime (*first)(int, int);
        COleDateTime (*last)(int, int);
        COleDateTime (*firstInOffset)(int, int, int);
        COleDateTime (*lastInOffset)(int, int, int);
        COleDateTime (*ordinal)(int, int, int);
        COleDateTime (*ordinalInOffset)(int, int, int, int);
    } rows[] = {
        NAMED_DAY(Sunday),   NAMED_DAY(Monday), NAMED_DAY(Tuesday),  NAMED_DAY(Wednesday),
        NAMED_DAY(Thursday), NAMED_DAY(Friday), NAMED_DAY(Saturday),
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.dayOfWeek);
        // The dates lie in April 2007, which begins with a Sunday, and around it.
        const auto april = [](int day) { return DateOf({2007, 4, day}); };
        const int day = row.dayOfWeek;
        EXPECT_EQ(row.previous(april(30), 2), april(day < Monday ? 22 : 14 + day));
        EXPECT_EQ(row.next(DateOf({2007, 3, 31}), 2), april(day + 7));
        EXPECT_EQ(row.first(4, 2007), april(day));
        EXPECT_EQ(row.last(4, 2007), april(day <= Monday ? 28 + day : 21 + day));
        EXPECT_EQ(row.firstInOffset(5, 2007, -1), april(day));
        EXPECT_EQ(row.lastInOffset(1, 2007, 3), april(day <= Monday ? 28 + day : 21 + day));
        EXPECT_EQ(row.ordinal(4, 2007, 3), april(14 + day));
        EXPECT_EQ(row.ordinalInOffset(4, 2006, 12, 4), april(21 + day));
    }
}
