// Real sockets on loopback below a check. Its decisions have separate tests.
#include "update/http_connection.h"

#include "net/socket_peer.h"
#include "update/scripted_check.h"
#include "update/update_check.h"

namespace {

class UpdateOverHttp : public testing::Test, InitializedSockets, protected CheckSurroundings {
protected:
    SOCKET Answer(const std::string& fields, const std::string& body) {
        const SOCKET client = peer.Accept();
        Peer::ReadRequest(client);
        Peer::Send(client, Response(body, fields));
        return client;
    }

    const CString url = _T("http://127.0.0.1/updates.xml");
    Peer peer;
    quorvel::HttpSource http{peer.Port()};
};

TEST_F(UpdateOverHttp, CancellingInTheMiddleRemovesTheFileThatIsWritten) {
    AfxWriteProfileCheckForUpdatesURL(path, url);
    quorvel::UpdateCheck check(path, local, view, http);
    http.SetFlow(&check);
    ASSERT_TRUE(check.Check());
    closesocket(Answer("Last-Modified: Tue, 12 Mar 2024 08:30:00 GMT\r\n", ""));
    StatusWindow::PumpUntil([&] { return HasTemporaryFiles(); });
    const SOCKET client = Answer(LengthField(200), Listing("2024-03-12"));
    StatusWindow::PumpUntil([&] { return view.m_percent > 0; });
    EXPECT_TRUE(HasTemporaryFiles());
    check.Cancel();
    StatusWindow::PumpUntil([&] { return !HasTemporaryFiles(); });
    EXPECT_FALSE(HasTemporaryFiles());
    closesocket(client);
    EXPECT_EQ(std::vector{resultCancelled}, view.m_results);
}

TEST_F(UpdateOverHttp, AConnectionReportsItsEndWithoutAStatus) {
    const auto connection = http.NewConnection();
    quorvel::UpdateRequest request;
    request.url = url;
    ASSERT_EQ(0u, connection->Create() + connection->Connect(request));
    closesocket(Answer("", ""));
    DWORD error = 1;
    StatusWindow::PumpUntil([&] { return connection->HasEnded(error); });
    EXPECT_TRUE(connection->HasEnded(error));
    EXPECT_EQ(0u, error);
}

} // namespace
