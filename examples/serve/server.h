// The server: a listening socket, and one for each client, each with its worker.
#pragma once

#include <quorvel/net/vask_socket.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

// One client's connection: reads its request, answers, and ends. The members are the worker's own.
class Connection : public CVaskSocket {
public:
    explicit Connection(const std::filesystem::path& folder);
    ~Connection() override;

protected:
    int OnReceive(int errorCode) override;
    BOOL OnSend(int errorCode) override;

private:
    void Answer(const std::string& method, const std::string& path);
    void AnswerWith(const char* status, const std::string& fields, const std::string& body);
    void SendMore();
    int EndUnlessBlocked();

    const std::filesystem::path m_folder;
    std::string m_request;
    std::string m_pending; // to be sent; then what is left of the file
    std::ifstream m_file;
    bool m_answered = false;
};

class Server : public CVaskSocket {
public:
    explicit Server(const std::filesystem::path& folder);
    ~Server() override;

    // Frees the connections that have ended. To be called now and then: the connections post no
    // statuses, which a queue that is full with them would lose.
    void FreeFinished();

protected:
    BOOL OnAccept(int errorCode) override;

private:
    const std::filesystem::path m_folder;
    std::mutex m_lock; // guards the connections: the worker adds, the main thread removes
    std::vector<std::unique_ptr<Connection>> m_connections;
};
