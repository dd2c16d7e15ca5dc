// https_fetch URL FILE [--head] [--stall MS] [--limit BYTES] [--cancel MS]: one request of the
// HTTPS transport, for https_test.py. Prints the result, one line each: status code, bytes, error,
// "Last-Modified" and text.
#include <quorvel/update/https_update_transport.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace {

typedef std::chrono::steady_clock Clock;

void Await(const CHttpsUpdateTransport& transport, Clock::duration time) {
    const auto end = Clock::now() + time;
    while (!transport.GetProgress().hasEnded && Clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3)
        return 2;
    CUpdateTransport::Request request;
    request.url = CString(argv[1]);
    request.fileName = CString(argv[2]);
    request.bodyLimit = 1 << 30;
    CHttpsUpdateTransport transport;
    int cancelAfter = 0;
    for (int i = 3; i < argc; ++i) {
        const char* const value = i + 1 < argc ? argv[i + 1] : "";
        if (std::strcmp(argv[i], "--head") == 0)
            request.headerOnly = TRUE;
        else if (std::strcmp(argv[i], "--stall") == 0)
            transport.SetTimeOuts(static_cast<DWORD>(std::atoi(value)),
                                  static_cast<DWORD>(std::atoi(argv[++i])));
        else if (std::strcmp(argv[i], "--limit") == 0)
            request.bodyLimit = static_cast<ULONGLONG>(std::atoi(argv[++i]));
        else if (std::strcmp(argv[i], "--cancel") == 0)
            cancelAfter = std::atoi(argv[++i]);
    }
    transport.Start(request);
    if (cancelAfter > 0) {
        Await(transport, std::chrono::milliseconds(cancelAfter));
        const auto begin = Clock::now();
        transport.Cancel();
        const auto took =
            std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin).count();
        std::printf("%d\n", static_cast<int>(took));
        std::fflush(stdout);
        std::_Exit(std::remove(argv[2]) == 0 ? 0 : 1); // the file is not open any more
    }
    Await(transport, std::chrono::seconds(60));
    const auto progress = transport.GetProgress();
    CString date;
    transport.GetHeaderField(_T("last-modified"), date);
    std::printf("%u\n%u\n%u\n%s\n%s\n", progress.statusCode,
                static_cast<unsigned>(progress.received), static_cast<unsigned>(progress.error),
                CStringA(date.GetString()).GetString(),
                CStringA(progress.errorText.GetString()).GetString());
    return progress.hasEnded ? 0 : 1;
}
