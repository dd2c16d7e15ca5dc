// Event-driven sockets: their statuses, handlers and ends, over loopback.
#include <quorvel/framework/exceptions.h>
#include <quorvel/net/winsock_error_text.h>
#include <quorvel/res/message_ids.h>

#include "net/socket_peer.h"
#include "support/message_box_recorder.h"

#include <cstring>

namespace {

const WCHAR* const kHost = _T("127.0.0.1");

class VaskSocket : public testing::Test, InitializedSockets {
protected:
    void ExpectStatuses(const CVaskSocket& socket, const std::string& expected) {
        m_window.PumpUntil([&] { return m_window.Of(socket).size() >= expected.size(); });
        EXPECT_EQ(m_window.Of(socket), expected);
    }
    void Connect(ScriptedSocket& socket, Peer& peer) {
        socket.SetStatusCallbackWnd(m_window.Get());
        ASSERT_TRUE(socket.Create());
        ASSERT_TRUE(socket.Connect(kHost, peer.Port()));
    }
    // Also returns when the worker has ended before.
    void AwaitStatus(const ScriptedSocket& socket, const char* status) {
        m_window.PumpUntil(
            [&] { return !socket.IsThreadActive() || m_window.Of(socket).ends_with(status); });
    }

    StatusWindow m_window;
};

TEST(VaskSocketSetUp, IsDoneOnceAndNeeded) {
    MessageBoxRecorder recorder;
    CVaskSocket socket, other;
    const sockaddr address = {};
    const addrinfo info = {};
    ExpectCases<DWORD>({
        CASE(ErrorOf([&] { return socket.Create(); }), 1),
        CASE(ErrorOf([&] { return socket.CreateEx(&info); }), 1),
        CASE(ErrorOf([&] { return socket.Attach(1); }), 1),
        CASE(ErrorOf([&] { return socket.CreateFromHandle(1); }), 1),
        CASE(ErrorOf([&] { return socket.Accept(other); }), 1),
        CASE(ErrorOf([&] { return socket.Connect(kHost, 80); }), 1),
        CASE(ErrorOf([&] { return socket.Connect(&address, sizeof address); }), 1),
        CASE(ErrorOf([&] { return socket.ConnectEx(&info); }), 1),
        CASE(ErrorOf([&] { return socket.Listen(); }), 1),
    });
    EXPECT_FALSE(CVaskSocket::Deinitialize());
    EXPECT_TRUE(CVaskSocket::Initialize());
    EXPECT_TRUE(recorder.Take().empty());
    EXPECT_FALSE(CVaskSocket::Initialize());
    EXPECT_EQ(recorder.Take().at(0).text,
              _T("An error has occurred while initializing the VaskSocket class.")
              _T("\r\n\r\nThe VaskSocket class has already been initialized."));
    EXPECT_TRUE(CVaskSocket::Deinitialize());
    EXPECT_FALSE(CVaskSocket::Deinitialize());
}

TEST_F(VaskSocket, ReportsADownloadStepByStep) {
    Peer peer;
    ScriptedSocket socket;
    socket.SetStatusCallbackWnd(m_window.Get());
    socket.SetGetHostTimeOut(60000);
    ASSERT_TRUE(socket.Create());
    ASSERT_TRUE(socket.Connect(_T("http://localhost:1/path?q#f"), peer.Port()));
    ExpectStatuses(socket, "1 2 3 4 8 "); // an address has no look-up: 3 4 8
    const SOCKET server = peer.Accept();
    EXPECT_EQ(socket.GetHostServer(), _T("localhost"));
    EXPECT_EQ(socket.GetHostObject(), _T("/path?q"));
    EXPECT_EQ(socket.GetHostServerIP(), kHost);
    EXPECT_EQ(socket.GetHostPort(), peer.Port());
    peer.Send(server, "hello");
    ExpectStatuses(socket, "1 2 3 4 8 9 10:5 ");
    closesocket(server);
    ExpectStatuses(socket, "1 2 3 4 8 9 10:5 14 ");
    EXPECT_EQ(socket.Take(), "connect send receive close ");
    EXPECT_EQ(socket.Received(), "hello");
    socket.Close();
    socket.Close();
    ExpectStatuses(socket, "1 2 3 4 8 9 10:5 14 0 ");
    EXPECT_EQ(socket.GetStatus(), 0);
}

TEST_F(VaskSocket, ReportsWhyItDoesNotConnect) {
    Peer nobody(Peer::kBoundOnly);
    ScriptedSocket socket;
    Connect(socket, nobody);
    ExpectStatuses(socket, "3 4:10061 ");
    socket.Close();
    ExpectStatuses(socket, "3 4:10061 4:10053 0 ");

    ScriptedSocket unmade;
    unmade.SetStatusCallbackWnd(m_window.Get());
    EXPECT_TRUE(unmade.Connect(kHost, 80));
    ExpectStatuses(unmade, "3:10038 ");
    EXPECT_EQ(unmade.GetStatusError(), 10038);
}

TEST_F(VaskSocket, IsFoundFinishedWhenAFullQueueLosesItsStatuses) {
    Peer peer;
    ScriptedSocket socket;
    EXPECT_FALSE(socket.IsFinished());
    constexpr int kQueueLimit = 10000;
    for (int i = 0; i < kQueueLimit; ++i)
        PostMessageW(m_window.Get(), WM_APP, 0, 0);
    Connect(socket, peer);
    const SOCKET server = peer.Accept();
    EXPECT_FALSE(socket.IsFinished());
    while (socket.GetStatus() != CVaskSocket::statusSending) // the end may come first
        std::this_thread::yield();
    closesocket(server);
    while (!socket.IsFinished())
        std::this_thread::yield();
    EXPECT_EQ(socket.GetStatus(), CVaskSocket::statusEnded);
    m_window.Pump();
    EXPECT_EQ(m_window.Of(socket), kOnLinux ? "" : "3 4 8 14 "); // Wine's queue has no limit
    socket.Close();
    EXPECT_FALSE(socket.IsFinished());
}

TEST_F(VaskSocket, ClosedDuringALookUpCancelsIt) {
    const HeldLookUps held;
    for (int i = 0; i < 20; ++i) {
        ScriptedSocket socket;
        StatusWindow window;
        socket.SetStatusCallbackWnd(window.Get());
        ASSERT_TRUE(socket.Create());
        ASSERT_TRUE(socket.Connect(_T("localhost"), 80));
        held.AwaitBegin(); // does not dispatch the answer
        socket.Close();
        window.PumpUntil([&] { return window.Of(socket).size() >= 12; });
        EXPECT_EQ(window.Of(socket), "1 1:10053 0 ");
    }
}

TEST_F(VaskSocket, ListensAndAccepts) {
    ScriptedSocket listener, server, client;
    for (ScriptedSocket* each : {&listener, &server, &client})
        each->SetStatusCallbackWnd(m_window.Get());
    listener.m_acts["accept"] = [&] { return listener.Accept(server); };
    EXPECT_EQ(ErrorOf([&] { return listener.Listen(); }), DWORD{WSAENOTSOCK});
    EXPECT_TRUE(listener.Create(0, SOCK_STREAM, CVaskSocket::ALL_EVENTS, kHost));
    EXPECT_TRUE(listener.Listen());
    CString address;
    UINT port = 0, peerPort = 0;
    EXPECT_TRUE(listener.GetSockNameEx(address, port));
    EXPECT_EQ(address, kHost);
    ASSERT_TRUE(client.Create() && client.Connect(kHost, port));
    ExpectStatuses(client, "3 4 8 ");
    ExpectStatuses(server, "8 ");
    ExpectStatuses(listener, "5:10038 5 6 ");
    EXPECT_EQ(client.Send("ping", 4), 4);
    ExpectStatuses(server, "8 9 10:4 ");
    ASSERT_TRUE(client.GetPeerNameEx(address, peerPort));
    EXPECT_EQ(peerPort, port);
    server.Close();
    ExpectStatuses(server, "8 9 10:4 10:10053 0 ");
    ExpectStatuses(client, "3 4 8 14 ");
    client.Close();

    listener.m_acts["accept"] = [&] {
        listener.Close();
        return TRUE;
    };
    ASSERT_TRUE(client.Create() && client.Connect(kHost, port));
    m_window.PumpUntil([&] { return !listener.IsThreadActive(); });
    ExpectStatuses(listener, "5:10038 5 6 6 0 ");
}

// A handler that refuses, throws or closes its socket is the last handler called. A failed
// allocation is reported. If it closed the socket, the last status has been posted; otherwise the
// owner's Close posts it.
TEST_F(VaskSocket, EndsWithinAnyHandler) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"connect", "3 4 ", "connect "},
        {"send", "3 4 8 ", "connect send "},
        {"receive", "3 4 8 9 ", "connect send receive "},
        {"close", "3 4 8 9 10:1 ", "connect send receive close "},
    };
    enum Act { kRefuse, kThrow, kHasNoMemory, kThrowsForMemory, kClose, kActs };
    for (const auto& [handler, statuses, handlers] : rows) {
        Peer peer;
        ScriptedSocket socket; // the same for all rows: it can be reused
        for (int act = 0; act < kActs; ++act) {
            socket.m_acts[handler] = [&]() -> int {
                if (act == kThrow)
                    throw 5;
                if (act == kHasNoMemory)
                    throw std::bad_alloc();
                if (act == kThrowsForMemory)
                    throw new CMemoryException;
                if (act == kClose)
                    socket.Close();
                return act == kClose ? TRUE : handler == std::string("receive") ? -1 : 0;
            };
            SCOPED_TRACE(handler + std::string(", act ") + std::to_string(act));
            Connect(socket, peer);
            const SOCKET server = peer.Accept();
            AwaitStatus(socket, "8 ");
            peer.Send(server, "x");
            AwaitStatus(socket, "10:1 ");
            closesocket(server);
            m_window.PumpUntil([&] { return !socket.IsThreadActive(); });
            m_window.Pump();
            const bool lacksMemory = act == kHasNoMemory || act == kThrowsForMemory;
            const std::string last = statuses + std::string(lacksMemory ? "14:8 " : "");
            EXPECT_EQ(m_window.Of(socket), act == kClose ? last + "0 " : last);
            EXPECT_EQ(socket.Take(), handlers);
            socket.Close();
            m_window.Pump();
            EXPECT_EQ(m_window.Of(socket), last + "0 ");
            EXPECT_FALSE(socket.IsSocketValid() || socket.IsEventValid() ||
                         socket.IsCancelThreadEventValid());
            m_window.Forget(socket);
        }
    }
}

TEST_F(VaskSocket, RefusesWhatDoesNotFitItsStateAndHandsItsHandleBack) {
    Peer peer;
    ScriptedSocket socket;
    socket.SetStatusCallbackWnd(m_window.Get());
    const addrinfo strange = {0, AF_INET, 99, 0, 0, nullptr, nullptr, nullptr};
    const auto connect = [&](const WCHAR* url, UINT port = 80) {
        return ErrorOf([&] { return socket.Connect(url, port); });
    };
    const auto create = [&](UINT port, const WCHAR* address) {
        return ErrorOf(
            [&] { return socket.Create(port, SOCK_STREAM, CVaskSocket::ALL_EVENTS, address); });
    };
    ExpectCases<DWORD>({
        CASE(ErrorOf([&] { return socket.Attach(INVALID_SOCKET); }), WSAENOTSOCK),
        CASE(ErrorOf([&] { return socket.CreateEx(nullptr); }), WSAEINVAL),
        CASE(ErrorOf([&] { return socket.CreateEx(&strange); }), WSAESOCKTNOSUPPORT),
        CASE(connect(nullptr), WSAEINVAL),
        CASE(connect(_T("http://")), WSAEINVAL),
        CASE(connect(_T("a/\x2003")), WSAEINVAL), // a blank on Windows
        CASE(connect(kHost, 0), WSAEINVAL),
        CASE(connect(kHost, 65536), WSAEINVAL),
        CASE(create(peer.Port(), kHost), WSAEADDRINUSE),
        CASE(create(0, _T("host")), WSAEINVAL),
    });
    EXPECT_TRUE(socket.GetHostURL().IsEmpty());
    EXPECT_FALSE(socket.IsSocketValid() || socket.IsEventValid() || socket.IsThreadActive());
    // Only before it is active does it hand its handle back.
    ASSERT_TRUE(socket.Create());
    const SOCKET handle = socket.Detach();
    EXPECT_FALSE(handle == INVALID_SOCKET || socket.IsSocketValid() || socket.IsEventValid());
    EXPECT_TRUE(socket.Attach(handle));
    EXPECT_EQ(socket.GetHandle(), handle);
    EXPECT_TRUE(socket.Connect(kHost, peer.Port()));
    ExpectCases<DWORD>({
        CASE(ErrorOf([&] { return socket.Create(); }), WSAEISCONN),
        CASE(ErrorOf([&] { return socket.Attach(1); }), WSAEISCONN),
        CASE(ErrorOf([&] { return socket.Connect(kHost, 80); }), WSAEISCONN),
        CASE(ErrorOf([&] { return socket.Detach() != INVALID_SOCKET; }), WSAEOPNOTSUPP),
        CASE(ErrorOf([&] { return socket.Accept(socket); }), WSAEISCONN),
    });
    EXPECT_TRUE(socket.IsThreadActive());
}

// Any thread may close at any time: nothing hangs, and nothing leaks.
TEST_F(VaskSocket, ClosesAtAnyMoment) {
    Peer peer;
    int before = 0;
    // Wine's server has a fault of its own: about once in 100,000 cycles it uses a freed object and
    // crashes, and the programs that it serves hang.
    constexpr int kCycles = kOnLinux ? 10000 : 100;
    for (int i = 0; i < kCycles; ++i) {
        ScriptedSocket socket;
        Connect(socket, peer);
        if (i % 3 != 0) {
            const SOCKET server = peer.Accept();
            peer.Send(server, i % 3 == 1 ? "" : "some bytes");
            closesocket(server);
        }
        for (int yields = 0; yields < i % 7; ++yields)
            std::this_thread::yield();
        socket.Close();
        EXPECT_FALSE(socket.IsThreadActive());
        m_window.Pump();
        EXPECT_TRUE(m_window.Of(socket).ends_with("0 ")) << m_window.Of(socket);
        m_window.Forget(socket);
        if (i % 3 == 0)
            peer.Restart(); // drops connections that wait to be accepted
        if (i == kCycles / 10)
            before = ThingsOpen();
    }
    EXPECT_LE(ThingsOpen(), before + 10);
}

TEST(WinsockErrorText, IsUnknownWhereThereIsNoRow) {
    ExpectCases<CString, const WCHAR*>({
        CASE(AfxGetWinsockErrorText(10061), _T("Connection refused. ")),
        CASE(AfxGetWinsockErrorText(10104), _T("Unknown error.")), // though the catalogue has one
        CASE(AfxGetWinsockErrorText(10107), _T("System call failure.")),
    });
}

// A copy ends at the first zero byte. So it has no addresses and must not search for any.
TEST(GetHostRequestData, LosesItsAddressWhenCopied) {
    CGetHostRequestData data;
    CString address;
    auto& host = *reinterpret_cast<hostent*>(data.GetBuffer());
    host.h_addr_list = reinterpret_cast<char**>(data.GetBuffer() + sizeof host);
    host.h_addr_list[0] = data.GetBuffer() + sizeof host + 2 * sizeof(char*);
    std::memcpy(host.h_addr_list[0], "\x7f\1\2\3", 4);
    EXPECT_TRUE(data.GetIPAddress(address));
    EXPECT_EQ(address, _T("127.1.2.3"));
    EXPECT_FALSE(CGetHostRequestData(data).GetIPAddress(address));
    EXPECT_TRUE(address.IsEmpty());
}

} // namespace
