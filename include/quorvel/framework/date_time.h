// COleDateTime and COleDateTimeSpan: dates with a time of day, to the second.
//
// A date is the number of days since 30 December 1899 as a double whose fraction is the time of
// day. Before that day the number is negative but the fraction still counts forward from midnight:
// -1.25 is 29 December 1899, 06:00. Dates reach from 1 January 100 to 31 December 9999; what falls
// outside, or is no date, has the status invalid. Calendar arithmetic is Gregorian throughout and
// knows no time zone. Values may be used on any thread.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

typedef double DATE;

class QUORVEL_API COleDateTimeSpan {
public:
    enum DateTimeSpanStatus { valid = 0, invalid = 1, null = 2 };

    COleDateTimeSpan() noexcept : m_span(0), m_status(valid) {}
    explicit COleDateTimeSpan(double days) noexcept;
    COleDateTimeSpan(LONG days, int hours, int minutes, int seconds) noexcept;

    DateTimeSpanStatus GetStatus() const noexcept { return m_status; }
    void SetStatus(DateTimeSpanStatus status) noexcept { m_status = status; }

    // The parts of the span rounded to a second: all have the sign of the span, hours are below
    // 24, minutes and seconds below 60. 0 when the status is not valid.
    LONG GetDays() const noexcept;
    LONG GetHours() const noexcept;
    LONG GetMinutes() const noexcept;
    LONG GetSeconds() const noexcept;
    // The whole span in whole units, rounded to a second and then towards zero.
    double GetTotalDays() const noexcept;
    double GetTotalHours() const noexcept;
    double GetTotalMinutes() const noexcept;
    double GetTotalSeconds() const noexcept;

    COleDateTimeSpan operator+(const COleDateTimeSpan& other) const noexcept;
    COleDateTimeSpan operator-(const COleDateTimeSpan& other) const noexcept;
    COleDateTimeSpan operator-() const noexcept;

    // By length; a span that is not valid equals one of the same status.
    bool operator==(const COleDateTimeSpan& other) const noexcept;
    bool operator<(const COleDateTimeSpan& other) const noexcept { return m_span < other.m_span; }
    bool operator>(const COleDateTimeSpan& other) const noexcept { return m_span > other.m_span; }
    bool operator<=(const COleDateTimeSpan& other) const noexcept { return !(*this > other); }
    bool operator>=(const COleDateTimeSpan& other) const noexcept { return !(*this < other); }

    double m_span; // days
    DateTimeSpanStatus m_status;
};

class QUORVEL_API COleDateTime {
public:
    enum DateTimeStatus : int { error = -1, valid = 0, invalid = 1, null = 2 };

    COleDateTime() noexcept : m_dt(0), m_status(valid) {} // 30 December 1899, 00:00
    COleDateTime(DATE date) noexcept;
    // The milliseconds and the day of the week are ignored.
    COleDateTime(const SYSTEMTIME& time) noexcept;
    COleDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;
    // The local time of now, to the second.
    static COleDateTime GetCurrentTime() noexcept;

    DateTimeStatus GetStatus() const noexcept { return m_status; }
    void SetStatus(DateTimeStatus status) noexcept { m_status = status; }

    // Each returns the new status: a part out of its range gives invalid and leaves m_dt.
    int SetDateTime(int year, int month, int day, int hour, int minute, int second) noexcept;
    int SetDate(int year, int month, int day) noexcept;
    int SetTime(int hour, int minute, int second) noexcept; // on 30 December 1899

    // The date rounded to a second. FALSE, and `time` unchanged, when the status is not valid.
    BOOL GetAsSystemTime(SYSTEMTIME& time) const noexcept;
    // Of the date rounded to a second; `error` (-1) when the status is not valid.
    int GetYear() const noexcept;
    int GetMonth() const noexcept;
    int GetDay() const noexcept;
    int GetHour() const noexcept;
    int GetMinute() const noexcept;
    int GetSecond() const noexcept;
    int GetDayOfWeek() const noexcept; // 1 is Sunday
    int GetDayOfYear() const noexcept; // 1 is 1 January

    // With the C locale's meaning: %a %A %b %B %d %H %j %m %M %S %y %Y %%. Empty when the status
    // is not valid and for a picture that is null or has another directive.
    CString Format(const WCHAR* picture) const;

    // A null operand gives null, otherwise an invalid one, or a result out of range, invalid.
    COleDateTime operator+(const COleDateTimeSpan& span) const noexcept;
    COleDateTime operator-(const COleDateTimeSpan& span) const noexcept;
    COleDateTime& operator+=(const COleDateTimeSpan& span) noexcept;
    COleDateTime& operator-=(const COleDateTimeSpan& span) noexcept;
    COleDateTimeSpan operator-(const COleDateTime& other) const noexcept;

    // By the time they stand for (-0.25 and 0.25 are the same). A date that is not valid equals
    // one of the same status; its order is that of m_dt.
    bool operator==(const COleDateTime& other) const noexcept;
    bool operator<(const COleDateTime& other) const noexcept;
    bool operator>(const COleDateTime& other) const noexcept { return other < *this; }
    bool operator<=(const COleDateTime& other) const noexcept { return !(other < *this); }
    bool operator>=(const COleDateTime& other) const noexcept { return !(*this < other); }

    DATE m_dt;
    DateTimeStatus m_status;
};
