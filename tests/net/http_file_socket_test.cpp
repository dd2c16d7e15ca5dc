// Downloads from a scripted server on loopback: statuses, the file, and ends of connections.
#include <quorvel/net/http_file_socket.h>

#include "net/socket_peer.h"
#include "support/temporary_folder.h"

#include <cstdlib>
#include <regex>

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
    std::string Ask(CHttpFileSocket& socket) {
        Connect(socket);
        return Peer::ReadRequest(m_server);
    }
    // Sends the pieces, each after the socket has received the one before, and disconnects.
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
    // The statuses without those of progress, whose number depends on the network.
    std::string Statuses(const CHttpFileSocket& socket) {
        return std::regex_replace(m_window.Of(socket), std::regex("\\b(9|10:\\d+) "), "");
    }

    // Downloads into the file "file"; returns the statuses.
    std::string Get(const CString& name, UINT port, BOOL headerOnly) {
        CHttpFileSocket socket;
        socket.SetStatusCallbackWnd(m_window.Get());
        socket.SetGetHeaderOnly(headerOnly);
        socket.SetLocalFileName(m_folder.Path(_T("file")));
        EXPECT_TRUE(socket.Create() && socket.Connect(_T("http://127.0.0.1/") + name, port));
        Answer(socket, "", 1);
        const std::string statuses = Statuses(socket);
        Release(socket);
        return statuses;
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
        // Some servers send a body even for a HEAD request.
        Answer(socket, "HTTP/1.0 404 Not Found\r\na: b\r\n\r\n<html>", 4096);
        EXPECT_EQ("3 4 8 1000 14 ", Statuses(socket));
        EXPECT_EQ(404u, socket.GetHeader().GetStatusCode());
        EXPECT_EQ(!headerOnly, m_folder.Has(_T("file")));
        Release(socket);
    }
}

TEST_F(Download, TheFileIsWhatCame) {
    const std::string line = "HTTP/1.1 200 OK\r\n", short19 = line + "\r\n";
    const std::string header = line + "X: \xc3\xa9\r\n\r\n", digits = "0123456789";
    std::string body(100000, '\0');
    for (std::size_t i = 0; i < body.size(); ++i)
        body[i] = static_cast<char>(i * 7);
    constexpr std::size_t kNoLimit = ~std::size_t{0};
    const struct {
        const char* label;
        std::string response;
        std::size_t piece;
        const char* statuses;
        UINT bufferSize = 0;
        bool isReset = false;
        std::size_t headerLimit = kNoLimit, fileLimit = kNoLimit;
        std::size_t fileSize = kNoLimit; // the whole response
    } rows[] = {
        {"into a small buffer", header + body, 1 << 20, "3 4 8 1000 14 ", 128},
        {"no end of the header", line + "X: y\r\n", 5, "3 4 8 14 "},
        {"nothing", "", 1, "3 4 8 14 "},
        // Wine does not report resets; Windows does.
        {"a reset in the body", short19 + digits, 30000,
         kOnLinux ? "3 4 8 1000 9:10054 14:10054 " : "3 4 8 1000 14 ", 0, true},
        {"a reset in the header", line, 30000, kOnLinux ? "3 4 8 9:10054 14:10054 " : "3 4 8 14 ",
         0, true},
        {"within the limits", short19 + digits, 1, "3 4 8 1000 14 ", 0, false, 19, 29},
        {"a header beyond its limit", short19 + digits, 1, "3 4 8 9:10040 ", 0, false, 18, 29, 18},
        {"a file beyond its limit", short19 + digits, 1, "3 4 8 1000 9:10040 ", 0, false, 19, 28,
         28},
    };
    CHttpFileSocket socket; // reused for all connections
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        socket.SetGetHeaderOnly(FALSE);
        socket.SetLocalFileName(m_folder.Path(_T("file")));
        socket.SetReceiveBufferSize(row.bufferSize);
        socket.SetHeaderLimit(row.headerLimit);
        socket.SetFileLimit(row.fileLimit);
        Ask(socket);
        const linger hard = {1, 0};
        if (row.isReset)
            setsockopt(m_server, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&hard),
                       sizeof hard);
        Answer(socket, row.response, row.piece);
        EXPECT_EQ(row.statuses, Statuses(socket));
        socket.Close(); // also closes the file
        EXPECT_TRUE(row.response.substr(0, row.fileSize) == m_folder.Read(_T("file")));
        EXPECT_EQ(std::string(row.statuses).find("1000") != std::string::npos,
                  socket.IsHeaderParsed() != FALSE);
        if (row.fileSize == kNoLimit) {
            EXPECT_EQ(row.response.size(), socket.GetBytesReceived());
        }
        Release(socket);
    }
}

// The answers of the web servers that are installed here differ in format.
TEST_F(Download, FromARealServerIsWhole) {
    if (!kOnLinux)
        GTEST_SKIP() << "the servers run on Linux";
    const UINT port = Peer().Port(); // free again
    const std::string address = "127.0.0.1:" + std::to_string(port);
    const std::string inFolder = "cd " + m_folder.Path().ToUTF8() + "; PATH=$PATH:/usr/sbin; ";
    std::map<CString, std::string> files = {
        {_T("list.xml"), "<rss/>"}, {_T("big.xml"), std::string(3000000, 'x')}, {_T("empty"), ""}};
    for (const auto& [name, content] : files)
        m_folder.Write(name, content);
    m_folder.Write(_T("config"),
                   "daemon off; master_process off; pid own_pid; user root; events {} http {"
                   " access_log off; client_body_temp_path temp; proxy_temp_path temp;"
                   " fastcgi_temp_path temp; uwsgi_temp_path temp; scgi_temp_path temp;"
                   " server { listen " +
                       address + "; root .; } }");
    const std::pair<std::string, std::string> servers[] = {
        {"nginx", " -p . -e stderr -c config"}, {"busybox", " httpd -f -h . -p " + address}};
    for (const auto& [server, arguments] : servers) {
        SCOPED_TRACE(server);
        if (std::system((inFolder + "command -v " + server).c_str()) != 0)
            continue; // is not installed
        const std::string run = server + arguments + " 2>errors & echo $! >pid";
        EXPECT_EQ(std::system((inFolder + run).c_str()), 0);
        const std::string statuses = "3 4 8 1000 14 ";
        m_window.PumpUntil([&] { return Get(_T("list.xml"), port, TRUE) == statuses; });
        for (const auto& [name, content] : files) {
            EXPECT_EQ(Get(name, port, TRUE), statuses);
            EXPECT_EQ(Get(name, port, FALSE), statuses);
            EXPECT_TRUE(m_folder.Read(_T("file")).ends_with("\r\n\r\n" + content));
        }
        EXPECT_EQ(Get(_T("none"), port, FALSE), statuses);
        EXPECT_NE(m_folder.Read(_T("file")).find(" 404 "), std::string::npos);
        EXPECT_EQ(std::system((inFolder + "kill $(cat pid)").c_str()), 0);
    }
}

// Statuses are not dispatched meanwhile: the queue is full, and the end arrives before the data
// were received.
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
    Answer(socket, "", 1);
    EXPECT_EQ("3 4 8:3 ", m_window.Of(socket));
}

} // namespace
