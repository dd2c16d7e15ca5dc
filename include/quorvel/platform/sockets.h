// The socket types and constants of public signatures.
//
// They are the system's own: on Windows the SDK's, on Linux those of <sys/socket.h> and related
// headers. Names that exist only in Winsock are constants here. So AF_INET6 and SO_KEEPALIVE have
// the system's numbers, a socket takes an address from getaddrinfo unchanged, and other socket
// headers may come before or after this one. Write the names: the same source then serves both
// systems, although some numbers differ.
//
// Namespace quorvel::win32 also has sockaddr, sockaddr_in, sockaddr_in6, in_addr, addrinfo and
// linger. The layout of linger differs: int here, USHORT on Windows.
#pragma once

#include <quorvel/platform/platform.h>

#if defined(_WIN32)

#include <ws2tcpip.h>

#else

#include <asm/ioctls.h> // FIONBIO and FIONREAD, without the macros of <sys/ioctl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

typedef UINT_PTR SOCKET;
typedef HANDLE WSAEVENT;

namespace quorvel::win32 {
inline namespace constants {

#ifndef INVALID_SOCKET
inline constexpr SOCKET INVALID_SOCKET = ~SOCKET{0};
#endif
#ifndef SOCKET_ERROR
inline constexpr int SOCKET_ERROR = -1;
#endif

inline constexpr int SD_RECEIVE = 0x00;
inline constexpr int SD_SEND = 0x01;
inline constexpr int SD_BOTH = 0x02;

#ifndef FD_READ
inline constexpr int FD_READ = 0x01;
#endif
#ifndef FD_WRITE
inline constexpr int FD_WRITE = 0x02;
#endif
inline constexpr int FD_OOB = 0x04;
inline constexpr int FD_ACCEPT = 0x08;
inline constexpr int FD_CONNECT = 0x10;
inline constexpr int FD_CLOSE = 0x20;

inline constexpr int FD_READ_BIT = 0;
inline constexpr int FD_WRITE_BIT = 1;
inline constexpr int FD_OOB_BIT = 2;
inline constexpr int FD_ACCEPT_BIT = 3;
inline constexpr int FD_CONNECT_BIT = 4;
inline constexpr int FD_CLOSE_BIT = 5;
inline constexpr int FD_MAX_EVENTS = 10;

inline constexpr WSAEVENT WSA_INVALID_EVENT = nullptr;
inline constexpr auto WSA_INFINITE = INFINITE;
inline constexpr auto WSA_WAIT_EVENT_0 = WAIT_OBJECT_0;
inline constexpr auto WSA_WAIT_TIMEOUT = WAIT_TIMEOUT;
inline constexpr auto WSA_WAIT_FAILED = WAIT_FAILED;
inline constexpr UINT WSA_MAXIMUM_WAIT_EVENTS = 64;
inline constexpr int MAXGETHOSTSTRUCT = 1024;

inline constexpr int WSAEINTR = 10004;
inline constexpr int WSAEACCES = 10013;
inline constexpr int WSAEFAULT = 10014;
inline constexpr int WSAEINVAL = 10022;
inline constexpr int WSAEMFILE = 10024;
#ifndef WSAEWOULDBLOCK
inline constexpr int WSAEWOULDBLOCK = 10035;
#endif
inline constexpr int WSAEINPROGRESS = 10036;
inline constexpr int WSAEALREADY = 10037;
inline constexpr int WSAENOTSOCK = 10038;
inline constexpr int WSAEDESTADDRREQ = 10039;
inline constexpr int WSAEMSGSIZE = 10040;
inline constexpr int WSAEPROTOTYPE = 10041;
inline constexpr int WSAENOPROTOOPT = 10042;
inline constexpr int WSAEPROTONOSUPPORT = 10043;
inline constexpr int WSAESOCKTNOSUPPORT = 10044;
inline constexpr int WSAEOPNOTSUPP = 10045;
inline constexpr int WSAEAFNOSUPPORT = 10047;
inline constexpr int WSAEADDRINUSE = 10048;
inline constexpr int WSAEADDRNOTAVAIL = 10049;
inline constexpr int WSAENETDOWN = 10050;
inline constexpr int WSAENETUNREACH = 10051;
inline constexpr int WSAENETRESET = 10052;
inline constexpr int WSAECONNABORTED = 10053;
inline constexpr int WSAECONNRESET = 10054;
inline constexpr int WSAENOBUFS = 10055;
inline constexpr int WSAEISCONN = 10056;
inline constexpr int WSAENOTCONN = 10057;
inline constexpr int WSAESHUTDOWN = 10058;
inline constexpr int WSAETIMEDOUT = 10060;
inline constexpr int WSAECONNREFUSED = 10061;
inline constexpr int WSAEHOSTDOWN = 10064;
inline constexpr int WSAEHOSTUNREACH = 10065;
inline constexpr int WSASYSNOTREADY = 10091;
inline constexpr int WSAVERNOTSUPPORTED = 10092;
inline constexpr int WSANOTINITIALISED = 10093;
inline constexpr int WSASYSCALLFAILURE = 10107;
inline constexpr int WSAHOST_NOT_FOUND = 11001;
inline constexpr int WSATRY_AGAIN = 11002;
inline constexpr int WSANO_RECOVERY = 11003;
inline constexpr int WSANO_DATA = 11004;

constexpr WORD WSAGETASYNCBUFLEN(LPARAM lParam) {
    return LOWORD(static_cast<DWORD_PTR>(lParam));
}
constexpr WORD WSAGETASYNCERROR(LPARAM lParam) {
    return HIWORD(static_cast<DWORD_PTR>(lParam));
}

} // namespace constants
} // namespace quorvel::win32

#endif

namespace quorvel::win32 {
using ::addrinfo;
using ::in_addr;
using ::linger;
using ::sockaddr;
using ::sockaddr_in;
using ::sockaddr_in6;
} // namespace quorvel::win32
