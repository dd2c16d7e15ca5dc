// The time zone is that of the test run: Europe/Berlin.
#include <quorvel/util/calendar/local_time.h>

#include "support/date_time.h"
#include "support/test.h"

namespace {

const COleDateTime kMarker(1234.5);

} // namespace

TEST(LocalTime, ConvertsBothWays) {
    const std::tuple<COleDateTime, COleDateTime> rows[] = {
        {{2007, 3, 25, 1, 0, 0}, {2007, 3, 25, 3, 0, 0}},
        {{1899, 12, 29, 23, 0, 0}, {1899, 12, 30, 0, 0, 0}}, // from a serial below 0
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
    EXPECT_EQ(converted, kMarker);
}

TEST(LocalTime, AZoneOfTheCallersCountsInstead) {
    TIME_ZONE_INFORMATION west = {};
    west.Bias = 300;
    const SYSTEMTIME evening{2007, 7, 0, 1, 20, 6, 7, 0};
    SYSTEMTIME utc;
    EXPECT_TRUE(AfxTzSpecificLocalTimeToSystemTime(&west, &evening, &utc));
    EXPECT_EQ(COleDateTime(utc), COleDateTime(2007, 7, 2, 1, 6, 7));
    const auto error = [&](const SYSTEMTIME* local, SYSTEMTIME* result) {
        return ErrorOf([=] { return AfxTzSpecificLocalTimeToSystemTime(nullptr, local, result); });
    };
    EXPECT_EQ(error(nullptr, &utc), DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_EQ(error(&evening, &utc), 0u);
    EXPECT_EQ(COleDateTime(utc), COleDateTime(2007, 7, 1, 18, 6, 7)); // the user's
}
