// The checks over real sockets on loopback. Their decisions have separate tests.

#include "update/http_connection.h"

#include "net/socket_peer.h"
#include "update/scripted_check.h"
#include "update/update_check.h"

#include "support/test.h"

#include <thread>

namespace {

class WatchedSource : public quorvel::HttpSource {
public:
    using HttpSource::HttpSource;
    std::unique_ptr<quorvel::UpdateConnection> NewConnection() override {
        auto connection = HttpSource::NewConnection();
        m_last = connection.get();
        return connection;
    }
    quorvel::UpdateConnection* m_last = nullptr;
};

class UpdateOverHttp : public testing::Test, InitializedSockets, protected CheckSurroundings {
protected:
    UpdateOverHttp() {
        AfxWriteProfileCheckForUpdatesURL(path, _T("http://127.0.0.1/updates.xml"));
    }

    // Answers this number of requests; a HEAD only gets the header. On request the last connection
    // stays open until the client closes it.
    void Serve(int requests, const std::string& fields, bool stalls = false) {
        m_server = std::thread([=, this] {
            for (int i = 0; i < requests; ++i) {
                const SOCKET client = m_peer.Accept();
                const bool isGet = Peer::ReadRequest(client).starts_with("GET");
                Peer::Send(client, Response(isGet ? Listing("2024-03-12") : "", fields));
                char byte;
                while (stalls && i == requests - 1 && recv(client, &byte, 1, 0) > 0) {
                }
                closesocket(client);
            }
        });
    }
    void Finish() {
        StatusWindow::PumpUntil([&] { return !m_check.IsActive(); });
        m_server.join();
        StatusWindow::Pump();
    }

    Peer m_peer;
    std::thread m_server;
    WatchedSource m_http{m_peer.Port()};
    quorvel::UpdateCheck m_check{path, local, view, m_http};
};

TEST_F(UpdateOverHttp, CancellingInTheMiddleRemovesTheFileThatIsWritten) {
    m_http.SetFlow(&m_check);
    Serve(2, "Last-Modified: Tue, 12 Mar 2024 08:30:00 GMT\r\nContent-Length: 100000\r\n", true);
    ASSERT_TRUE(m_check.Check());
    StatusWindow::PumpUntil([&] { return HasTemporaryFiles() && m_http.m_last->IsHeaderParsed(); });
    EXPECT_TRUE(HasTemporaryFiles());
    m_check.Cancel();
    Finish();
    EXPECT_FALSE(HasTemporaryFiles());
    EXPECT_EQ(std::vector{CCheckForUpdatesView::resultCancelled}, view.m_results);
}

TEST_F(UpdateOverHttp, AnEndWhoseStatusIsLostIsFoundAllTheSame) {
    Serve(1, "");
    ASSERT_TRUE(m_check.Check());
    DWORD error = 1;
    StatusWindow::PumpUntil([&] { return m_http.m_last->HasEnded(error); }); // not notified
    EXPECT_EQ(0u, error);
    StatusWindow::Pump();
    EXPECT_TRUE(m_check.IsActive());
    m_http.SetFlow(&m_check);
    Finish();
    EXPECT_EQ(std::vector{CCheckForUpdatesView::resultUpToDate}, view.m_results);
}

} // namespace
