// https_fetch URL FILE [--head] [--stall MS] [--cancel MS]: one request of the HTTPS transport, for
// https_test.py. Prints the result, one line each: status code, bytes, error, "Last-Modified" and
// text.
#include <quorvel/update/https_update_transport.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

namespace {

typedef std::chrono::steady_clock Clock;
typedef std::chrono::milliseconds Milliseconds;

void Await(const CHttpsUpdateTransport& transport, Clock::duration time) {
    const auto end = Clock::now() + time;
    while (!transport.GetProgress().hasEnded && Clock::now() < end)
        std::this_thread::sleep_for(Milliseconds(5));
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3)
        return 2;
    CUpdateTransport::Request request;
    request.url = CString(argv[1]);
    request.fileName = CString(argv[2]);
    request.bodyLimit = 1 << 30;
    const char* const option = argc > 3 ? argv[3] : "";
    const int time = argc > 4 ? std::atoi(argv[4]) : 0;
    request.headerOnly = std::strcmp(option, "--head") == 0;
    CHttpsUpdateTransport transport;
    if (std::strcmp(option, "--stall") == 0)
        transport.SetTimeOuts(static_cast<DWORD>(time), static_cast<DWORD>(time));
    transport.Start(request);
    if (std::strcmp(option, "--cancel") == 0) {
        Await(transport, Milliseconds(time));
        const auto begin = Clock::now();
        transport.Cancel();
        const auto took = std::chrono::duration_cast<Milliseconds>(Clock::now() - begin).count();
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
                CStringA(date).GetString(), CStringA(progress.errorText).GetString());
    return progress.hasEnded ? 0 : 1;
}
