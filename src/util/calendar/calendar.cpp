// Days of the week, weekdays and weekend days are found in the same way: they are consecutive days
// that recur every week. Only those days are numbered, so a step of any size is one addition.
//
// The arithmetic uses numbers of whole days. A date counts as the day that its GetDay() returns:
// the date is first rounded to a second.
#include <quorvel/util/calendar/calendar.h>

#include "framework/calendar_days.h"

#include <algorithm>
#include <limits>

using namespace quorvel;

namespace {

// Consecutive days that recur every week.
struct WeeklyDays {
    int firstDayOfWeek; // 1 is Sunday
    int length;
};
constexpr WeeklyDays kAllDays{1, 7};
constexpr WeeklyDays kWeekdays{2, 5};
constexpr WeeklyDays kWeekendDays{7, 2};
constexpr WeeklyDays Only(int dayOfWeek) {
    return {dayOfWeek, 1};
}

// A larger number of steps always leaves the range of dates.
constexpr int kMostSteps = kLastDay - kFirstDay;
// A Sunday (day 1 is a Sunday) before any date, even after kMostSteps steps back by a week.
constexpr int kFirstSunday = 1 - 7 * (kMostSteps + 100000);
static_assert(kFirstDay - 7 * kMostSteps - 13 > kFirstSunday);

// Returns the count-th of the weekly days strictly after the day, or before it for a negative count
// (not below -kMostSteps). A start day that is not one of the weekly days counts as the last one
// when stepping forward and as the next one when stepping back.
constexpr int Step(int day, WeeklyDays weekly, int count) {
    const int origin = kFirstSunday + weekly.firstDayOfWeek - 1;
    const auto length = static_cast<unsigned>(weekly.length);
    const auto fromOrigin = static_cast<unsigned>(day - origin);
    const unsigned inWeek = std::min(fromOrigin % 7, count > 0 ? length - 1 : length);
    const unsigned ordinal = fromOrigin / 7 * length + inWeek + static_cast<unsigned>(count);
    return origin + static_cast<int>(ordinal / length * 7 + ordinal % length);
}

COleDateTime DateOfDay(int day) {
    COleDateTime date; // the empty one
    if (day >= kFirstDay && day <= kLastDay)
        date.m_dt = day;
    return date;
}

COleDateTime Stepped(const COleDateTime& date, WeeklyDays weekly, int count, int direction) {
    int day;
    int second;
    if (count < 1 || count > kMostSteps || !ToDaysAndSeconds(date, day, second))
        return COleDateTime();
    return DateOfDay(Step(day, weekly, direction * count));
}

// Internal twins of exported functions: a shared library calls exported ones through a table.
constexpr bool IsDayOfWeek(int dayOfWeek) {
    return dayOfWeek >= 1 && dayOfWeek <= 7;
}

constexpr bool IsLeapYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr int LastDayOf(int month, int year) {
    constexpr signed char kLastDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return kLastDays[month - 1] + (month == 2 && IsLeapYear(year));
}

bool HasDates(int month, int year) {
    return year >= 100 && year <= 9999 && month >= 1 && month <= 12;
}

int DayBefore(int month, int year) {
    return DaysFromCalendar({year, month, 0});
}

COleDateTime OrdinalInMonth(int month, int year, WeeklyDays weekly, int ordinal) {
    if (!HasDates(month, year) || ordinal < 1 || ordinal > 31)
        return COleDateTime();
    const int dayBefore = DayBefore(month, year);
    const int day = Step(dayBefore, weekly, ordinal);
    return DateOfDay(day - dayBefore <= LastDayOf(month, year) ? day : 0);
}

COleDateTime LastInMonth(int month, int year, WeeklyDays weekly) {
    if (!HasDates(month, year))
        return COleDateTime();
    const int dayAfter = DayBefore(month, year) + LastDayOf(month, year) + 1;
    return DateOfDay(Step(dayAfter, weekly, -1));
}

template <class Twin, class... More>
COleDateTime InOffsetMonth(Twin inMonth, int month, int year, int offset, More... more) {
    return AfxOffsetMonth(month, year, offset) ? inMonth(month, year, more...) : COleDateTime();
}

} // namespace

BOOL AfxIsValidDate(int day, int month, int year) {
    return year >= 1 && month >= 1 && month <= 12 && day >= 1 &&
           day <= AfxGetLastDayInMonth(month, year);
}

BOOL AfxIsValidTime(int hour, int minute, int second) {
    return static_cast<unsigned>(hour) < 24 && static_cast<unsigned>(minute) < 60 &&
           static_cast<unsigned>(second) < 60;
}

BOOL AfxIsValidDayOfWeek(int dayOfWeek) {
    return IsDayOfWeek(dayOfWeek);
}

BOOL AfxIsWeekendDay(int dayOfWeek) {
    return dayOfWeek == 1 || dayOfWeek == 7;
}

BOOL AfxIsWeekday(int dayOfWeek) {
    return dayOfWeek >= 2 && dayOfWeek <= 6;
}

BOOL AfxIsLeapYear(int year) {
    return year >= 1 && IsLeapYear(year);
}

BOOL AfxIsEmptyDateTime(COleDateTime date) {
    return date.GetStatus() == COleDateTime::valid && date.m_dt == 0;
}

int AfxGetLastDayInMonth(int month, int year) {
    if (year < 1 || month < 1 || month > 12)
        return 1; // Deliberate: callers use it as a day of the month.
    return LastDayOf(month, year);
}

int AfxGetDayOfTheYear(COleDateTime date) {
    const int day = date.GetDayOfYear();
    return day == COleDateTime::error ? 0 : day;
}

int AfxGetWeekNumber(COleDateTime date) {
    return (AfxGetDayOfTheYear(date) + 6) / 7;
}

BOOL AfxOffsetMonth(int& month, int& year, int offset) {
    if (!AfxIsValidDate(1, month, year))
        return FALSE;
    // Counts from January, or back from December, because division rounds towards zero.
    const long long months = offset < 0 ? 12LL - month - offset : month - 1LL + offset;
    const long long movedYear = offset < 0 ? year - months / 12 : year + months / 12;
    if (movedYear > std::numeric_limits<int>::max())
        return FALSE;
    month = static_cast<int>(offset < 0 ? 12 - months % 12 : months % 12 + 1);
    year = static_cast<int>(movedYear);
    return TRUE;
}

COleDateTime AfxGetFirstDayInOffsetMonth(int month, int year, int offset) {
    return InOffsetMonth(OrdinalInMonth, month, year, offset, kAllDays, 1);
}

COleDateTime AfxGetLastDayInOffsetMonth(int month, int year, int offset) {
    return InOffsetMonth(LastInMonth, month, year, offset, kAllDays);
}

COleDateTime AfxGetPreviousDayOfWeek(COleDateTime date, int dayOfWeek, int count) {
    return IsDayOfWeek(dayOfWeek) ? Stepped(date, Only(dayOfWeek), count, -1) : COleDateTime();
}

COleDateTime AfxGetNextDayOfWeek(COleDateTime date, int dayOfWeek, int count) {
    return IsDayOfWeek(dayOfWeek) ? Stepped(date, Only(dayOfWeek), count, 1) : COleDateTime();
}

COleDateTime AfxGetPreviousWeekday(COleDateTime date, int count) {
    return Stepped(date, kWeekdays, count, -1);
}

COleDateTime AfxGetNextWeekday(COleDateTime date, int count) {
    return Stepped(date, kWeekdays, count, 1);
}

COleDateTime AfxGetPreviousWeekendDay(COleDateTime date, int count) {
    return Stepped(date, kWeekendDays, count, -1);
}

COleDateTime AfxGetNextWeekendDay(COleDateTime date, int count) {
    return Stepped(date, kWeekendDays, count, 1);
}

COleDateTime AfxGetFirstDayOfWeekInMonth(int month, int year, int dayOfWeek) {
    return AfxGetOrdinalDayOfWeekInMonth(month, year, dayOfWeek, 1);
}

COleDateTime AfxGetLastDayOfWeekInMonth(int month, int year, int dayOfWeek) {
    return IsDayOfWeek(dayOfWeek) ? LastInMonth(month, year, Only(dayOfWeek)) : COleDateTime();
}

COleDateTime AfxGetFirstDayOfWeekInOffsetMonth(int month, int year, int offset, int dayOfWeek) {
    return InOffsetMonth(AfxGetFirstDayOfWeekInMonth, month, year, offset, dayOfWeek);
}

COleDateTime AfxGetLastDayOfWeekInOffsetMonth(int month, int year, int offset, int dayOfWeek) {
    return InOffsetMonth(AfxGetLastDayOfWeekInMonth, month, year, offset, dayOfWeek);
}

COleDateTime AfxGetFirstWeekdayInMonth(int month, int year) {
    return OrdinalInMonth(month, year, kWeekdays, 1);
}

COleDateTime AfxGetLastWeekdayInMonth(int month, int year) {
    return LastInMonth(month, year, kWeekdays);
}

COleDateTime AfxGetFirstWeekendDayInMonth(int month, int year) {
    return OrdinalInMonth(month, year, kWeekendDays, 1);
}

COleDateTime AfxGetLastWeekendDayInMonth(int month, int year) {
    return LastInMonth(month, year, kWeekendDays);
}

COleDateTime AfxGetFirstWeekdayInOffsetMonth(int month, int year, int offset) {
    return InOffsetMonth(AfxGetFirstWeekdayInMonth, month, year, offset);
}

COleDateTime AfxGetLastWeekdayInOffsetMonth(int month, int year, int offset) {
    return InOffsetMonth(AfxGetLastWeekdayInMonth, month, year, offset);
}

COleDateTime AfxGetFirstWeekendDayInOffsetMonth(int month, int year, int offset) {
    return InOffsetMonth(AfxGetFirstWeekendDayInMonth, month, year, offset);
}

COleDateTime AfxGetLastWeekendDayInOffsetMonth(int month, int year, int offset) {
    return InOffsetMonth(AfxGetLastWeekendDayInMonth, month, year, offset);
}

COleDateTime AfxGetOrdinalDayOfWeekInMonth(int month, int year, int dayOfWeek, int ordinal) {
    return IsDayOfWeek(dayOfWeek) ? OrdinalInMonth(month, year, Only(dayOfWeek), ordinal)
                                  : COleDateTime();
}

COleDateTime AfxGetOrdinalDayOfWeekInOffsetMonth(int month, int year, int offset, int dayOfWeek,
                                                 int ordinal) {
    return InOffsetMonth(AfxGetOrdinalDayOfWeekInMonth, month, year, offset, dayOfWeek, ordinal);
}

COleDateTime AfxGetOrdinalWeekdayInMonth(int month, int year, int ordinal) {
    return OrdinalInMonth(month, year, kWeekdays, ordinal);
}

COleDateTime AfxGetOrdinalWeekendDayInMonth(int month, int year, int ordinal) {
    return OrdinalInMonth(month, year, kWeekendDays, ordinal);
}

COleDateTime AfxGetOrdinalWeekdayInOffsetMonth(int month, int year, int offset, int ordinal) {
    return InOffsetMonth(AfxGetOrdinalWeekdayInMonth, month, year, offset, ordinal);
}

COleDateTime AfxGetOrdinalWeekendDayInOffsetMonth(int month, int year, int offset, int ordinal) {
    return InOffsetMonth(AfxGetOrdinalWeekendDayInMonth, month, year, offset, ordinal);
}
