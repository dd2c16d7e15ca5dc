// A zone is a bias and, where clocks change, two yearly rules: daylight saving time begins (in
// standard time) and ends (in daylight saving time). The system's zone file has a table of changes
// instead. This year's two changes become the rules.
#include "platform/linux/locale/time_zone.h"

#include "platform/linux/system/system_error.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

namespace chrono = std::chrono;

namespace quorvel {
namespace {

typedef chrono::sys_time<chrono::milliseconds> Time; // UTC or local, as the name says

constexpr Time kFirstTime = chrono::sys_days(chrono::year(1601) / 1 / 1);

bool ToTime(const SYSTEMTIME& parts, Time& time) {
    const chrono::year_month_day date{chrono::year(parts.wYear), chrono::month(parts.wMonth),
                                      chrono::day(parts.wDay)};
    if (!date.ok() || parts.wYear > 30827 || parts.wHour > 23 || parts.wMinute > 59 ||
        parts.wSecond > 59 || parts.wMilliseconds > 999)
        return false;
    time = chrono::sys_days(date) + chrono::hours(parts.wHour) + chrono::minutes(parts.wMinute) +
           chrono::seconds(parts.wSecond) + chrono::milliseconds(parts.wMilliseconds);
    return time >= kFirstTime;
}

SYSTEMTIME PartsOf(Time time) {
    const auto day = chrono::floor<chrono::days>(time);
    const chrono::year_month_day date(day);
    const chrono::hh_mm_ss<chrono::milliseconds> clock(time - day);
    const auto word = [](auto number) { return static_cast<WORD>(number); };
    return {word(static_cast<int>(date.year())),
            word(static_cast<unsigned>(date.month())),
            word(chrono::weekday(day).c_encoding()),
            word(static_cast<unsigned>(date.day())),
            word(clock.hours().count()),
            word(clock.minutes().count()),
            word(clock.seconds().count()),
            word(clock.subseconds().count())};
}

bool IsRule(const SYSTEMTIME& rule) {
    return rule.wYear == 0 && rule.wMonth >= 1 && rule.wMonth <= 12 && rule.wDayOfWeek <= 6 &&
           rule.wDay >= 1 && rule.wDay <= 5;
}

// The local time, before the clocks change, at which the rule takes effect in the year.
Time ChangeIn(chrono::year year, const SYSTEMTIME& rule) {
    const auto month = year / chrono::month(rule.wMonth);
    const chrono::weekday dayOfWeek(rule.wDayOfWeek);
    const chrono::sys_days day = rule.wDay == 5 ? chrono::sys_days(month / dayOfWeek[chrono::last])
                                                : chrono::sys_days(month / dayOfWeek[rule.wDay]);
    return day + chrono::hours(rule.wHour) + chrono::minutes(rule.wMinute) +
           chrono::seconds(rule.wSecond) + chrono::milliseconds(rule.wMilliseconds);
}

bool IsDaylight(const TIME_ZONE_INFORMATION& zone, Time standardTime, Time daylightTime) {
    const auto standardDay = chrono::floor<chrono::days>(standardTime);
    const chrono::year year = chrono::year_month_day(standardDay).year();
    const bool hasBegun = standardTime >= ChangeIn(year, zone.DaylightDate);
    const bool hasEnded = daylightTime >= ChangeIn(year, zone.StandardDate);
    // In the south, summer includes the turn of the year.
    return zone.DaylightDate.wMonth < zone.StandardDate.wMonth ? hasBegun && !hasEnded
                                                               : hasBegun || !hasEnded;
}

// The minutes to subtract from UTC.
struct Biases {
    chrono::minutes standard;
    chrono::minutes daylight;
};
Biases BiasesOf(const TIME_ZONE_INFORMATION& zone) {
    return {chrono::minutes(zone.Bias + zone.StandardBias),
            chrono::minutes(zone.Bias + zone.DaylightBias)};
}

bool ToLocal(const TIME_ZONE_INFORMATION& zone, Time utc, Time& local) {
    local = utc - chrono::minutes(zone.Bias);
    if (zone.DaylightDate.wMonth == 0)
        return true;
    if (!IsRule(zone.DaylightDate) || !IsRule(zone.StandardDate))
        return false;
    const Biases biases = BiasesOf(zone);
    local = IsDaylight(zone, utc - biases.standard, utc - biases.daylight) ? utc - biases.daylight
                                                                           : utc - biases.standard;
    return true;
}

bool ToUtc(const TIME_ZONE_INFORMATION& zone, Time local, Time& utc) {
    utc = local + chrono::minutes(zone.Bias);
    if (zone.DaylightDate.wMonth == 0)
        return true;
    if (!IsRule(zone.DaylightDate) || !IsRule(zone.StandardDate))
        return false;
    const Biases biases = BiasesOf(zone);
    utc = local + (IsDaylight(zone, local, local) ? biases.daylight : biases.standard);
    return true;
}

// A change of the clocks: its time, and the seconds ahead of UTC before and after it.
struct Change {
    std::time_t at;
    long before;
    long after;
};

tm LocalParts(std::time_t time) {
    tm parts;
    localtime_r(&time, &parts);
    return parts;
}

std::vector<Change> ChangesIn(int year) {
    constexpr std::time_t kDay = 86400;
    const std::time_t start =
        chrono::system_clock::to_time_t(chrono::sys_days(chrono::year(year) / 1 / 1));
    std::vector<Change> changes;
    for (std::time_t day = start; day < start + 366 * kDay; day += kDay) {
        const Change change{day, LocalParts(day).tm_gmtoff, LocalParts(day + kDay).tm_gmtoff};
        if (change.before == change.after)
            continue;
        std::time_t unchanged = day;
        std::time_t changed = day + kDay;
        while (changed - unchanged > 1) {
            const std::time_t middle = unchanged + (changed - unchanged) / 2;
            (LocalParts(middle).tm_gmtoff == change.before ? unchanged : changed) = middle;
        }
        changes.push_back({changed, change.before, change.after});
    }
    return changes;
}

// The rule for the n-th such day of the week in the month; n = 5 means the last.
SYSTEMTIME RuleOf(const Change& change) {
    SYSTEMTIME rule = PartsOf(Time(chrono::seconds(change.at + change.before)));
    const auto lastDay = (chrono::year(rule.wYear) / rule.wMonth / chrono::last).day();
    rule.wDay = static_cast<WORD>(
        rule.wDay + 7u > static_cast<unsigned>(lastDay) ? 5 : (rule.wDay - 1) / 7 + 1);
    rule.wYear = 0;
    return rule;
}

// A zone has daylight saving time only if its clocks change twice this year between two
// offsets.
TIME_ZONE_INFORMATION ZoneIn(int year) {
    TIME_ZONE_INFORMATION zone = {};
    const std::vector<Change> changes = ChangesIn(year);
    if (changes.size() != 2 || changes[0].before != changes[1].after) {
        zone.Bias = static_cast<LONG>(-LocalParts(std::time(nullptr)).tm_gmtoff / 60);
        return zone;
    }
    const bool isNorthern = changes[0].after > changes[0].before;
    const Change& toDaylight = changes[isNorthern ? 0 : 1];
    zone.DaylightDate = RuleOf(toDaylight);
    zone.StandardDate = RuleOf(changes[isNorthern ? 1 : 0]);
    zone.Bias = static_cast<LONG>(-toDaylight.before / 60);
    zone.DaylightBias = static_cast<LONG>(-(toDaylight.after - toDaylight.before) / 60);
    return zone;
}

// The C library reads the zone once for each process, so a year's rules do not change.
const TIME_ZONE_INFORMATION& CurrentZone() {
    thread_local int year = 0;
    thread_local TIME_ZONE_INFORMATION zone;
    const int currentYear = LocalParts(std::time(nullptr)).tm_year + 1900;
    if (year != currentYear) {
        zone = ZoneIn(currentYear);
        year = currentYear;
    }
    return zone;
}

template <class Conversion>
BOOL Convert(const TIME_ZONE_INFORMATION* zone, const SYSTEMTIME& from, SYSTEMTIME* to,
             Conversion conversion) {
    Time time;
    Time converted;
    if (!ToTime(from, time) ||
        !conversion(zone == nullptr ? CurrentZone() : *zone, time, converted) ||
        converted < kFirstTime)
        return FailWith(ERROR_INVALID_PARAMETER);
    *to = PartsOf(converted);
    return TRUE;
}

} // namespace

BOOL win32::SystemTimeToTzSpecificLocalTime(const TIME_ZONE_INFORMATION* zone,
                                            const SYSTEMTIME* utc, SYSTEMTIME* local) {
    return Convert(zone, *utc, local, ToLocal);
}

BOOL win32::TzSpecificLocalTimeToSystemTime(const TIME_ZONE_INFORMATION* zone,
                                            const SYSTEMTIME* local, SYSTEMTIME* utc) {
    return Convert(zone, *local, utc, ToUtc);
}

} // namespace quorvel
