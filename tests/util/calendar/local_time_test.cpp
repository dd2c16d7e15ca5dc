// The time zone is that of the test run: Europe/Berlin.
#include <quorvel/util/calendar/local_time.h>

#include "support/date_time.h"
#include "support/last_error.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

namespace {

const COleDateTime kMarker(1234.5);

} // namespace

TEST(LocalTime, ConvertsBothWays) {
    const std::tuple<COleDateTime, COleDateTime> rows[] = {
        {{2007, 3, 25, 0, 59, 59}, {2007, 3, 25, 1, 59, 59}},
        {{2007, 3, 25, 1, 0, 0}, {2007, 3, 25, 3, 0, 0}},
        {{1899, 12, 29, 22, 59, 59}, {1899, 12, 29, 23, 59, 59}}, // serials below 0
        {{1899, 12, 29, 23, 0, 0}, {1899, 12, 30, 0, 0, 0}},
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
    EXPECT_FALSE(AfxLocalTimeToUTC(COleDateTime(1601, 1, 1, 0, 30, 0), converted));
    EXPECT_EQ(converted, kMarker);
}

TEST(LocalTime, AZoneOfTheCallersCountsInstead) {
    TIME_ZONE_INFORMATION west = {};
    west.Bias = 300;
    const SYSTEMTIME evening{2007, 7, 0, 1, 20, 6, 7, 0};
    const SYSTEMTIME tooEarly{1600, 12, 0, 31, 22, 0, 0, 0};
    SYSTEMTIME utc;
    const struct {
        const char* label;
        const TIME_ZONE_INFORMATION* zone;
        const SYSTEMTIME* local;
        SYSTEMTIME* utc;
        DWORD error;
        COleDateTime expected;
    } rows[] = {
        {"the user's zone", nullptr, &evening, &utc, 0, {2007, 7, 1, 18, 6, 7}},
        {"another", &west, &evening, &utc, 0, {2007, 7, 2, 1, 6, 7}},
        {"before 1601", &west, &tooEarly, &utc, ERROR_INVALID_PARAMETER, kMarker},
        {"no local time", &west, nullptr, &utc, ERROR_INVALID_PARAMETER, kMarker},
        {"no output", &west, &evening, nullptr, ERROR_INVALID_PARAMETER, kMarker},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        kMarker.GetAsSystemTime(utc);
        const auto convert = [&] {
            return AfxTzSpecificLocalTimeToSystemTime(row.zone, row.local, row.utc);
        };
        EXPECT_EQ(ErrorOf(convert), row.error);
        EXPECT_EQ(COleDateTime(utc), row.expected);
    }
}

TEST(LocalTime, TheClocksAgree) {
    const FILETIME now = AfxGetCurrentFileTime();
    const double days =
        (now.dwHighDateTime * 4294967296.0 + now.dwLowDateTime) / (86400.0 * 10000000);
    const COleDateTime fromFileTime = COleDateTime(1601, 1, 1, 0, 0, 0) + COleDateTimeSpan(days);
    // A second hour of the same name counts as the first.
    const double difference = std::fabs((AfxGetCurrentUTCTime() - fromFileTime).GetTotalSeconds());
    EXPECT_LT(difference < 3000 ? difference : std::fabs(difference - 3600), 60);
}
