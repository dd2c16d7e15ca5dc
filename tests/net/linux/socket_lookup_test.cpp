// The statuses of sockets whose hosts are slow or are not found: only on Linux can tests control
// look-ups.

#include "net/socket_peer.h"

namespace {

class SocketLookUp : public testing::Test, InitializedSockets {
protected:
    ~SocketLookUp() override { quorvel::SetHostResolver({}); }
    void Connect(ScriptedSocket& socket, UINT timeOut) {
        socket.SetStatusCallbackWnd(m_window.Get());
        socket.SetGetHostTimeOut(timeOut);
        ASSERT_TRUE(socket.Create());
        ASSERT_TRUE(socket.Connect(_T("some.host"), 80));
    }

    void ExpectEnd(ScriptedSocket& socket, const char* statuses) {
        m_window.PumpUntil([&] { return !socket.IsThreadActive(); });
        m_window.Pump();
        EXPECT_EQ(m_window.Of(socket), statuses);
    }

    StatusWindow m_window;
};

TEST_F(SocketLookUp, ReportsWhyItFailed) {
    const std::pair<int, const char*> rows[] = {{WSAHOST_NOT_FOUND, "1 2:11001 "},
                                                {WSATRY_AGAIN, "1 2:11002 "},
                                                {0, "1 2:11004 "}}; // no address
    for (const auto& [error, statuses] : rows) {
        quorvel::SetHostResolver(
            [result = error](const std::string&, std::vector<ULONG>&) { return result; });
        ScriptedSocket socket;
        Connect(socket, 60000);
        ExpectEnd(socket, statuses);
        socket.Close();
        m_window.Pump();
        m_window.Forget(socket);
    }
}

TEST_F(SocketLookUp, EndsWithItsTimeOut) {
    const HeldLookUps held;
    ScriptedSocket socket;
    Connect(socket, 20);
    held.AwaitBegin();
    ExpectEnd(socket, "1 2:10060 ");
}

// Answers, time-outs and closes race; each look-up ends once and leaks nothing.
TEST_F(SocketLookUp, SurvivesItsRaces) {
    quorvel::SetHostResolver([](const std::string&, std::vector<ULONG>& addresses) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        addresses.push_back(htonl(INADDR_LOOPBACK));
        return 0;
    });
    const int before = ThingsOpen();
    for (int round = 0; round < 60; ++round) {
        ScriptedSocket sockets[4];
        for (ScriptedSocket& socket : sockets)
            Connect(socket, 10);
        for (int i = 0; i < round % 12; ++i) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 1, QS_ALLINPUT);
            m_window.Pump();
        }
        for (ScriptedSocket& socket : sockets) {
            socket.Close();
            m_window.Pump();
            const std::string& seen = m_window.Of(socket);
            EXPECT_TRUE(seen.starts_with("1 ") && seen.ends_with("0 ")) << seen;
            m_window.Forget(socket);
        }
    }
    m_window.PumpUntil([before] { return ThingsOpen() <= before + 2; });
    EXPECT_LE(ThingsOpen(), before + 2);
}

} // namespace
