// https_fetch URL FILE [--head] [--stall MS] [--cancel MS]: one request of the HTTPS transport, for
// https_test.py. Prints the result, one line each: status code, bytes, error, "Last-Modified" and
// text.
#include <quorvel/update/https_update_transport.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

namespace {

using std::chrono::steady_clock, std::chrono::milliseconds;

void Await(const CHttpsUpdateTransport& transport, milliseconds time) {
    const auto end = steady_clock::now() + time;
    while (!transport.GetProgress().hasEnded && steady_clock::now() < end)
        std::this_thread::sleep_for(milliseconds(5));
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3)
        return 2;
    CUpdateTransport::Request request;
    request.url = CString(argv[1]);
    request.fileName = CString(argv[2]);
    request.bodyLimit = 1 << 30;
    const std::string option = argc > 3 ? argv[3] : "";
    const int time = argc > 4 ? std::atoi(argv[4]) : 0;
    request.headerOnly = option == "--head";
    CHttpsUpdateTransport transport;
    if (option == "--stall")
        transport.SetTimeOuts(static_cast<DWORD>(time), static_cast<DWORD>(time));
    transport.Start(request);
    if (option == "--cancel") {
        Await(transport, milliseconds(time));
        const auto begin = steady_clock::now();
        transport.Cancel();
        std::printf("%d\n", static_cast<int>((steady_clock::now() - begin) / milliseconds(1)));
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
