// Winsock 2 on the system's sockets. Any thread.
//
// Descriptors never block. A call on a socket in blocking mode waits for its descriptor; it fails
// with 10004 when the socket is closed meanwhile. Families are AF_INET and AF_INET6. A failed call
// sets the last error, as on Windows. Addresses, options and their numbers are the system's.
//
// POSIX declares functions of these names in the global namespace. So calls are written with
// quorvel::win32 on both systems: an unqualified or global name may mean the system's function.
#pragma once

#include <quorvel/platform/sockets.h>

namespace quorvel::win32 {

struct WSADATA {
    WORD wVersion;
    WORD wHighVersion;
    USHORT iMaxSockets;
    USHORT iMaxUdpDg;
    char* lpVendorInfo;
    char szDescription[257];
    char szSystemStatus[129];
};
struct WSANETWORKEVENTS {
    LONG lNetworkEvents;
    int iErrorCode[FD_MAX_EVENTS];
};

// Accepts versions 1.0 to 2.2; a later version gives 2.2.
int WSAStartup(WORD version, WSADATA* data);
int WSACleanup(); // open sockets stay

SOCKET socket(int family, int type, int protocol);
int closesocket(SOCKET socket);
int bind(SOCKET socket, const sockaddr* address, int length);
int listen(SOCKET socket, int backlog);
// The accepted socket inherits the listener's event and mask.
SOCKET accept(SOCKET socket, sockaddr* address, int* length);
int connect(SOCKET socket, const sockaddr* address, int length);
// The flags MSG_OOB and MSG_PEEK are supported.
int recv(SOCKET socket, char* buffer, int length, int flags);
int recvfrom(SOCKET socket, char* buffer, int length, int flags, sockaddr* address,
             int* addressLength);
int send(SOCKET socket, const char* buffer, int length, int flags);
int sendto(SOCKET socket, const char* buffer, int length, int flags, const sockaddr* address,
           int addressLength);
int shutdown(SOCKET socket, int how);
int ioctlsocket(SOCKET socket, LONG command, ULONG* argument); // FIONBIO and FIONREAD
// Supports the options in quorvel/platform/sockets.h.
int getsockopt(SOCKET socket, int level, int option, char* value, int* length);
int setsockopt(SOCKET socket, int level, int option, const char* value, int length);
int getsockname(SOCKET socket, sockaddr* address, int* length);
int getpeername(SOCKET socket, sockaddr* address, int* length);

ULONG inet_addr(const char* text);
char* inet_ntoa(in_addr address); // valid until the thread's next call

WSAEVENT WSACreateEvent(); // manual reset, not signalled
BOOL WSACloseEvent(WSAEVENT event);
// Waits for any one event; `all` and `alertable` must be FALSE (10022).
DWORD WSAWaitForMultipleEvents(DWORD count, const WSAEVENT* events, BOOL all, DWORD milliseconds,
                               BOOL alertable);
int WSAEventSelect(SOCKET socket, WSAEVENT event, LONG mask);
int WSAEnumNetworkEvents(SOCKET socket, WSAEVENT event, WSANETWORKEVENTS* events);

// Looks up the host's IPv4 addresses on its own thread, writes a hostent and its data into the
// buffer, and posts the message: wParam is the request, lParam the length and the error. The empty
// name means this host.
HANDLE WSAAsyncGetHostByName(HWND window, UINT message, const char* name, char* buffer, int length);
// After success the buffer is not written and the message is not posted. Fails with 10037 for a
// finished request and with 10022 for an unknown one.
int WSACancelAsyncRequest(HANDLE request);

} // namespace quorvel::win32
