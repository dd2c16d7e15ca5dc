#include "web_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

namespace fs = std::filesystem;

namespace {

sockaddr_in Loopback(int port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
}

int FreePort() {
    const int descriptor = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = Loopback(0);
    socklen_t length = sizeof address;
    auto* const plain = reinterpret_cast<sockaddr*>(&address);
    const bool found =
        bind(descriptor, plain, length) == 0 && getsockname(descriptor, plain, &length) == 0;
    close(descriptor);
    return found ? ntohs(address.sin_port) : 0;
}

bool Answers(int port) {
    const int descriptor = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = Loopback(port);
    const bool answers =
        connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(descriptor);
    return answers;
}

class Server {
public:
    Server()
        : m_folder(fs::temp_directory_path() /
                   ("bench-web-" + std::to_string(std::random_device()()))),
          m_port(FreePort()), m_securePort(FreePort()) {
        fs::create_directories(m_folder / "files");
        const std::string folder = m_folder.string();
        const std::string makeCertificate =
            "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -days 2 "
            "-subj /CN=localhost -addext subjectAltName=DNS:localhost -keyout " +
            folder + "/key -out " + folder + "/certificate 2>" + folder + "/openssl.log";
        if (std::system(makeCertificate.c_str()) != 0)
            m_securePort = 0;
        setenv("SSL_CERT_FILE", CertificateFile().c_str(), 1);
        // The workers of a server that root starts are other users otherwise.
        std::ofstream(m_folder / "conf")
            << (geteuid() == 0 ? "user root;\n" : "")
            << "daemon off;\nworker_processes 1;\npid pid;\nerror_log error.log;\nevents {}\n"
               "http {\n access_log off;\n sendfile on;\n client_body_temp_path t;\n"
               " proxy_temp_path t;\n fastcgi_temp_path t;\n uwsgi_temp_path t;\n"
               " scgi_temp_path t;\n"
               " server {\n  listen 127.0.0.1:"
            << m_port << ";\n"
            << (m_securePort != 0 ? "  listen 127.0.0.1:" + std::to_string(m_securePort) +
                                        " ssl;\n  ssl_certificate certificate;\n"
                                        "  ssl_certificate_key key;\n"
                                  : "")
            << "  root files;\n }\n}\n";
        m_process = fork();
        if (m_process == 0)
            Become();
        Await();
    }
    Server(const Server&) = delete;
    ~Server() {
        if (m_process > 0) {
            kill(m_process, SIGTERM);
            waitpid(m_process, nullptr, 0);
        }
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }
    int Port() const { return m_port; }
    int SecurePort() const { return m_port != 0 ? m_securePort : 0; }
    std::string CertificateFile() const { return (m_folder / "certificate").string(); }
    const fs::path& Folder() const { return m_folder; }

private:
    [[noreturn]] void Become() const {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        const std::string folder = m_folder.string() + '/';
        for (const char* program : {"nginx", "/usr/sbin/nginx"}) // that folder is not in every PATH
            execlp(program, program, "-p", folder.c_str(), "-e", "error.log", "-c", "conf",
                   static_cast<char*>(nullptr));
        _exit(1);
    }
    void Await() {
        for (int i = 0; i < 500 && m_process > 0; ++i) {
            if (waitpid(m_process, nullptr, WNOHANG) != 0)
                m_process = -1;
            else if (Answers(m_port))
                return;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        m_port = 0;
    }

    const fs::path m_folder;
    int m_port, m_securePort;
    pid_t m_process;
};

const Server& Running() {
    static const Server s_server;
    return s_server;
}

} // namespace

int web_server::Port() {
    return Running().Port();
}

int web_server::SecurePort() {
    return Running().SecurePort();
}

std::string web_server::CertificateFile() {
    return Running().CertificateFile();
}

std::string web_server::File(const std::string& name) {
    return (Running().Folder() / "files" / name).string();
}
