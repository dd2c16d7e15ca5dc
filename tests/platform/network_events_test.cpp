// The record of a socket's network events, driven by scripts: no socket is needed.
#include "platform/linux/net/network_events.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

using quorvel::NetworkEvents;

namespace {

// Steps of a script. "see:data+end" is a look that shows those conditions, "reset" an error 10054
// with a hang-up, "refused" 10061; "?" enumerates, "~" asks what is worth a look.
class Script {
public:
    std::string Run(const std::string& steps) {
        std::istringstream words(steps);
        for (std::string word; words >> word;)
            Step(word);
        return m_seen;
    }

private:
    void Step(const std::string& word) {
        if (word == "connect")
            m_events.Connect();
        else if (word == "connected")
            m_events.Connected();
        else if (word == "accepted")
            m_events.Become(NetworkEvents::Kind::Connected);
        else if (word == "listen")
            m_events.Become(NetworkEvents::Kind::Listening);
        else if (word == "all")
            m_events.Select(63);
        else if (word == "read")
            m_events.Select(FD_READ);
        else if (word == "none")
            m_events.Select(0);
        else if (word == "recv")
            m_events.Received();
        else if (word == "recv-oob")
            m_events.ReceivedUrgent();
        else if (word == "send-blocks")
            m_events.SendBlocked();
        else if (word == "accept")
            m_events.Accepted();
        else if (word.starts_with("see:"))
            See(word);
        else if (word == "?")
            Note(Enumerated());
        else if (word == "~")
            Note(Interest());
        else
            ADD_FAILURE() << "no such step: " << word;
    }
    void See(const std::string& word) {
        const auto has = [&word](const char* name) { return word.find(name) != word.npos; };
        NetworkEvents::Conditions conditions;
        conditions.data = has("data");
        conditions.end = has("end") || has("reset");
        conditions.room = has("room");
        conditions.urgent = has("urgent");
        conditions.hangUp = has("reset") || has("refused") || has("hang-up");
        conditions.error = has("reset") ? WSAECONNRESET : has("refused") ? WSAECONNREFUSED : 0;
        const bool had = m_events.HasReport();
        if (m_events.Observe(conditions) && !had)
            Note("!"); // the event is to be signalled
    }
    std::string Enumerated() {
        static constexpr const char* kNames[] = {"read",   "write",   "oob",
                                                 "accept", "connect", "close"};
        const NetworkEvents::Report report = m_events.Enumerate();
        std::string names;
        for (int bit = 0; bit < 6; ++bit)
            if (report.events & (1 << bit))
                names += (names.empty() ? "" : "+") + std::string(kNames[bit]) +
                         (report.errors[bit] != 0 ? std::to_string(report.errors[bit]) : "");
        return names.empty() ? "-" : names;
    }
    std::string Interest() {
        std::string letters;
        for (int bit = 0; bit < 5; ++bit)
            if (m_events.Interest() & (1u << bit))
                letters += "derux"[bit];
        return "~" + letters;
    }
    void Note(const std::string& text) { m_seen += (m_seen.empty() ? "" : " ") + text; }

    NetworkEvents m_events;
    std::string m_seen;
};

TEST(NetworkEvents, AreReportedOnceAndArmedByTheirCalls) {
    struct {
        const char* label;
        const char* steps;
        const char* seen;
    } const rows[] = {
        {"a connection", "all connect ~ see:room ? ? ~", "~rx ! write+connect - ~deux"},
        {"a refused one", "all connect see:room+refused ? ~ ?", "! connect10061 ~ -"},
        {"one that was reset at once", "all connect see:reset ? ~", "! write+connect+close10053 ~"},
        {"data, once until received", "accepted all see:data ? see:data ~ ? recv see:data ?",
         "! read ~erux - ! read"},
        {"room after a send that blocked",
         "connected all ? see:room ? send-blocks ~ see:room ? see:room ?",
         "write+connect - ~derux ! write -"},
        {"a connection for a listener", "listen all see:data ? see:data ~ ? accept see:data ?",
         "! accept ~ - ! accept"},
        {"urgent data",
         "accepted all see:urgent ? see:urgent ? recv see:urgent ? recv-oob "
         "see:urgent+data ?",
         "! oob - - ! read+oob"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Script().Run(row.steps), row.seen) << row.label;
}

// What stays true must not be looked for again: the wait would never sleep.
TEST(NetworkEvents, OfAnEndComeAfterTheDataAndOnce) {
    struct {
        const char* label;
        const char* steps;
        const char* seen;
    } const rows[] = {
        {"no data", "connected all ? see:end ? ~ see:end ?", "write+connect ! close ~x -"},
        {"a reset behind data", "connected all ? see:data+reset ? ~ recv ~ see:reset ? ~ recv ~",
         "write+connect ! read+close10053 ~ ~dex - ~ ~"},
        {"both sides, behind data",
         "connected all ? see:data+end+hang-up ? ~ recv ~ see:end+hang-up ? ~",
         "write+connect ! read ~ ~dex ! close ~"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Script().Run(row.steps), row.seen) << row.label;
}

TEST(NetworkEvents, StayReportedWhateverIsSelected) {
    struct {
        const char* label;
        const char* steps;
        const char* seen;
    } const rows[] = {
        {"the same mask again", "connected all ? see:data ? all ?", "write+connect ! read -"},
        {"a wider mask adds what was not asked for", "connected read see:data ? all ?",
         "! read write+connect"},
        {"none", "connected all none ~ see:data ?", "~ -"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Script().Run(row.steps), row.seen) << row.label;
}

} // namespace
