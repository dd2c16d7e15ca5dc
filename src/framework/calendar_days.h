// The Gregorian calendar as a line of days numbered from 30 December 1899, for COleDateTime's
// range.
//
// The arithmetic counts years from March, so that the leap day is the last day of a year. It
// counts days from 1 March of the year 0, so that all values are positive and the divisions are
// unsigned.
#pragma once

#include <quorvel/framework/date_time.h>

namespace quorvel {

constexpr int kFirstDay = -657434; // 1 January 100
constexpr int kLastDay = 2958465;  // 31 December 9999

struct CalendarDay {
    int year;
    int month;
    int day;
};

constexpr int kDaysFromMarchOfYear0 = 693899; // to 30 December 1899

// For the years 1 to 9999 and the months 1 to 12. A day past the month's end is in the next month.
constexpr int DaysFromCalendar(CalendarDay date) noexcept {
    const bool countsToLastYear = date.month < 3;
    const auto year = static_cast<unsigned>(date.year - countsToLastYear);
    const auto month = static_cast<unsigned>(countsToLastYear ? date.month + 9 : date.month - 3);
    const unsigned century = year / 100;
    const unsigned days = year * 1461 / 4 - century + century / 4 + (month * 153 + 2) / 5;
    return static_cast<int>(days) + date.day - 1 - kDaysFromMarchOfYear0;
}

// For the days of the years 1 to 9999.
constexpr CalendarDay CalendarFromDays(int daysFrom1899) noexcept {
    const auto days = static_cast<unsigned>(daysFrom1899 + kDaysFromMarchOfYear0);
    const unsigned era = days / 146097; // of 400 years
    const unsigned dayOfEra = days % 146097;
    const unsigned yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const unsigned dayOfYear = dayOfEra - (yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100);
    const unsigned month = (dayOfYear * 5 + 2) / 153; // March is 0
    return {static_cast<int>(era * 400 + yearOfEra + (month >= 10)),
            static_cast<int>(month < 10 ? month + 3 : month - 9),
            static_cast<int>(dayOfYear - (month * 153 + 2) / 5 + 1)};
}

static_assert(DaysFromCalendar({1899, 12, 30}) == 0);
static_assert(DaysFromCalendar({100, 1, 1}) == kFirstDay);
static_assert(DaysFromCalendar({9999, 12, 31}) == kLastDay);

// Splits a date into the number of its day and the second of that day, rounded like the members of
// COleDateTime. Returns false for an invalid date; the numbers are then unspecified.
bool ToDaysAndSeconds(const COleDateTime& date, int& days, int& seconds) noexcept;

} // namespace quorvel
