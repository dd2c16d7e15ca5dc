// The system's socket headers, for the sources that stand between them and Winsock. It comes before
// everything else: the names that both have are Winsock's from there on, and the system's numbers
// of them are in quorvel::posix.
#pragma once

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

namespace quorvel::posix {

inline constexpr int kFamily6 = AF_INET6;
inline constexpr unsigned long kBytesToRead = FIONREAD;
inline constexpr int kSocketLevel = SOL_SOCKET;
inline constexpr int kReuseAddress = SO_REUSEADDR;
inline constexpr int kKeepAlive = SO_KEEPALIVE;
inline constexpr int kBroadcast = SO_BROADCAST;
inline constexpr int kLinger = SO_LINGER;
inline constexpr int kSendBuffer = SO_SNDBUF;
inline constexpr int kReceiveBuffer = SO_RCVBUF;
inline constexpr int kError = SO_ERROR;
inline constexpr int kType = SO_TYPE;

} // namespace quorvel::posix

#undef AF_UNSPEC
#undef AF_INET
#undef AF_INET6
#undef SOCK_STREAM
#undef SOCK_DGRAM
#undef IPPROTO_TCP
#undef IPPROTO_UDP
#undef INADDR_ANY
#undef INADDR_LOOPBACK
#undef INADDR_NONE
#undef MSG_OOB
#undef MSG_PEEK
#undef SOMAXCONN
#undef FIONREAD
#undef FIONBIO
#undef SOL_SOCKET
#undef SO_REUSEADDR
#undef SO_KEEPALIVE
#undef SO_BROADCAST
#undef SO_LINGER
#undef SO_SNDBUF
#undef SO_RCVBUF
#undef SO_ERROR
#undef SO_TYPE
#undef TCP_NODELAY
#undef htonl
#undef htons
#undef ntohs

#include <quorvel/platform/sockets.h>

// Those whose numbers are the same.
static_assert(AF_INET == PF_INET && SOCK_STREAM == 1 && SOCK_DGRAM == 2 && IPPROTO_TCP == 6);
static_assert(SD_RECEIVE == SHUT_RD && SD_SEND == SHUT_WR && SD_BOTH == SHUT_RDWR);
