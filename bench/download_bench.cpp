// Downloads from a web server on this machine, compared with libcurl with a receive buffer of the
// same size; and what the post of a status costs. Both write what comes to /dev/null: a disk is
// slower than either.
#include <quorvel/net/http_file_socket.h>
#include <quorvel/update/https_update_transport.h>

#include "curl_download.h"
#include "platform/win32.h"
#include "web_server.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

using namespace quorvel::win32;

namespace {

struct Job {
    const char* name;
    std::uintmax_t size;
    int downloads;
};
constexpr Job kLarge = {"1GB", 1 << 30, 1};
constexpr Job kSmall = {"1KB", 1024, 1000};
constexpr Job kSecure = {"100MB", 100'000'000, 1};

double Milliseconds(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// The thread of a host: dispatches statuses until one says that the download is over.
class Host {
public:
    Host() {
        CVaskSocket::Initialize();
        WNDCLASSEXW windowClass = {};
        windowClass.cbSize = sizeof windowClass;
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.lpszClassName = _T("Host");
        RegisterClassExW(&windowClass);
        m_window = CreateWindowExW(0, _T("Host"), nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                   nullptr, nullptr);
        SetTimer(m_window, 1, 100, nullptr); // finds an end whose status a full queue has lost
    }
    Host(const Host&) = delete;
    ~Host() {
        DestroyWindow(m_window);
        CVaskSocket::Deinitialize();
    }

    HWND Window() const { return m_window; }
    void Drain() const {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
    void AwaitEnd(const CVaskSocket& socket) const {
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
            const int status = LOWORD(message.lParam);
            if (message.message == CVaskSocket::STATUS_MESSAGE
                    ? status == CVaskSocket::statusEnded ||
                          (status != CVaskSocket::statusReceived && HIWORD(message.lParam) != 0)
                    : !socket.IsThreadActive())
                return;
        }
    }

private:
    HWND m_window;
};

// Run gives whether every byte came.
class OwnDownload {
public:
    explicit OwnDownload(const char* name) : m_url(_T("http://127.0.0.1/") + CString(name)) {
        m_socket.SetStatusCallbackWnd(m_host.Window());
        m_socket.SetGetHeaderOnly(FALSE);
        m_socket.SetReceiveBufferSize(kDownloadBufferSize);
        m_socket.SetLocalFileName(_T("/dev/null"));
    }
    bool Run(std::uintmax_t size) {
        if (!m_socket.Create() || !m_socket.Connect(m_url, static_cast<UINT>(web_server::Port())))
            return false;
        m_host.AwaitEnd(m_socket);
        m_socket.Close();
        m_host.Drain();
        return m_socket.GetBytesReceived() ==
               size + static_cast<ULONGLONG>(m_socket.GetHeaderConstRef().GetLength());
    }

private:
    const Host m_host;
    const CString m_url;
    CHttpFileSocket m_socket;
};

// Each on a thread of its own, as a socket's is.
class ThreadedCurlDownload {
public:
    explicit ThreadedCurlDownload(const char* name) : m_download(name) {}
    bool Run(std::uintmax_t size) {
        bool complete = false;
        std::thread([&] { complete = m_download.Run(size); }).join();
        return complete;
    }

private:
    CurlDownload m_download;
};

// Over HTTPS, as the checks for updates do it.
class OwnSecureDownload {
public:
    explicit OwnSecureDownload(const char* name) {
        m_request.url.Format(_T("https://localhost:%d/"), web_server::SecurePort());
        m_request.url += CString(name);
        m_request.fileName = _T("/dev/null");
        m_request.bodyLimit = ULONGLONG{1} << 32;
    }
    bool Run(std::uintmax_t size) {
        m_transport.Start(m_request);
        CUpdateTransport::Progress progress;
        while (!(progress = m_transport.GetProgress()).hasEnded)
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        return progress.error == 0 && progress.received == size;
    }

private:
    CUpdateTransport::Request m_request;
    CHttpsUpdateTransport m_transport;
};

class SecureCurlDownload : public CurlDownload {
public:
    explicit SecureCurlDownload(const char* name) : CurlDownload(name, true) {}
};

// The time of one download, of this process alone or by the clock on the wall.
template <class Download>
void Fetch(benchmark::State& state, const Job& job, clockid_t clock) {
    if (web_server::Port() == 0 || web_server::SecurePort() == 0) {
        state.SkipWithError("no web server on this machine: install nginx and openssl");
        return;
    }
    const std::string served = web_server::File(job.name);
    std::ofstream(served).put('x');
    std::filesystem::resize_file(served, job.size);
    Download download(job.name);
    bool complete = download.Run(job.size);
    for (auto _ : state) {
        const double begin = Milliseconds(clock);
        for (int i = 0; i < job.downloads; ++i)
            complete = download.Run(job.size) && complete;
        state.counters["milliseconds"] = (Milliseconds(clock) - begin) / job.downloads;
    }
    if (!complete)
        state.SkipWithError("not downloaded");
}

constexpr auto* FetchOwn = Fetch<OwnDownload>;
constexpr auto* FetchWithCurl = Fetch<CurlDownload>;
constexpr auto* FetchWithCurlOnThread = Fetch<ThreadedCurlDownload>;
constexpr auto* FetchOwnSecure = Fetch<OwnSecureDownload>;
constexpr auto* FetchWithCurlSecure = Fetch<SecureCurlDownload>;

BENCHMARK_CAPTURE(FetchOwn, wall, kLarge, CLOCK_MONOTONIC)
    ->Name("Download/CHttpFileSocket/1GB/clock")
    ->Iterations(1);
BENCHMARK_CAPTURE(FetchOwn, processor, kLarge, CLOCK_PROCESS_CPUTIME_ID)
    ->Name("Download/CHttpFileSocket/1GB/processor")
    ->Iterations(1);
BENCHMARK_CAPTURE(FetchOwn, small, kSmall, CLOCK_MONOTONIC)
    ->Name("Download/CHttpFileSocket/1KB/clock")
    ->Iterations(1);
BENCHMARK_CAPTURE(FetchWithCurl, wall, kLarge, CLOCK_MONOTONIC)
    ->Name("Download/libcurl/1GB/clock")
    ->Iterations(1);
BENCHMARK_CAPTURE(FetchWithCurl, processor, kLarge, CLOCK_PROCESS_CPUTIME_ID)
    ->Name("Download/libcurl/1GB/processor")
    ->Iterations(1);
BENCHMARK_CAPTURE(FetchWithCurl, small, kSmall, CLOCK_MONOTONIC)
    ->Name("Download/libcurl/1KB/clock")
    ->Iterations(1);
BENCHMARK_CAPTURE(FetchWithCurlOnThread, small, kSmall, CLOCK_MONOTONIC)
    ->Name("Download/libcurl on a thread/1KB/clock")
    ->Iterations(1);

BENCHMARK_CAPTURE(FetchOwnSecure, secure, kSecure, CLOCK_MONOTONIC)
    ->Name("SecureDownload/CHttpsUpdateTransport/100MB")
    ->Iterations(1);
BENCHMARK_CAPTURE(FetchWithCurlSecure, secure, kSecure, CLOCK_MONOTONIC)
    ->Name("SecureDownload/libcurl/100MB")
    ->Iterations(1);

// A status posted and taken again, in one thread.
void PostStatus(benchmark::State& state) {
    const Host host;
    CVaskSocket socket;
    socket.SetStatusCallbackWnd(host.Window());
    int posted = 0;
    for (auto _ : state) {
        socket.UpdateStatus(10, 1);
        if (++posted % 1000 == 0)
            host.Drain();
    }
    host.Drain();
}
BENCHMARK(PostStatus);

} // namespace
