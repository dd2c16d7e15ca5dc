// Conversion between UTC and local time, by given rules and by those of the system, which the test
// run fixes to Europe/Berlin.
#include "platform/win32.h"

#include "support/platform.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

SYSTEMTIME Parse(const char* text) {
    unsigned year, month, day, hour, minute, second;
    EXPECT_EQ(std::sscanf(text, "%u-%u-%u %u:%u:%u", &year, &month, &day, &hour, &minute, &second),
              6);
    return {static_cast<WORD>(year),
            static_cast<WORD>(month),
            0,
            static_cast<WORD>(day),
            static_cast<WORD>(hour),
            static_cast<WORD>(minute),
            static_cast<WORD>(second),
            250};
}

std::string Print(const SYSTEMTIME& time) {
    char text[64];
    std::snprintf(text, sizeof text, "%u-%02u-%02u %02u:%02u:%02u", time.wYear, time.wMonth,
                  time.wDay, time.wHour, time.wMinute, time.wSecond);
    EXPECT_EQ(time.wMilliseconds, 250);
    return text;
}

typedef decltype(&SystemTimeToTzSpecificLocalTime) Conversion;

// The result, or "refused" when the conversion fails with 87 and leaves the output as it was.
std::string Converted(Conversion conversion, const TIME_ZONE_INFORMATION* zone, const char* from) {
    const SYSTEMTIME time = Parse(from);
    SYSTEMTIME marker;
    std::memset(&marker, 0x5a, sizeof marker);
    SYSTEMTIME result = marker;
    SetLastError(77);
    const BOOL isConverted = conversion(zone, &time, &result);
    EXPECT_EQ(GetLastError(), isConverted ? 77u : ERROR_INVALID_PARAMETER);
    if (isConverted)
        return Print(result);
    EXPECT_EQ(std::memcmp(&result, &marker, sizeof marker), 0);
    return "refused";
}

struct Row {
    const char* from;
    const char* to;
};

template <int count>
void ExpectLocal(const TIME_ZONE_INFORMATION* zone, const Row (&rows)[count]) {
    for (const Row& row : rows)
        EXPECT_EQ(Converted(SystemTimeToTzSpecificLocalTime, zone, row.from), row.to) << row.from;
}
template <int count>
void ExpectUtc(const TIME_ZONE_INFORMATION* zone, const Row (&rows)[count]) {
    for (const Row& row : rows)
        EXPECT_EQ(Converted(TzSpecificLocalTimeToSystemTime, zone, row.from), row.to) << row.from;
}

TIME_ZONE_INFORMATION Sydney() {
    TIME_ZONE_INFORMATION zone = {};
    zone.Bias = -600;
    zone.StandardDate = {0, 4, 0, 1, 3, 0, 0, 0};
    zone.DaylightDate = {0, 10, 0, 1, 2, 0, 0, 0};
    zone.DaylightBias = -60;
    return zone;
}

} // namespace

// The clocks go forward at 1:00 UTC on the last Sunday of March and back on that of October.
TEST(TimeZone, TheSystemsRulesOfThisYearHoldInEveryYear) {
    ExpectLocal(nullptr, {
                             {"2007-03-25 00:59:59", "2007-03-25 01:59:59"},
                             {"2007-03-25 01:00:00", "2007-03-25 03:00:00"},
                             {"2007-10-28 00:59:59", "2007-10-28 02:59:59"},
                             {"2007-10-28 01:00:00", "2007-10-28 02:00:00"},
                             {"2007-12-31 22:30:00", "2007-12-31 23:30:00"},
                             {"1950-07-01 12:00:00", "1950-07-01 14:00:00"}, // without in fact
                             {"1601-01-01 00:00:00", "1601-01-01 01:00:00"},
                             {"9999-12-31 23:30:00", "10000-01-01 00:30:00"},
                         });
    ExpectUtc(nullptr, {
                           {"2007-03-25 01:59:59", "2007-03-25 00:59:59"},
                           {"2007-03-25 02:00:00", "2007-03-25 00:00:00"}, // does not exist
                           {"2007-03-25 02:59:59", "2007-03-25 00:59:59"}, // nor does this
                           {"2007-03-25 03:00:00", "2007-03-25 01:00:00"},
                           {"2007-10-28 01:59:59", "2007-10-27 23:59:59"},
                           {"2007-10-28 02:00:00", "2007-10-28 00:00:00"}, // occurs twice
                           {"2007-10-28 02:59:59", "2007-10-28 00:59:59"}, // so does this
                           {"2007-10-28 03:00:00", "2007-10-28 02:00:00"},
                           {"1601-01-01 01:00:00", "1601-01-01 00:00:00"},
                       });
}

TEST(TimeZone, TheSouthernSummerGoesOverTheTurnOfTheYear) {
    const TIME_ZONE_INFORMATION sydney = Sydney();
    ExpectLocal(&sydney, {
                             {"2007-12-31 12:30:00", "2007-12-31 23:30:00"},
                             {"2007-12-31 13:30:00", "2008-01-01 00:30:00"},
                             {"2008-04-05 15:59:59", "2008-04-06 02:59:59"},
                             {"2008-04-05 16:00:00", "2008-04-06 02:00:00"},
                             {"2008-10-04 15:59:59", "2008-10-05 01:59:59"},
                             {"2008-10-04 16:00:00", "2008-10-05 03:00:00"},
                         });
    ExpectUtc(&sydney, {
                           {"2008-01-01 00:30:00", "2007-12-31 13:30:00"},
                           {"2008-04-06 02:30:00", "2008-04-05 15:30:00"}, // occurs twice
                           {"2008-04-06 03:00:00", "2008-04-05 17:00:00"},
                           {"2008-10-05 01:59:59", "2008-10-04 15:59:59"},
                           {"2008-10-05 02:30:00", "2008-10-04 15:30:00"}, // does not exist
                           {"2008-10-05 03:00:00", "2008-10-04 16:00:00"},
                       });
}

TEST(TimeZone, AZoneWithoutRulesHasItsBiasOnly) {
    TIME_ZONE_INFORMATION west = {};
    west.Bias = 300;
    west.StandardBias = 30; // counts with rules only
    west.DaylightBias = -60;
    ExpectLocal(&west, {
                           {"2007-07-01 12:00:00", "2007-07-01 07:00:00"},
                           {"1601-01-01 05:00:00", "1601-01-01 00:00:00"},
                           {"1601-01-01 04:59:59", "refused"},
                       });
    ExpectUtc(&west, {{"2007-12-31 20:00:00", "2008-01-01 01:00:00"}});
}

TEST(TimeZone, TimesThatCannotBeAreRefused) {
    constexpr Row rows[] = {
        {"1600-12-31 23:59:59", "refused"}, {"2007-13-01 00:00:00", "refused"},
        {"2007-00-01 00:00:00", "refused"}, {"2007-01-01 24:00:00", "refused"},
        {"2007-01-01 00:60:00", "refused"}, {"2007-01-01 00:00:60", "refused"},
        {"2007-01-00 00:00:00", "refused"}, {"2007-01-32 00:00:00", "refused"},
    };
    ExpectLocal(nullptr, rows);
    ExpectUtc(nullptr, rows);
    ExpectUtc(nullptr, {{"1601-01-01 00:59:59", "refused"}});
    if (kOnLinux) // Wine takes it as 1 March
        ExpectUtc(nullptr, {{"2007-02-29 00:00:00", "refused"}});
}

TEST(TimeZone, IncompleteRulesAreRefused) {
    for (const SYSTEMTIME& rule :
         {SYSTEMTIME{}, SYSTEMTIME{0, 4, 0, 0, 3, 0, 0, 0}, SYSTEMTIME{0, 4, 0, 6, 3, 0, 0, 0}}) {
        TIME_ZONE_INFORMATION zone = Sydney();
        zone.StandardDate = rule;
        ExpectLocal(&zone, {{"2007-07-01 12:00:00", "refused"}});
        ExpectUtc(&zone, {{"2007-07-01 12:00:00", "refused"}});
    }
}
