#include "server.h"

#include "request.h"

#include <chrono>
#include <ctime>

using namespace quorvel::win32;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMaxRequest = 16384;
constexpr std::size_t kBlock = 65536;

std::string LastModified(const fs::path& file) {
    std::error_code error;
    const auto written = fs::last_write_time(file, error);
    if (error)
        return {};
    const auto time = std::chrono::time_point_cast<std::chrono::system_clock::duration>(
        std::chrono::file_clock::to_sys(written));
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    char text[64];
    std::strftime(text, sizeof text, "Last-Modified: %a, %d %b %Y %H:%M:%S GMT\r\n",
                  std::gmtime(&seconds));
    return text;
}

} // namespace

Connection::Connection(const fs::path& folder) : m_folder(folder) {}

Connection::~Connection() {
    Close(); // before the members that the worker uses
}

int Connection::OnReceive(int) {
    char buffer[4096];
    const int count = Receive(buffer, sizeof buffer);
    if (count == SOCKET_ERROR)
        return EndUnlessBlocked();
    if (m_answered)
        return count; // whatever the client still says
    m_request.append(buffer, static_cast<std::size_t>(count));
    const std::optional<Request> request = ReadRequest(m_request);
    if (request)
        Answer(request->method, request->path);
    else if (m_request.size() > kMaxRequest)
        AnswerWith("431 Request Header Fields Too Large", "", "Too long.\n");
    else
        return count;
    SendMore();
    return count;
}

void Connection::Answer(const std::string& method, const std::string& path) {
    if (method.empty())
        return AnswerWith("400 Bad Request", "", "Not understood.\n");
    if (method != "GET" && method != "HEAD")
        return AnswerWith("405 Method Not Allowed", "Allow: GET, HEAD\r\n", "Not allowed.\n");
    const fs::path file = FindFile(m_folder, path);
    std::error_code error;
    const std::uintmax_t size = file.empty() ? 0 : fs::file_size(file, error);
    if (!file.empty() && !error)
        m_file.open(file, std::ios::binary);
    if (!m_file.is_open())
        return AnswerWith("404 Not Found", "", "Not found.\n");
    AnswerWith("200 OK", LastModified(file) + "Content-Length: " + std::to_string(size) + "\r\n",
               "");
    if (method == "HEAD")
        m_file.close();
}

void Connection::AnswerWith(const char* status, const std::string& fields,
                            const std::string& body) {
    m_answered = true;
    m_pending = std::string("HTTP/1.1 ") + status + "\r\nConnection: close\r\n" + fields;
    if (!body.empty())
        m_pending += "Content-Length: " + std::to_string(body.size()) + "\r\n";
    m_pending += "\r\n" + body;
}

BOOL Connection::OnSend(int) {
    if (m_answered)
        SendMore();
    return TRUE;
}

// Sends until the client cannot take more; OnSend then continues.
void Connection::SendMore() {
    for (;;) {
        if (m_pending.empty() && m_file.is_open()) {
            m_pending.resize(kBlock);
            m_file.read(m_pending.data(), static_cast<std::streamsize>(kBlock));
            m_pending.resize(static_cast<std::size_t>(m_file.gcount()));
        }
        if (m_pending.empty()) {
            m_file.close();
            ShutDown(SD_SEND); // the client closes then
            return;
        }
        const int sent = Send(m_pending.data(), static_cast<int>(m_pending.size()));
        if (sent == SOCKET_ERROR) {
            EndUnlessBlocked();
            return;
        }
        m_pending.erase(0, static_cast<std::size_t>(sent));
    }
}

// Closes a connection that can't go on, which ends its worker. 0, for the bytes that were received.
int Connection::EndUnlessBlocked() {
    if (GetLastError() != WSAEWOULDBLOCK)
        Close();
    return 0;
}

Server::Server(const fs::path& folder) : m_folder(folder) {}

Server::~Server() {
    Close(); // no more connections come
}

BOOL Server::OnAccept(int) {
    auto connection = std::make_unique<Connection>(m_folder);
    const std::lock_guard lock(m_lock);
    if (Accept(*connection))
        m_connections.push_back(std::move(connection));
    return TRUE;
}

void Server::FreeFinished() {
    const std::lock_guard lock(m_lock);
    std::erase_if(m_connections, [](const auto& each) { return each->IsFinished() != FALSE; });
}
