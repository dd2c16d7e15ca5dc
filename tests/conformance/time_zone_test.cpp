// Conversion between UTC and local time, by given rules and by those of the system, which the test
// run fixes to Europe/Berlin.
#include "platform/win32.h"

#include "support/test.h"

#include <cstdio>
#include <cstring>

namespace {

SYSTEMTIME Parse(const char* text) {
    SYSTEMTIME time = {};
    EXPECT_EQ(std::sscanf(text, "%hu-%hu-%hu %hu:%hu:%hu", &time.wYear, &time.wMonth, &time.wDay,
                          &time.wHour, &time.wMinute, &time.wSecond),
              6);
    time.wMilliseconds = 250;
    return time;
}

std::string Print(const SYSTEMTIME& time) {
    EXPECT_EQ(time.wMilliseconds, 250);
    char text[64];
    std::snprintf(text, sizeof text, "%u-%02u-%02u %02u:%02u:%02u", time.wYear, time.wMonth,
                  time.wDay, time.wHour, time.wMinute, time.wSecond);
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

const Conversion kToLocal = SystemTimeToTzSpecificLocalTime;
const Conversion kToUtc = TzSpecificLocalTimeToSystemTime;

void Expect(Conversion conversion, const TIME_ZONE_INFORMATION* zone,
            std::initializer_list<Row> rows) {
    for (const Row& row : rows)
        EXPECT_EQ(Converted(conversion, zone, row.from), row.to) << row.from;
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
    Expect(kToLocal, nullptr,
           {
               {"2007-03-25 01:00:00", "2007-03-25 03:00:00"},
               {"2007-10-28 01:00:00", "2007-10-28 02:00:00"},
               {"1950-07-01 12:00:00", "1950-07-01 14:00:00"}, // without in fact
               {"1601-01-01 00:00:00", "1601-01-01 01:00:00"},
               {"9999-12-31 23:30:00", "10000-01-01 00:30:00"},
           });
    Expect(kToUtc, nullptr,
           {
               {"2007-03-25 02:00:00", "2007-03-25 00:00:00"}, // does not exist
               {"2007-03-25 03:00:00", "2007-03-25 01:00:00"},
               {"2007-10-28 02:00:00", "2007-10-28 00:00:00"}, // occurs twice
               {"2007-10-28 03:00:00", "2007-10-28 02:00:00"},
           });
}

TEST(TimeZone, TheSouthernSummerGoesOverTheTurnOfTheYear) {
    const TIME_ZONE_INFORMATION sydney = Sydney();
    Expect(kToLocal, &sydney,
           {
               {"2007-12-31 13:30:00", "2008-01-01 00:30:00"},
               {"2008-04-05 16:00:00", "2008-04-06 02:00:00"},
               {"2008-10-04 16:00:00", "2008-10-05 03:00:00"},
           });
    Expect(kToUtc, &sydney,
           {
               {"2008-04-06 02:30:00", "2008-04-05 15:30:00"}, // occurs twice
               {"2008-04-06 03:00:00", "2008-04-05 17:00:00"},
               {"2008-10-05 02:30:00", "2008-10-04 15:30:00"}, // does not exist
           });
}

TEST(TimeZone, TimesThatCannotBeAreRefused) {
    for (const Conversion conversion : {kToLocal, kToUtc})
        for (const char* time : {"1600-12-31 23:59:59", "2007-13-01 00:00:00",
                                 "2007-01-01 24:00:00", "2007-01-00 00:00:00"})
            EXPECT_EQ(Converted(conversion, nullptr, time), "refused") << time;
    Expect(kToUtc, nullptr, {{"1601-01-01 00:59:59", "refused"}});
    if (kOnLinux) // Wine takes it as 1 March
        Expect(kToUtc, nullptr, {{"2007-02-29 00:00:00", "refused"}});
}
