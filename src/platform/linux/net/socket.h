// Winsock 2 over the system's sockets. Any thread.
//
// Descriptors never block; a call on a socket in blocking mode waits for its descriptor, and ends
// with 10004 when the socket is closed meanwhile. Families are AF_INET and AF_INET6. Errors of a
// call are the last error, as on Windows. Addresses, options and their numbers are the system's.
//
// POSIX declares functions of these names in the global namespace. There a call is written with
// quorvel::win32, on both systems: an unqualified or a global one can mean the system's.
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

// Versions 1.0 to 2.2 as asked for; anything later gives 2.2.
int WSAStartup(WORD version, WSADATA* data);
int WSACleanup(); // open sockets stay

SOCKET socket(int family, int type, int protocol);
int closesocket(SOCKET socket);
int bind(SOCKET socket, const sockaddr* address, int length);
int listen(SOCKET socket, int backlog);
// The accepted socket takes the listener's event and mask along.
SOCKET accept(SOCKET socket, sockaddr* address, int* length);
int connect(SOCKET socket, const sockaddr* address, int length);
// Of the flags there are MSG_OOB and MSG_PEEK.
int recv(SOCKET socket, char* buffer, int length, int flags);
int recvfrom(SOCKET socket, char* buffer, int length, int flags, sockaddr* address,
             int* addressLength);
int send(SOCKET socket, const char* buffer, int length, int flags);
int sendto(SOCKET socket, const char* buffer, int length, int flags, const sockaddr* address,
           int addressLength);
int shutdown(SOCKET socket, int how);
int ioctlsocket(SOCKET socket, LONG command, ULONG* argument); // FIONBIO and FIONREAD
// Those options that quorvel/platform/sockets.h names.
int getsockopt(SOCKET socket, int level, int option, char* value, int* length);
int setsockopt(SOCKET socket, int level, int option, const char* value, int length);
int getsockname(SOCKET socket, sockaddr* address, int* length);
int getpeername(SOCKET socket, sockaddr* address, int* length);

ULONG inet_addr(const char* text);
char* inet_ntoa(in_addr address); // good until the thread's next call

WSAEVENT WSACreateEvent(); // manual reset, clear
BOOL WSACloseEvent(WSAEVENT event);
// For any one; `all` and `alertable` are FALSE (10022).
DWORD WSAWaitForMultipleEvents(DWORD count, const WSAEVENT* events, BOOL all, DWORD milliseconds,
                               BOOL alertable);
int WSAEventSelect(SOCKET socket, WSAEVENT event, LONG mask);
int WSAEnumNetworkEvents(SOCKET socket, WSAEVENT event, WSANETWORKEVENTS* events);

// Looks the host's IPv4 addresses up on a thread of its own, writes a hostent and what it refers to
// into the buffer, and posts the message: wParam the request, lParam the length and the error. The
// empty name stands for this host.
HANDLE WSAAsyncGetHostByName(HWND window, UINT message, const char* name, char* buffer, int length);
// After success neither the buffer is written nor the message posted. 10037 for a request that has
// finished, 10022 for one that never was.
int WSACancelAsyncRequest(HANDLE request);

} // namespace quorvel::win32
