// The test runs with the time zone Europe/Berlin: clocks go forward at 1:00 UTC on the last Sunday
// of March, and back on the last Sunday of October.
#include <quorvel/util/calendar/local_time.h>

#include "support/date_time.h"
#include "support/test.h"

#include <cstring>

const COleDateTime kMarker(1234.5);

TEST(LocalTime, ConvertsBothWaysByTheRulesOfThisYear) {
    const std::tuple<COleDateTime, COleDateTime> rows[] = {
        {{2007, 3, 25, 0, 59, 59}, {2007, 3, 25, 1, 59, 59}},
        {{2007, 3, 25, 1, 0, 0}, {2007, 3, 25, 3, 0, 0}},
        {{2007, 10, 28, 0, 0, 0}, {2007, 10, 28, 2, 0, 0}}, // occurs twice: the first time
        {{2007, 10, 28, 2, 0, 0}, {2007, 10, 28, 3, 0, 0}},
        {{1950, 7, 1, 12, 0, 0}, {1950, 7, 1, 14, 0, 0}}, // in reality without daylight saving
        {{1601, 1, 1, 0, 0, 0}, {1601, 1, 1, 1, 0, 0}},
        {{1899, 12, 29, 23, 0, 0}, {1899, 12, 30, 0, 0, 0}}, // a negative serial number
        {{9999, 12, 31, 22, 59, 59}, {9999, 12, 31, 23, 59, 59}},
    };
    for (const auto& [utc, local] : rows) {
        SCOPED_TRACE(testing::PrintToString(utc));
        COleDateTime converted = kMarker;
        EXPECT_TRUE(AfxUTCToLocalTime(utc, converted));
        EXPECT_EQ(converted, local);
        EXPECT_TRUE(AfxLocalTimeToUTC(converted, converted));
        EXPECT_EQ(converted, utc);
    }
    COleDateTime converted;
    EXPECT_TRUE(AfxLocalTimeToUTC({2007, 3, 25, 2, 0, 0}, converted)); // does not exist
    EXPECT_EQ(converted, COleDateTime(2007, 3, 25, 0, 0, 0));
}

TEST(LocalTime, WhatCannotBeConvertedLeavesTheOutput) {
    COleDateTime null(39146.0);
    null.SetStatus(COleDateTime::null);
    COleDateTime converted = kMarker;
    for (const COleDateTime& date : {null, COleDateTime(std::numeric_limits<double>::quiet_NaN()),
                                     COleDateTime(1600, 12, 31, 22, 0, 0)}) {
        EXPECT_FALSE(AfxUTCToLocalTime(date, converted)) << testing::PrintToString(date);
        EXPECT_FALSE(AfxLocalTimeToUTC(date, converted)) << testing::PrintToString(date);
    }
    EXPECT_FALSE(AfxUTCToLocalTime(COleDateTime(9999, 12, 31, 23, 30, 0), converted));
    EXPECT_EQ(converted, kMarker);
}

TEST(LocalTime, AZoneOfTheCallersCountsInstead) {
    TIME_ZONE_INFORMATION west = {}, sydney = {}; // its summer spans the new year
    west.Bias = 300;
    sydney.Bias = -600;
    sydney.StandardDate = {0, 4, 0, 1, 3, 0, 0, 0};
    sydney.DaylightDate = {0, 10, 0, 1, 2, 0, 0, 0};
    sydney.DaylightBias = -60;
    const std::tuple<const TIME_ZONE_INFORMATION*, SYSTEMTIME, COleDateTime> rows[] = {
        {&west, {2007, 7, 0, 1, 20, 6, 7, 250}, {2007, 7, 2, 1, 6, 7}},
        {nullptr, {2007, 7, 0, 1, 20, 6, 7, 250}, {2007, 7, 1, 18, 6, 7}}, // the user's zone
        {&sydney, {2008, 1, 0, 1, 0, 30, 0, 250}, {2007, 12, 31, 13, 30, 0}},
        {&sydney, {2008, 4, 0, 6, 2, 30, 0, 250}, {2008, 4, 5, 15, 30, 0}}, // occurs twice
        {&sydney, {2008, 4, 0, 6, 3, 0, 0, 250}, {2008, 4, 5, 17, 0, 0}},
        {&sydney, {2008, 10, 0, 5, 2, 30, 0, 250}, {2008, 10, 4, 15, 30, 0}}, // does not exist
    };
    for (const auto& [zone, local, expected] : rows) {
        SYSTEMTIME utc;
        EXPECT_TRUE(AfxTzSpecificLocalTimeToSystemTime(zone, &local, &utc));
        EXPECT_EQ(utc.wMilliseconds, 250);
        EXPECT_EQ(COleDateTime(utc), expected);
    }
}

TEST(LocalTime, TimesThatCannotBeAreRefusedWithAnError) {
    SYSTEMTIME marker;
    std::memset(&marker, 0x5a, sizeof marker);
    SYSTEMTIME utc = marker;
    const auto error = [&](const SYSTEMTIME* local, SYSTEMTIME* result) {
        return ErrorOf([=] { return AfxTzSpecificLocalTimeToSystemTime(nullptr, local, result); });
    };
    const WORD february = kOnLinux ? 2 : 13; // Wine reads 29 February as 1 March
    for (const SYSTEMTIME& time : {SYSTEMTIME{1601, 1, 0, 1, 0, 59, 59, 0},
                                   {2007, 13, 0, 1, 0, 0, 0, 0},
                                   {2007, 1, 0, 1, 24, 0, 0, 0},
                                   {2007, 1, 0, 0, 0, 0, 0, 0},
                                   {2007, february, 0, 29, 0, 0, 0, 0}})
        EXPECT_EQ(error(&time, &utc), DWORD{ERROR_INVALID_PARAMETER}) << time.wMonth;
    EXPECT_EQ(std::memcmp(&utc, &marker, sizeof marker), 0);
    EXPECT_EQ(error(nullptr, &utc), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_EQ(error(&marker, nullptr), DWORD{ERROR_INVALID_PARAMETER});
}
