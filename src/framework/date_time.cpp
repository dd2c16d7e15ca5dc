#include <quorvel/framework/date_time.h>

#include "framework/calendar_days.h"
#include "platform/win32.h"

#include <cmath>

using namespace quorvel;

namespace {

constexpr double kLongestSpan = kLastDay - kFirstDay;
constexpr int kSecondsPerDay = 86400;

// Whether the day exists: the calendar would convert a missing day to another one.
bool IsDay(CalendarDay date) {
    if (date.year < 100 || date.year > 9999 || date.month < 1 || date.month > 12 || date.day < 1 ||
        date.day > 31)
        return false;
    return CalendarFromDays(DaysFromCalendar(date)).month == date.month;
}

// The time line: a number of days whose fraction always counts forward.
double TimeLine(DATE date) {
    const double days = std::trunc(date);
    return days + std::fabs(date - days);
}
DATE DateFromTimeLine(double time) {
    const double days = std::floor(time);
    return days < 0 ? days - (time - days) : time;
}

bool InRange(DATE date) {
    return date > kFirstDay - 1 && date < kLastDay + 1; // also false for NaN
}

// A date split into its parts and rounded to a second.
struct Instant {
    int days;
    int seconds;
    CalendarDay calendar;
};

bool ToInstant(const COleDateTime& date, Instant& instant) {
    if (!ToDaysAndSeconds(date, instant.days, instant.seconds))
        return false;
    instant.calendar = CalendarFromDays(instant.days);
    return true;
}

int DayOfWeek(const Instant& instant) { // 0 is Sunday; day 0 was a Saturday
    return (instant.days - kFirstDay + 5) % 7;
}
int DayOfYear(const Instant& instant) {
    return instant.days - DaysFromCalendar({instant.calendar.year, 1, 1}) + 1;
}

template <class Part>
int PartOf(const COleDateTime& date, Part part) {
    Instant instant;
    return ToInstant(date, instant) ? part(instant) : COleDateTime::error;
}

struct NumberDirective {
    char letter;
    int digits;
    int (*value)(const Instant&);
};
constexpr NumberDirective kNumberDirectives[] = {
    {'d', 2, [](const Instant& instant) { return instant.calendar.day; }},
    {'H', 2, [](const Instant& instant) { return instant.seconds / 3600; }},
    {'j', 3, DayOfYear},
    {'m', 2, [](const Instant& instant) { return instant.calendar.month; }},
    {'M', 2, [](const Instant& instant) { return instant.seconds / 60 % 60; }},
    {'S', 2, [](const Instant& instant) { return instant.seconds % 60; }},
    {'y', 2, [](const Instant& instant) { return instant.calendar.year % 100; }},
    {'Y', 4, [](const Instant& instant) { return instant.calendar.year; }},
};
constexpr const WCHAR* kDayNames[] = {_T("Sunday"),   _T("Monday"), _T("Tuesday"), _T("Wednesday"),
                                      _T("Thursday"), _T("Friday"), _T("Saturday")};
constexpr const WCHAR* kMonthNames[] = {
    _T("January"), _T("February"), _T("March"),     _T("April"),   _T("May"),      _T("June"),
    _T("July"),    _T("August"),   _T("September"), _T("October"), _T("November"), _T("December")};
constexpr int kAbbreviation = 3; // characters

bool AppendPart(CString& text, WCHAR directive, const Instant& instant) {
    for (const NumberDirective& row : kNumberDirectives) {
        if (static_cast<WCHAR>(row.letter) == directive) {
            text.AppendFormat(_T("%0*d"), row.digits, row.value(instant));
            return true;
        }
    }
    const WCHAR* dayName = kDayNames[DayOfWeek(instant)];
    const WCHAR* monthName = kMonthNames[instant.calendar.month - 1];
    switch (directive) {
    case 'a':
        text.Append(dayName, kAbbreviation);
        return true;
    case 'A':
        text.Append(dayName);
        return true;
    case 'b':
        text.Append(monthName, kAbbreviation);
        return true;
    case 'B':
        text.Append(monthName);
        return true;
    case '%':
        text.AppendChar('%');
        return true;
    default:
        return false;
    }
}

// The status of a result. The status values of the two classes are equal.
static_assert(int{COleDateTime::null} == int{COleDateTimeSpan::null} &&
              int{COleDateTime::invalid} == int{COleDateTimeSpan::invalid});
int JoinedStatus(int left, int right) {
    if (left == COleDateTime::null || right == COleDateTime::null)
        return COleDateTime::null;
    return left == COleDateTime::valid ? right : COleDateTime::invalid;
}

COleDateTimeSpan SpanOf(double days, int status) {
    COleDateTimeSpan span(status == COleDateTimeSpan::valid ? days : 0);
    if (status != COleDateTimeSpan::valid)
        span.SetStatus(static_cast<COleDateTimeSpan::DateTimeSpanStatus>(status));
    return span;
}

COleDateTime Moved(const COleDateTime& date, const COleDateTimeSpan& span, int direction) {
    const int status = JoinedStatus(date.m_status, span.m_status);
    if (status == COleDateTime::valid)
        return COleDateTime(DateFromTimeLine(TimeLine(date.m_dt) + direction * span.m_span));
    COleDateTime result;
    result.SetStatus(static_cast<COleDateTime::DateTimeStatus>(status));
    return result;
}

long long WholeSeconds(const COleDateTimeSpan& span) {
    return span.m_status == COleDateTimeSpan::valid ? std::llround(span.m_span * kSecondsPerDay)
                                                    : 0;
}

} // namespace

bool quorvel::ToDaysAndSeconds(const COleDateTime& date, int& days, int& seconds) noexcept {
    if (date.GetStatus() != COleDateTime::valid || !InRange(date.m_dt))
        return false;
    const double wholeDays = std::trunc(date.m_dt);
    days = static_cast<int>(wholeDays);
    seconds = static_cast<int>(std::floor(std::fabs(date.m_dt - wholeDays) * kSecondsPerDay + 0.5));
    if (seconds == kSecondsPerDay) {
        seconds = 0;
        ++days;
    }
    return days <= kLastDay;
}

COleDateTimeSpan::COleDateTimeSpan(double days) noexcept
    : m_span(days), m_status(std::fabs(days) <= kLongestSpan ? valid : invalid) {}

COleDateTimeSpan::COleDateTimeSpan(LONG days, int hours, int minutes, int seconds) noexcept
    : COleDateTimeSpan(days + (hours * 3600.0 + minutes * 60.0 + seconds) / kSecondsPerDay) {}

LONG COleDateTimeSpan::GetDays() const noexcept {
    return static_cast<LONG>(WholeSeconds(*this) / kSecondsPerDay);
}

LONG COleDateTimeSpan::GetHours() const noexcept {
    return static_cast<LONG>(WholeSeconds(*this) / 3600 % 24);
}

LONG COleDateTimeSpan::GetMinutes() const noexcept {
    return static_cast<LONG>(WholeSeconds(*this) / 60 % 60);
}

LONG COleDateTimeSpan::GetSeconds() const noexcept {
    return static_cast<LONG>(WholeSeconds(*this) % 60);
}

double COleDateTimeSpan::GetTotalDays() const noexcept {
    return static_cast<double>(WholeSeconds(*this) / kSecondsPerDay);
}

double COleDateTimeSpan::GetTotalHours() const noexcept {
    return static_cast<double>(WholeSeconds(*this) / 3600);
}

double COleDateTimeSpan::GetTotalMinutes() const noexcept {
    return static_cast<double>(WholeSeconds(*this) / 60);
}

double COleDateTimeSpan::GetTotalSeconds() const noexcept {
    return static_cast<double>(WholeSeconds(*this));
}

COleDateTimeSpan COleDateTimeSpan::operator+(const COleDateTimeSpan& other) const noexcept {
    return SpanOf(m_span + other.m_span, JoinedStatus(m_status, other.m_status));
}

COleDateTimeSpan COleDateTimeSpan::operator-(const COleDateTimeSpan& other) const noexcept {
    return SpanOf(m_span - other.m_span, JoinedStatus(m_status, other.m_status));
}

COleDateTimeSpan COleDateTimeSpan::operator-() const noexcept {
    return SpanOf(-m_span, m_status);
}

bool COleDateTimeSpan::operator==(const COleDateTimeSpan& other) const noexcept {
    return m_status == other.m_status && (m_status != valid || m_span == other.m_span);
}

COleDateTime::COleDateTime(DATE date) noexcept
    : m_dt(date), m_status(InRange(date) ? valid : invalid) {}

COleDateTime::COleDateTime(const SYSTEMTIME& time) noexcept
    : COleDateTime(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond) {}

COleDateTime::COleDateTime(int year, int month, int day, int hour, int minute, int second) noexcept
    : COleDateTime() {
    SetDateTime(year, month, day, hour, minute, second);
}

COleDateTime COleDateTime::GetCurrentTime() noexcept {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return COleDateTime(now);
}

int COleDateTime::SetDateTime(int year, int month, int day, int hour, int minute,
                              int second) noexcept {
    const CalendarDay date{year, month, day};
    m_status = IsDay(date) && hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 &&
                       second < 60
                   ? valid
                   : invalid;
    if (m_status == valid) {
        const int days = DaysFromCalendar(date);
        const double fraction =
            static_cast<double>(hour * 3600 + minute * 60 + second) / kSecondsPerDay;
        m_dt = days < 0 ? days - fraction : days + fraction;
    }
    return m_status;
}

int COleDateTime::SetDate(int year, int month, int day) noexcept {
    return SetDateTime(year, month, day, 0, 0, 0);
}

int COleDateTime::SetTime(int hour, int minute, int second) noexcept {
    return SetDateTime(1899, 12, 30, hour, minute, second);
}

BOOL COleDateTime::GetAsSystemTime(SYSTEMTIME& time) const noexcept {
    Instant instant;
    if (!ToInstant(*this, instant))
        return FALSE;
    time.wYear = static_cast<WORD>(instant.calendar.year);
    time.wMonth = static_cast<WORD>(instant.calendar.month);
    time.wDayOfWeek = static_cast<WORD>(DayOfWeek(instant));
    time.wDay = static_cast<WORD>(instant.calendar.day);
    time.wHour = static_cast<WORD>(instant.seconds / 3600);
    time.wMinute = static_cast<WORD>(instant.seconds / 60 % 60);
    time.wSecond = static_cast<WORD>(instant.seconds % 60);
    time.wMilliseconds = 0;
    return TRUE;
}

int COleDateTime::GetYear() const noexcept {
    return PartOf(*this, [](const Instant& instant) { return instant.calendar.year; });
}

int COleDateTime::GetMonth() const noexcept {
    return PartOf(*this, [](const Instant& instant) { return instant.calendar.month; });
}

int COleDateTime::GetDay() const noexcept {
    return PartOf(*this, [](const Instant& instant) { return instant.calendar.day; });
}

int COleDateTime::GetHour() const noexcept {
    return PartOf(*this, [](const Instant& instant) { return instant.seconds / 3600; });
}

int COleDateTime::GetMinute() const noexcept {
    return PartOf(*this, [](const Instant& instant) { return instant.seconds / 60 % 60; });
}

int COleDateTime::GetSecond() const noexcept {
    return PartOf(*this, [](const Instant& instant) { return instant.seconds % 60; });
}

int COleDateTime::GetDayOfWeek() const noexcept {
    return PartOf(*this, [](const Instant& instant) { return DayOfWeek(instant) + 1; });
}

int COleDateTime::GetDayOfYear() const noexcept {
    return PartOf(*this, DayOfYear);
}

CString COleDateTime::Format(const WCHAR* picture) const {
    Instant instant;
    if (picture == nullptr || !ToInstant(*this, instant))
        return CString();
    CString text;
    for (; *picture != 0; ++picture) {
        if (*picture != '%')
            text.AppendChar(*picture);
        else if (!AppendPart(text, *++picture, instant)) // a terminator fails, too
            return CString();
    }
    return text;
}

COleDateTime COleDateTime::operator+(const COleDateTimeSpan& span) const noexcept {
    return Moved(*this, span, 1);
}

COleDateTime COleDateTime::operator-(const COleDateTimeSpan& span) const noexcept {
    return Moved(*this, span, -1);
}

COleDateTime& COleDateTime::operator+=(const COleDateTimeSpan& span) noexcept {
    return *this = *this + span;
}

COleDateTime& COleDateTime::operator-=(const COleDateTimeSpan& span) noexcept {
    return *this = *this - span;
}

COleDateTimeSpan COleDateTime::operator-(const COleDateTime& other) const noexcept {
    return SpanOf(TimeLine(m_dt) - TimeLine(other.m_dt), JoinedStatus(m_status, other.m_status));
}

bool COleDateTime::operator==(const COleDateTime& other) const noexcept {
    return m_status == other.m_status &&
           (m_status != valid || TimeLine(m_dt) == TimeLine(other.m_dt));
}

bool COleDateTime::operator<(const COleDateTime& other) const noexcept {
    return TimeLine(m_dt) < TimeLine(other.m_dt);
}
