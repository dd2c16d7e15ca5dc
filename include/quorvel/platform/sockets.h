// The socket types and constants of public signatures, on both systems, in quorvel::win32.
//
// On Windows these are the SDK's. On Linux they have its names, widths and values: sockaddr_in and
// sockaddr lie in memory as POSIX has them, but AF_INET6 is 23, options and commands have other
// numbers, and addrinfo another order. So a Linux source includes this or the system's socket
// headers, and not both.
#pragma once

#include <quorvel/platform/platform.h>

#if defined(_WIN32)

#include <ws2tcpip.h>

namespace quorvel::win32 {
using ::addrinfo;
using ::sockaddr;
} // namespace quorvel::win32

#else

#define INVALID_SOCKET (static_cast<SOCKET>(~UINT_PTR{0}))
#define SOCKET_ERROR (-1)
#define AF_UNSPEC 0
#define AF_INET 2
#define AF_INET6 23
#define SOCK_STREAM 1
#define SOCK_DGRAM 2
#define IPPROTO_TCP 6
#define IPPROTO_UDP 17
#define INADDR_ANY 0x00000000u
#define INADDR_LOOPBACK 0x7f000001u
#define INADDR_NONE 0xffffffffu
#define MSG_OOB 0x1
#define MSG_PEEK 0x2
#define SD_RECEIVE 0x00
#define SD_SEND 0x01
#define SD_BOTH 0x02
#define SOMAXCONN 0x7fffffff
#define FIONREAD 0x4004667f
#define FIONBIO (static_cast<LONG>(0x8004667e))
#define SOL_SOCKET 0xffff
#define SO_REUSEADDR 0x0004
#define SO_KEEPALIVE 0x0008
#define SO_BROADCAST 0x0020
#define SO_LINGER 0x0080
#define SO_SNDBUF 0x1001
#define SO_RCVBUF 0x1002
#define SO_ERROR 0x1007
#define SO_TYPE 0x1008
#define TCP_NODELAY 0x0001

#define FD_READ 0x01
#define FD_WRITE 0x02
#define FD_OOB 0x04
#define FD_ACCEPT 0x08
#define FD_CONNECT 0x10
#define FD_CLOSE 0x20
#define FD_READ_BIT 0
#define FD_WRITE_BIT 1
#define FD_OOB_BIT 2
#define FD_ACCEPT_BIT 3
#define FD_CONNECT_BIT 4
#define FD_CLOSE_BIT 5
#define FD_MAX_EVENTS 10

#define WSA_INVALID_EVENT (static_cast<WSAEVENT>(nullptr))
#define WSA_INFINITE INFINITE
#define WSA_WAIT_EVENT_0 WAIT_OBJECT_0
#define WSA_WAIT_TIMEOUT WAIT_TIMEOUT
#define WSA_WAIT_FAILED WAIT_FAILED
#define WSA_MAXIMUM_WAIT_EVENTS 64u
#define WSAGETASYNCBUFLEN(lParam) LOWORD(lParam)
#define WSAGETASYNCERROR(lParam) HIWORD(lParam)
#define MAXGETHOSTSTRUCT 1024

#define WSAEINTR 10004
#define WSAEACCES 10013
#define WSAEFAULT 10014
#define WSAEINVAL 10022
#define WSAEMFILE 10024
#define WSAEWOULDBLOCK 10035
#define WSAEINPROGRESS 10036
#define WSAEALREADY 10037
#define WSAENOTSOCK 10038
#define WSAEDESTADDRREQ 10039
#define WSAEMSGSIZE 10040
#define WSAEPROTOTYPE 10041
#define WSAENOPROTOOPT 10042
#define WSAEPROTONOSUPPORT 10043
#define WSAESOCKTNOSUPPORT 10044
#define WSAEOPNOTSUPP 10045
#define WSAEAFNOSUPPORT 10047
#define WSAEADDRINUSE 10048
#define WSAEADDRNOTAVAIL 10049
#define WSAENETDOWN 10050
#define WSAENETUNREACH 10051
#define WSAENETRESET 10052
#define WSAECONNABORTED 10053
#define WSAECONNRESET 10054
#define WSAENOBUFS 10055
#define WSAEISCONN 10056
#define WSAENOTCONN 10057
#define WSAESHUTDOWN 10058
#define WSAETIMEDOUT 10060
#define WSAECONNREFUSED 10061
#define WSAEHOSTDOWN 10064
#define WSAEHOSTUNREACH 10065
#define WSASYSNOTREADY 10091
#define WSAVERNOTSUPPORTED 10092
#define WSANOTINITIALISED 10093
#define WSASYSCALLFAILURE 10107
#define WSAHOST_NOT_FOUND 11001
#define WSATRY_AGAIN 11002
#define WSANO_RECOVERY 11003
#define WSANO_DATA 11004

typedef UINT_PTR SOCKET;
typedef HANDLE WSAEVENT;

namespace quorvel::win32 {

struct sockaddr {
    USHORT sa_family;
    char sa_data[14];
};
struct in_addr {
    ULONG s_addr; // in network order, as all numbers of addresses
};
struct sockaddr_in {
    SHORT sin_family;
    USHORT sin_port;
    in_addr sin_addr;
    char sin_zero[8];
};
struct addrinfo {
    int ai_flags;
    int ai_family;
    int ai_socktype;
    int ai_protocol;
    SIZE_T ai_addrlen;
    char* ai_canonname;
    sockaddr* ai_addr;
    addrinfo* ai_next;
};

} // namespace quorvel::win32

#endif
