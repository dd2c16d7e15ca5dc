// The forms of <quorvel/util/calendar/calendar.h> that name a day of the week.
#include <quorvel/util/calendar/calendar.h>

#define DEFINE_NAMED_DAY(Day, dayOfWeek)                                                           \
    COleDateTime AfxGetPrevious##Day(COleDateTime date, int count) {                               \
        return AfxGetPreviousDayOfWeek(date, dayOfWeek, count);                                    \
    }                                                                                              \
    COleDateTime AfxGetNext##Day(COleDateTime date, int count) {                                   \
        return AfxGetNextDayOfWeek(date, dayOfWeek, count);                                        \
    }                                                                                              \
    COleDateTime AfxGetFirst##Day##InMonth(int month, int year) {                                  \
        return AfxGetFirstDayOfWeekInMonth(month, year, dayOfWeek);                                \
    }                                                                                              \
    COleDateTime AfxGetLast##Day##InMonth(int month, int year) {                                   \
        return AfxGetLastDayOfWeekInMonth(month, year, dayOfWeek);                                 \
    }                                                                                              \
    COleDateTime AfxGetFirst##Day##InOffsetMonth(int month, int year, int offset) {                \
        return AfxGetFirstDayOfWeekInOffsetMonth(month, year, offset, dayOfWeek);                  \
    }                                                                                              \
    COleDateTime AfxGetLast##Day##InOffsetMonth(int month, int year, int offset) {                 \
        return AfxGetLastDayOfWeekInOffsetMonth(month, year, offset, dayOfWeek);                   \
    }                                                                                              \
    COleDateTime AfxGetOrdinal##Day##InMonth(int month, int year, int ordinal) {                   \
        return AfxGetOrdinalDayOfWeekInMonth(month, year, dayOfWeek, ordinal);                     \
    }                                                                                              \
    COleDateTime AfxGetOrdinal##Day##InOffsetMonth(int month, int year, int offset, int ordinal) { \
        return AfxGetOrdinalDayOfWeekInOffsetMonth(month, year, offset, dayOfWeek, ordinal);       \
    }

DEFINE_NAMED_DAY(Sunday, 1)
DEFINE_NAMED_DAY(Monday, 2)
DEFINE_NAMED_DAY(Tuesday, 3)
DEFINE_NAMED_DAY(Wednesday, 4)
DEFINE_NAMED_DAY(Thursday, 5)
DEFINE_NAMED_DAY(Friday, 6)
DEFINE_NAMED_DAY(Saturday, 7)
