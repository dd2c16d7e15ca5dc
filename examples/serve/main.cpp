// serve: a small server of static files over HTTP. See kUsage.
#include "common/program.h"
#include "server.h"

#include <quorvel/framework/app.h>
#include <quorvel/framework/wnd.h>
#include <quorvel/net/winsock_error_text.h>

#include <cstdio>
#include <filesystem>
#include <string>

using namespace quorvel::win32;
namespace fs = std::filesystem;

namespace {

constexpr char kUsage[] =
    R"(usage: serve [--port N] [--address A] FOLDER

Answers GET and HEAD with the files of a folder, until its standard input ends.

  --port N      from 1 to 65535; any free one without it
  --address A   the dotted address to listen at (127.0.0.1)

The first line of output is the address: http://127.0.0.1:8080/

exit code: 0 done, 1 failed, 2 wrong usage
)";

enum ExitCode { kExitDone = 0, kExitFailed = 1, kExitUsage = 2 };

struct Options {
    UINT port = 0;
    CString address = _T("127.0.0.1");
    CString folder;
};

UINT ReadPort(const CString& text) {
    UINT port = 0;
    for (int i = 0; i < text.GetLength() && port <= 65535; ++i)
        port =
            text[i] >= '0' && text[i] <= '9' ? port * 10 + static_cast<UINT>(text[i] - '0') : 65536;
    if (port == 0 || port > 65535)
        throw Failure{kExitUsage, _T("not a port from 1 to 65535: ") + text};
    return port;
}

Options ReadOptions(const std::vector<CString>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const bool hasValue = i + 1 < arguments.size();
        if (arguments[i] == _T("--port") && hasValue)
            options.port = ReadPort(arguments[++i]);
        else if (arguments[i] == _T("--address") && hasValue)
            options.address = arguments[++i];
        else if (options.folder.IsEmpty() && arguments[i].Left(2) != _T("--"))
            options.folder = arguments[i];
        else
            throw Failure{kExitUsage, _T("not understood: ") + arguments[i]};
    }
    if (options.folder.IsEmpty())
        throw Failure{kExitUsage, _T("a folder is needed (serve --help)")};
    return options;
}

constexpr int kBacklog = 200; // clients that connect at once
constexpr UINT kSweepMilliseconds = 100;

// Has ended connections freed by its timer.
class SweepWnd : public CWnd {
public:
    Server* m_server = nullptr;

protected:
    void OnTimer(UINT) { m_server->FreeFinished(); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(SweepWnd, CWnd)
ON_WM_TIMER()
END_MESSAGE_MAP()

void CreateWindowFor(SweepWnd& wnd) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.lpszClassName = _T("Serve");
    RegisterClassExW(&windowClass);
    if (!wnd.CreateEx(0, _T("Serve"), nullptr, 0, 0, 0, 0, 0, nullptr, nullptr))
        throw Failure{kExitFailed, _T("no window could be made")};
}

UINT WaitForEndOfInput(void* window) {
    while (std::getchar() != EOF) {
    }
    PostMessageW(static_cast<HWND>(window), WM_CLOSE, 0, 0);
    return 0;
}

void Serve(const Options& options) {
    std::error_code error;
    const fs::path folder(std::basic_string<WCHAR>(options.folder.GetString()));
    if (!fs::is_directory(folder, error))
        throw Failure{kExitFailed, options.folder + _T(": not a folder")};
    SweepWnd window;
    CreateWindowFor(window);
    Server server(folder);
    CString address;
    UINT port = 0;
    if (!server.Create(options.port, SOCK_STREAM, CVaskSocket::ALL_EVENTS, options.address) ||
        !server.Listen(kBacklog) || !server.GetSockNameEx(address, port))
        throw Failure{kExitFailed,
                      AfxGetWinsockErrorText(static_cast<DWORD>(CVaskSocket::GetLastError()))};
    window.m_server = &server;
    SetTimer(window.m_hWnd, 1, kSweepMilliseconds, nullptr);
    CString line;
    line.Format(_T("http://%s:%u/"), address.GetString(), port);
    Print(stdout, line);
    std::fflush(stdout);
    AfxBeginThread(WaitForEndOfInput, window.m_hWnd);
    MSG message;
    while (window.m_hWnd != nullptr && GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
}

int Run(const std::vector<CString>& arguments) {
    if (arguments.size() == 1 && arguments[0] == _T("--help")) {
        std::fputs(kUsage, stdout);
        return kExitDone;
    }
    const Options options = ReadOptions(arguments);
    if (!CVaskSocket::Initialize())
        return kExitFailed; // the box has said why
    struct Deinitializer {
        ~Deinitializer() { CVaskSocket::Deinitialize(); }
    } const deinitializer;
    Serve(options);
    return kExitDone;
}

} // namespace

int main(int argc, char** argv) {
    CWinApp app(_T("serve"));
    return RunProgram(_T("serve"), kExitFailed, [&] { return Run(ProgramArguments(argc, argv)); });
}
