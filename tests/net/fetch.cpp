// fetch PORT PATH [FILE]: downloads a path of a web server at 127.0.0.1 into the file, or only its
// header. Prints the statuses of the connection. Used by web_servers_test.py.
#include <quorvel/net/http_file_socket.h>

#include "net/socket_peer.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    if (argc < 3)
        return 2;
    const auto port = static_cast<UINT>(std::atoi(argv[1]));
    CString url;
    url.Format(_T("http://127.0.0.1:%u%s"), port, CString(argv[2]).GetString());
    const InitializedSockets sockets;
    StatusWindow window;
    CHttpFileSocket socket;
    socket.SetStatusCallbackWnd(window.Get());
    socket.SetGetHeaderOnly(argc == 3);
    if (argc > 3)
        socket.SetLocalFileName(CString(argv[3]));
    if (!socket.Create() || !socket.Connect(url, port))
        return 1;
    StatusWindow::PumpUntil([&] { return !socket.IsThreadActive(); });
    StatusWindow::Pump();
    std::printf("%s", window.Of(socket).c_str());
    socket.Close();
    return 0;
}
