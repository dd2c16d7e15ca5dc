// COleDateTime and COleDateTimeSpan: dates with a time of day, to the second.
//
// A date is the number of days since 30 December 1899, as a double. The fraction is the time of
// day. Before that day the number is negative, but the fraction still counts forward from midnight:
// -1.25 is 29 December 1899, 06:00. Dates range from 1 January 100 to 31 December 9999. Any other
// number has the status invalid. The calendar is Gregorian throughout; there are no time zones.
// Different threads may use different objects.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

typedef double DATE; // days since 30 December 1899

class QUORVEL_API COleDateTimeSpan { // a time between two dates, with a sign
public:
    enum DateTimeSpanStatus { valid = 0, invalid = 1, null = 2 }; // null: no value

    COleDateTimeSpan() noexcept : m_span(0), m_status(valid) {}
    // A span that is longer than the whole range of dates has the status invalid.
    explicit COleDateTimeSpan(double days) noexcept;
    COleDateTimeSpan(LONG days, int hours, int minutes, int seconds) noexcept;

    // SetStatus does not change the value.
    DateTimeSpanStatus GetStatus() const noexcept { return m_status; }
    void SetStatus(DateTimeSpanStatus status) noexcept { m_status = status; }

    // The parts of the span, rounded to a second. All have the sign of the span; hours are below
    // 24, minutes and seconds below 60. All are 0 when the status is not valid.
    LONG GetDays() const noexcept;
    LONG GetHours() const noexcept;
    LONG GetMinutes() const noexcept;
    LONG GetSeconds() const noexcept;
    // The whole span in one unit, rounded to a second and then truncated towards zero.
    double GetTotalDays() const noexcept;
    double GetTotalHours() const noexcept;
    double GetTotalMinutes() const noexcept;
    double GetTotalSeconds() const noexcept;

    // A null operand gives null; an invalid operand, or a result out of range, gives invalid.
    COleDateTimeSpan operator+(const COleDateTimeSpan& other) const noexcept;
    COleDateTimeSpan operator-(const COleDateTimeSpan& other) const noexcept;
    COleDateTimeSpan operator-() const noexcept;

    // Compares lengths. Spans that are not valid are equal when they have the same status.
    bool operator==(const COleDateTimeSpan& other) const noexcept;
    bool operator<(const COleDateTimeSpan& other) const noexcept { return m_span < other.m_span; }
    bool operator>(const COleDateTimeSpan& other) const noexcept { return m_span > other.m_span; }
    bool operator<=(const COleDateTimeSpan& other) const noexcept { return !(*this > other); }
    bool operator>=(const COleDateTimeSpan& other) const noexcept { return !(*this < other); }

    double m_span;               // days
    DateTimeSpanStatus m_status; // valid, unless it was set or is out of range
};

class QUORVEL_API COleDateTime {
public:
    // `error` is a result of members, never a status; null means no value.
    enum DateTimeStatus : int { error = -1, valid = 0, invalid = 1, null = 2 };

    COleDateTime() noexcept : m_dt(0), m_status(valid) {} // 30 December 1899, 00:00
    COleDateTime(DATE date) noexcept;                     // invalid when out of range
    // The milliseconds and the day of the week are ignored.
    COleDateTime(const SYSTEMTIME& time) noexcept;
    // A part out of range gives invalid, with m_dt 0.
    COleDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;
    // The current local time, to the second.
    static COleDateTime GetCurrentTime() noexcept;

    // SetStatus does not change the value.
    DateTimeStatus GetStatus() const noexcept { return m_status; }
    void SetStatus(DateTimeStatus status) noexcept { m_status = status; }

    // Each returns the new status. A part out of range gives invalid and leaves m_dt unchanged.
    int SetDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;
    int SetDate(int year, int month, int day) noexcept;
    int SetTime(int hour, int minute, int second) noexcept; // on 30 December 1899

    // Rounds to a second. FALSE, with `time` unchanged, when the status is not valid.
    BOOL GetAsSystemTime(SYSTEMTIME& time) const noexcept;
    // The parts of the date rounded to a second; `error` (-1) when the status is not valid.
    int GetYear() const noexcept;
    int GetMonth() const noexcept;
    int GetDay() const noexcept;
    int GetHour() const noexcept;
    int GetMinute() const noexcept;
    int GetSecond() const noexcept;
    int GetDayOfWeek() const noexcept; // 1 is Sunday
    int GetDayOfYear() const noexcept; // 1 is 1 January

    // Directives, as in the C locale: %a %A %b %B %d %H %j %m %M %S %y %Y %%. Returns an empty text
    // when the status is not valid, and for a picture that is null or has another directive.
    CString Format(const WCHAR* picture) const;

    // A null operand gives null; an invalid operand, or a result out of range, gives invalid.
    COleDateTime operator+(const COleDateTimeSpan& span) const noexcept;
    COleDateTime operator-(const COleDateTimeSpan& span) const noexcept;
    COleDateTime& operator+=(const COleDateTimeSpan& span) noexcept;
    COleDateTime& operator-=(const COleDateTimeSpan& span) noexcept;
    COleDateTimeSpan operator-(const COleDateTime& other) const noexcept;

    // Compares instants (-0.25 and 0.25 are equal). Dates that are not valid are equal when they
    // have the same status; they are ordered by m_dt.
    bool operator==(const COleDateTime& other) const noexcept;
    bool operator<(const COleDateTime& other) const noexcept;
    bool operator>(const COleDateTime& other) const noexcept { return other < *this; }
    bool operator<=(const COleDateTime& other) const noexcept { return !(other < *this); }
    bool operator>=(const COleDateTime& other) const noexcept { return !(*this < other); }

    // The value and whether it counts. Assigning m_dt does not update the status.
    DATE m_dt;
    DateTimeStatus m_status;
};
