// The record of a socket's network events, driven by scripts: no socket is needed.
#include "platform/linux/network_events.h"

#include "support/test.h"

#include <sstream>

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
        typedef NetworkEvents::Kind Kind;
        const std::tuple<const char*, std::function<void()>> steps[] = {
            {"connect", [this] { m_events.Connect(); }},
            {"connected", [this] { m_events.Connected(); }},
            {"accepted", [this] { m_events.Become(Kind::kConnected); }},
            {"listen", [this] { m_events.Become(Kind::kListening); }},
            {"all", [this] { m_events.Select(63); }},
            {"read", [this] { m_events.Select(FD_READ); }},
            {"none", [this] { m_events.Select(0); }},
            {"recv", [this] { m_events.Received(); }},
            {"recv-oob", [this] { m_events.ReceivedUrgent(); }},
            {"send-blocks", [this] { m_events.SendBlocked(); }},
            {"accept", [this] { m_events.Accepted(); }},
            {"?", [this] { Note(Enumerated()); }},
            {"~", [this] { Note(Interest()); }},
        };
        if (word.starts_with("see:"))
            return See(word);
        for (const auto& [name, take] : steps)
            if (word == name)
                return take();
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
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"a connection", "all connect ~ see:room ? ? ~", "~rx ! write+connect - ~deux"},
        {"a refused one", "all connect see:room+refused ? ~ ?", "! connect10061 ~ -"},
        {"one that was reset at once", "all connect see:reset ? ~", "! write+connect+close10054 ~"},
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
        // An end comes after the data and once. What stays true must not be looked for again: the
        // wait would never sleep.
        {"no data", "connected all ? see:end ? ~ see:end ?", "write+connect ! close ~x -"},
        {"a reset behind data", "connected all ? see:data+reset ? ~ recv ~ see:reset ? ~ recv ~",
         "write+connect ! read+close10054 ~ ~dex - ~ ~"},
        {"both sides, behind data",
         "connected all ? see:data+end+hang-up ? ~ recv ~ see:end+hang-up ? ~",
         "write+connect ! read ~ ~dex ! close ~"},
        // What was reported stays so, whatever is selected.
        {"the same mask again", "connected all ? see:data ? all ?", "write+connect ! read -"},
        {"a wider mask adds what was not asked for", "connected read see:data ? all ?",
         "! read write+connect"},
        {"none", "connected all none ~ see:data ?", "~ -"},
    };
    for (const auto& [label, steps, seen] : rows)
        EXPECT_EQ(Script().Run(steps), seen) << label;
}

} // namespace
