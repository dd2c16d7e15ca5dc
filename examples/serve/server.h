// The server: a listening socket, and one for each client, each with its worker.
#pragma once

#include <quorvel/net/vask_socket.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <mutex>
#include <string>

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
    // Statuses of the connections go to the window, whose thread passes them to OnStatus.
    Server(const std::filesystem::path& folder, HWND window);
    ~Server() override;

    // Lets go of the connections that have ended.
    void OnStatus(CVaskSocket* socket, int status);

protected:
    BOOL OnAccept(int errorCode) override;

private:
    const std::filesystem::path m_folder;
    const HWND m_window;
    std::mutex m_lock; // guards the connections: the worker adds, the window's thread removes
    std::map<CVaskSocket*, std::unique_ptr<Connection>> m_connections;
};
