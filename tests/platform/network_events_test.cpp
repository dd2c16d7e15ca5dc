// Cases that no real connection can produce in time.
#include "platform/linux/net/network_events.h"

#include "support/test.h"

using quorvel::NetworkEvents;

namespace {

NetworkEvents::Conditions Reset(bool hasData) {
    NetworkEvents::Conditions conditions;
    conditions.data = hasData;
    conditions.end = conditions.hangUp = true;
    conditions.error = WSAECONNRESET;
    return conditions;
}

TEST(NetworkEvents, AConnectionThatWasResetAtOnceIsReportedAsBoth) {
    NetworkEvents events;
    events.Select(63);
    events.Connect();
    EXPECT_TRUE(events.Observe(Reset(false)));
    const NetworkEvents::Report report = events.Enumerate();
    EXPECT_EQ(report.events, FD_WRITE | FD_CONNECT | FD_CLOSE);
    EXPECT_EQ(report.errors[4], 0) << "connect";
    EXPECT_EQ(report.errors[5], WSAECONNABORTED) << "close";
    EXPECT_EQ(events.Interest(), 0u);
}

// A condition that stays true must not be polled: the wait would never sleep.
TEST(NetworkEvents, AResetBehindDataIsReportedOnce) {
    NetworkEvents events;
    events.Select(63);
    events.Connected();
    events.Enumerate();
    EXPECT_TRUE(events.Observe(Reset(true)));
    const NetworkEvents::Report report = events.Enumerate();
    EXPECT_EQ(report.events, FD_READ | FD_CLOSE);
    EXPECT_EQ(report.errors[5], WSAECONNABORTED);
    EXPECT_EQ(events.Interest(), 0u);
    events.Received();
    EXPECT_NE(events.Interest(), 0u) << "there may be more data";
    EXPECT_FALSE(events.Observe(Reset(false)));
    EXPECT_EQ(events.Enumerate().events, 0);
    events.Received();
    EXPECT_EQ(events.Interest(), 0u);
}

} // namespace
