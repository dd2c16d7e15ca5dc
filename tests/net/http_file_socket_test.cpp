// Downloads from a scripted server on loopback: statuses, the file, and the ends of connections.
#include <quorvel/net/http_file_socket.h>

#include "net/socket_peer.h"
#include "platform/win32.h"
#include "support/temporary_folder.h"
#include "support/test.h"

#include <regex>
#include <thread>

namespace {

class Download : public testing::Test, InitializedSockets {
protected:
    void Connect(CHttpFileSocket& socket) {
        socket.SetStatusCallbackWnd(m_window.Get());
        EXPECT_TRUE(socket.Create());
        CString url;
        url.Format(_T("http://127.0.0.1:%u/a/list.xml?q=1"), m_peer.Port());
        EXPECT_TRUE(socket.Connect(url, m_peer.Port()));
        m_server = m_peer.Accept();
    }
    // Connects, and gives what the server is asked.
    std::string Ask(CHttpFileSocket& socket) {
        Connect(socket);
        std::string request;
        char byte;
        while (!request.ends_with("\r\n\r\n") && recv(m_server, &byte, 1, 0) == 1)
            request += byte;
        return request;
    }
    // Sends, each piece once the socket has what came before, and ends the connection.
    void Answer(CHttpFileSocket& socket, const std::string& response, std::size_t piece) {
        for (std::size_t at = 0; at < response.size() && socket.IsThreadActive(); at += piece) {
            const std::string bytes = response.substr(at, piece);
            send(m_server, bytes.data(), static_cast<int>(bytes.size()), 0);
            m_window.PumpUntil([&] {
                return socket.GetBytesReceived() == at + bytes.size() || !socket.IsThreadActive();
            });
        }
        closesocket(m_server);
        m_window.PumpUntil([&] { return !socket.IsThreadActive(); });
        StatusWindow::Pump();
    }
    void Release(CHttpFileSocket& socket) {
        socket.Close();
        StatusWindow::Pump();
        m_window.Forget(socket);
    }
    // Without those of progress, whose number the network decides.
    std::string Statuses(const CHttpFileSocket& socket) {
        return std::regex_replace(m_window.Of(socket), std::regex("\\b(9|10:\\d+) "), "");
    }

    Peer m_peer;
    SOCKET m_server = INVALID_SOCKET;
    StatusWindow m_window;
    TemporaryFolder m_folder;
};

TEST_F(Download, TheRequestAsksForTheHeaderOrForAll) {
    const std::string rest =
        " /a/list.xml?q=1 HTTP/1.1\r\nHost: 127.0.0.1\r\nConnection: close\r\n\r\n";
    for (const BOOL headerOnly : {TRUE, FALSE}) {
        CHttpFileSocket socket;
        EXPECT_TRUE(socket.GetHeaderOnly());
        socket.SetGetHeaderOnly(headerOnly);
        socket.SetLocalFileName(m_folder.Path(_T("file")));
        socket.SetLocalFileName(nullptr);
        EXPECT_EQ((headerOnly ? "HEAD" : "GET") + rest, Ask(socket));
        // Some servers send a body after a request for the header too.
        Answer(socket, "HTTP/1.0 404 Not Found\r\na: b\r\n\r\n<html>", 4096);
        EXPECT_EQ("3 4 8 1000 14 ", Statuses(socket));
        EXPECT_EQ(404u, socket.GetHeader().GetStatusCode());
        EXPECT_EQ(!headerOnly, m_folder.Has(_T("file")));
        Release(socket);
    }
}

TEST_F(Download, TheFileIsTheResponseHoweverItComes) {
    const std::string header = "HTTP/1.1 200 OK\r\nX: \xc3\xa9\r\n\r\n";
    std::string body(100000, '\0');
    for (std::size_t i = 0; i < body.size(); ++i)
        body[i] = static_cast<char>(i * 7);
    const std::tuple<const char*, std::string, std::size_t, UINT, const char*> rows[] = {
        {"into a small buffer", header + body, 1 << 20, 128, "3 4 8 1000 14 "},
        {"byte by byte", header + "\r\n\r\n", 1, 0, "3 4 8 1000 14 "},
        {"no end of the header", "HTTP/1.1 200 OK\r\nX: y\r\n", 5, 0, "3 4 8 14 "},
        {"nothing", "", 1, 0, "3 4 8 14 "},
    };
    CHttpFileSocket socket; // for one connection after the other
    for (const auto& [label, response, piece, bufferSize, statuses] : rows) {
        SCOPED_TRACE(label);
        socket.SetGetHeaderOnly(FALSE);
        socket.SetLocalFileName(m_folder.Path(_T("file")));
        socket.SetReceiveBufferSize(bufferSize);
        Ask(socket);
        Answer(socket, response, piece);
        EXPECT_EQ(statuses, Statuses(socket));
        EXPECT_TRUE(response == m_folder.Read(_T("file")));
        EXPECT_EQ(response.size(), socket.GetBytesReceived());
        EXPECT_EQ(std::string(statuses).find("1000") != std::string::npos,
                  socket.IsHeaderParsed() != FALSE);
        if (socket.IsHeaderParsed()) {
            EXPECT_EQ(header.size(), socket.GetHeaderConstRef().GetLength());
        }
        Release(socket);
    }
}

TEST_F(Download, FaultsOfAServerLeaveWhatCame) {
    const std::string header = "HTTP/1.1 200 OK\r\n";
    const std::string long1MB(1 << 20, 'x');
    enum End { kCloses, kResets };
    const std::tuple<const char*, std::string, End, const char*> rows[] = {
        {"fewer bytes told", header + "Content-Length: 3\r\n\r\n0123456789", kCloses,
         "3 4 8 1000 14 "},
        {"more bytes told", header + "Content-Length: 99\r\n\r\n0123456789", kCloses,
         "3 4 8 1000 14 "},
        {"a long header", header + "A: " + long1MB + "\r\n\r\n", kCloses, "3 4 8 1000 14 "},
        // Wine knows no reset here; Windows tells of it.
        {"a reset in the body", header + "\r\n0123456789", kResets,
         kOnLinux ? "3 4 8 1000 9:10054 14:10054 " : "3 4 8 1000 14 "},
        {"a reset in the header", header, kResets,
         kOnLinux ? "3 4 8 9:10054 14:10054 " : "3 4 8 14 "},
    };
    for (const auto& [label, response, end, statuses] : rows) {
        SCOPED_TRACE(label);
        CHttpFileSocket socket;
        socket.SetGetHeaderOnly(FALSE);
        socket.SetLocalFileName(m_folder.Path(_T("file")));
        Ask(socket);
        const linger hard = {1, 0};
        if (end == kResets)
            setsockopt(m_server, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&hard),
                       sizeof hard);
        Answer(socket, response, 30000);
        EXPECT_EQ(statuses, Statuses(socket));
        EXPECT_TRUE(response == m_folder.Read(_T("file")));
        Release(socket);
    }
}

// Nobody dispatches statuses meanwhile: the queue is full, and the end comes before the data were
// received.
TEST_F(Download, ManyTinyPiecesComeWhole) {
    std::string response = "HTTP/1.1 200 OK\r\n\r\n";
    response.append(kOnLinux ? 100000 : 20000, 'x');
    CHttpFileSocket socket;
    socket.SetGetHeaderOnly(FALSE);
    socket.SetReceiveBufferSize(1);
    socket.SetLocalFileName(m_folder.Path(_T("file")));
    Ask(socket);
    for (const char byte : response)
        Peer::Send(m_server, std::string(1, byte));
    closesocket(m_server);
    while (socket.IsThreadActive())
        std::this_thread::yield();
    EXPECT_TRUE(response == m_folder.Read(_T("file")));
    EXPECT_EQ(14, socket.GetStatus());
    Release(socket);
}

TEST_F(Download, AFileThatCannotBeMadeEndsItWithTheSystemsError) {
    CHttpFileSocket socket;
    socket.SetGetHeaderOnly(FALSE);
    socket.SetLocalFileName(m_folder.Path(_T("none/file")));
    Connect(socket);
    m_window.PumpUntil([&] { return !socket.IsThreadActive(); });
    StatusWindow::Pump();
    EXPECT_EQ("3 4 8:3 ", m_window.Of(socket));
    closesocket(m_server);
}

TEST_F(Download, LimitsEndALongHeaderAndALongFile) {
    const std::string header = "HTTP/1.1 200 OK\r\n\r\n"; // 19 bytes
    const std::tuple<std::size_t, std::size_t, std::string, const char*> rows[] = {
        {19, 29, header + "0123456789", "3 4 8 1000 14 "},
        {18, 29, header + "0123456789", "3 4 8 9:10040 "},
        {19, 28, header + "0123456789", "3 4 8 1000 9:10040 "},
    };
    for (const auto& [headerLimit, fileLimit, response, statuses] : rows) {
        SCOPED_TRACE(testing::Message() << headerLimit << ' ' << fileLimit << ' ' << response);
        CHttpFileSocket socket;
        socket.SetHeaderLimit(headerLimit);
        socket.SetFileLimit(fileLimit);
        Ask(socket);
        Answer(socket, response, 1);
        EXPECT_EQ(statuses, Statuses(socket));
        Release(socket);
    }
}

} // namespace
