// Calendar dates: validity, moving by months, and days such as the last Friday of a month.
//
// Days of the week are numbered as COleDateTime does, from 1 (Sunday) to 7 (Saturday); a weekend
// day is 1 or 7, a weekday any other. Months are 1 to 12, the calendar is Gregorian throughout.
//
// Every function that returns a date returns a whole day at 00:00:00. It returns the empty date
// (the value 0.0 with a valid status), never a date that is not valid, in three cases: an argument
// is out of range or not valid; there is no such day; the day is outside COleDateTime's years, 100
// to 9999. The time of day of an argument is ignored. Nothing throws. Any thread.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/platform/platform.h>

// Whether the year is at least 1 and the month has that day.
QUORVEL_API BOOL AfxIsValidDate(int day, int month, int year);
QUORVEL_API BOOL AfxIsValidTime(int hour, int minute, int second); // 0:00:00 to 23:59:59
QUORVEL_API BOOL AfxIsValidDayOfWeek(int dayOfWeek);               // 1 to 7
QUORVEL_API BOOL AfxIsWeekendDay(int dayOfWeek);                   // 1 or 7
QUORVEL_API BOOL AfxIsWeekday(int dayOfWeek);                      // 2 to 6
QUORVEL_API BOOL AfxIsLeapYear(int year);                          // FALSE below the year 1
QUORVEL_API BOOL AfxIsEmptyDateTime(COleDateTime date);            // the value 0.0, status valid

// 28 to 31. Deliberate: 1, not 0, for a year below 1 or a month out of range.
QUORVEL_API int AfxGetLastDayInMonth(int month, int year);
// 1 for 1 January; 0 for a date that is not valid.
QUORVEL_API int AfxGetDayOfTheYear(COleDateTime date);
// Weeks are blocks of seven days that start on 1 January, whatever its day of the week: 7 January
// ends week 1, and 31 December is in week 53. 0 for a date that is not valid.
QUORVEL_API int AfxGetWeekNumber(COleDateTime date);

// Moves the pair by `offset` months: (12, 2006) by 1 is (1, 2007). The result may be a year below
// 1. Returns FALSE and leaves the pair unchanged when the month or year is not valid (the year must
// be at least 1), and when the new year does not fit in an int.
QUORVEL_API BOOL AfxOffsetMonth(int& month, int& year, int offset);

// Below, a function that ends in InOffsetMonth is the one that ends in InMonth, for the month moved
// by AfxOffsetMonth. Counts and ordinals are 1 or more; the time taken does not depend on them.
// The first and the last day of the month:
QUORVEL_API COleDateTime AfxGetFirstDayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetLastDayInOffsetMonth(int month, int year, int offset);

// The count-th such day after or before the date: AfxGetNextWeekday adds `count` working days.
QUORVEL_API COleDateTime AfxGetPreviousDayOfWeek(COleDateTime date, int dayOfWeek, int count);
QUORVEL_API COleDateTime AfxGetNextDayOfWeek(COleDateTime date, int dayOfWeek, int count);
QUORVEL_API COleDateTime AfxGetPreviousWeekday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetNextWeekday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetPreviousWeekendDay(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetNextWeekendDay(COleDateTime date, int count);

// The first and the last such day of a month.
QUORVEL_API COleDateTime AfxGetFirstDayOfWeekInMonth(int month, int year, int dayOfWeek);
QUORVEL_API COleDateTime AfxGetLastDayOfWeekInMonth(int month, int year, int dayOfWeek);
QUORVEL_API COleDateTime AfxGetFirstDayOfWeekInOffsetMonth(int month, int year, int offset,
                                                           int dayOfWeek);
QUORVEL_API COleDateTime AfxGetLastDayOfWeekInOffsetMonth(int month, int year, int offset,
                                                          int dayOfWeek);
QUORVEL_API COleDateTime AfxGetFirstWeekdayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetLastWeekdayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetFirstWeekendDayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetLastWeekendDayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetFirstWeekdayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetLastWeekdayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetFirstWeekendDayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetLastWeekendDayInOffsetMonth(int month, int year, int offset);

// The ordinal-th such day of a month: 2 is the second. Returns the empty date, not the last such
// day, when the month has fewer.
QUORVEL_API COleDateTime AfxGetOrdinalDayOfWeekInMonth(int month, int year, int dayOfWeek,
                                                       int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalDayOfWeekInOffsetMonth(int month, int year, int offset,
                                                             int dayOfWeek, int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalWeekdayInMonth(int month, int year, int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalWeekendDayInMonth(int month, int year, int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalWeekdayInOffsetMonth(int month, int year, int offset,
                                                           int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalWeekendDayInOffsetMonth(int month, int year, int offset,
                                                              int ordinal);

// The same functions with the day of the week in their name: AfxGetFirstMondayInMonth(month, year)
// is AfxGetFirstDayOfWeekInMonth(month, year, 2), and so on.

// The count-th such day strictly before the date.
QUORVEL_API COleDateTime AfxGetPreviousSunday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetPreviousMonday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetPreviousTuesday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetPreviousWednesday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetPreviousThursday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetPreviousFriday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetPreviousSaturday(COleDateTime date, int count);

// The count-th such day strictly after the date.
QUORVEL_API COleDateTime AfxGetNextSunday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetNextMonday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetNextTuesday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetNextWednesday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetNextThursday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetNextFriday(COleDateTime date, int count);
QUORVEL_API COleDateTime AfxGetNextSaturday(COleDateTime date, int count);

// The first such day of the month.
QUORVEL_API COleDateTime AfxGetFirstSundayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetFirstMondayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetFirstTuesdayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetFirstWednesdayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetFirstThursdayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetFirstFridayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetFirstSaturdayInMonth(int month, int year);

// The last such day of the month.
QUORVEL_API COleDateTime AfxGetLastSundayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetLastMondayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetLastTuesdayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetLastWednesdayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetLastThursdayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetLastFridayInMonth(int month, int year);
QUORVEL_API COleDateTime AfxGetLastSaturdayInMonth(int month, int year);

// The first such day of the month `offset` months away.
QUORVEL_API COleDateTime AfxGetFirstSundayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetFirstMondayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetFirstTuesdayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetFirstWednesdayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetFirstThursdayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetFirstFridayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetFirstSaturdayInOffsetMonth(int month, int year, int offset);

// The last such day of the month `offset` months away.
QUORVEL_API COleDateTime AfxGetLastSundayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetLastMondayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetLastTuesdayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetLastWednesdayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetLastThursdayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetLastFridayInOffsetMonth(int month, int year, int offset);
QUORVEL_API COleDateTime AfxGetLastSaturdayInOffsetMonth(int month, int year, int offset);

// The ordinal-th such day of the month; the empty date when it has fewer.
QUORVEL_API COleDateTime AfxGetOrdinalSundayInMonth(int month, int year, int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalMondayInMonth(int month, int year, int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalTuesdayInMonth(int month, int year, int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalWednesdayInMonth(int month, int year, int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalThursdayInMonth(int month, int year, int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalFridayInMonth(int month, int year, int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalSaturdayInMonth(int month, int year, int ordinal);

// The ordinal-th such day of the month `offset` months away; the empty date when it has fewer.
QUORVEL_API COleDateTime AfxGetOrdinalSundayInOffsetMonth(int month, int year, int offset,
                                                          int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalMondayInOffsetMonth(int month, int year, int offset,
                                                          int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalTuesdayInOffsetMonth(int month, int year, int offset,
                                                           int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalWednesdayInOffsetMonth(int month, int year, int offset,
                                                             int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalThursdayInOffsetMonth(int month, int year, int offset,
                                                            int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalFridayInOffsetMonth(int month, int year, int offset,
                                                          int ordinal);
QUORVEL_API COleDateTime AfxGetOrdinalSaturdayInOffsetMonth(int month, int year, int offset,
                                                            int ordinal);
