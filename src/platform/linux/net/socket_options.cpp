#include "platform/linux/net/posix_sockets.h"

#include "platform/linux/net/socket.h"

#include "platform/linux/net/socket_calls.h"
#include "platform/linux/net/socket_object.h"

#include <algorithm>
#include <cstring>

namespace quorvel {

namespace {

struct Option {
    int level;
    int option;
};
constexpr Option kOptions[] = {
    {SOL_SOCKET, SO_KEEPALIVE}, {SOL_SOCKET, SO_BROADCAST}, {SOL_SOCKET, SO_SNDBUF},
    {SOL_SOCKET, SO_RCVBUF},    {SOL_SOCKET, SO_TYPE},      {IPPROTO_TCP, TCP_NODELAY},
};

const Option* FindOption(int level, int option) {
    const auto found = std::ranges::find_if(kOptions, [level, option](const Option& each) {
        return each.level == level && each.option == option;
    });
    return found != std::end(kOptions) ? found : nullptr;
}

bool IsBufferSize(const Option& option) {
    return option.level == SOL_SOCKET && (option.option == SO_SNDBUF || option.option == SO_RCVBUF);
}

// These options take a BOOL, with any number of its bytes.
bool IsFlag(int level, int option) {
    return level == IPPROTO_TCP || option == SO_REUSEADDR || option == SO_KEEPALIVE ||
           option == SO_BROADCAST;
}

int GetLinger(Socket& socket, char* value, int* length) {
    if (*length < static_cast<int>(sizeof(linger)))
        return FailCall(WSAEFAULT);
    linger result = {};
    socklen_t size = sizeof result;
    ::getsockopt(socket.Descriptor(), SOL_SOCKET, SO_LINGER, &result, &size);
    std::memcpy(value, &result, sizeof result);
    *length = sizeof result;
    return 0;
}

int SetLinger(Socket& socket, const char* value, int length) {
    if (length < static_cast<int>(sizeof(linger)))
        return FailCall(WSAEFAULT);
    return ::setsockopt(socket.Descriptor(), SOL_SOCKET, SO_LINGER, value, sizeof(linger)) == 0
               ? 0
               : FailCall(SocketError(errno));
}

} // namespace

} // namespace quorvel

namespace quorvel::win32 {

int ioctlsocket(SOCKET handle, LONG command, ULONG* argument) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    if (argument == nullptr)
        return FailCall(WSAEFAULT);
    if (command == FIONBIO)
        return socket->SetNonBlocking(*argument != 0) ? 0 : FailCall(WSAEINVAL);
    if (command != FIONREAD)
        return FailCall(WSAEOPNOTSUPP);
    int bytes = 0;
    if (::ioctl(socket->Descriptor(), FIONREAD, &bytes) != 0)
        return FailCall(SocketError(errno));
    *argument = static_cast<ULONG>(bytes);
    return 0;
}

int getsockopt(SOCKET handle, int level, int option, char* value, int* length) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    if (value == nullptr || length == nullptr)
        return FailCall(WSAEFAULT);
    if (level == SOL_SOCKET && option == SO_LINGER)
        return GetLinger(*socket, value, length);
    int number = 0;
    const Option* const known = FindOption(level, option);
    if (level == SOL_SOCKET && option == SO_ERROR) {
        number = socket->TakeError();
    } else if (level == SOL_SOCKET && option == SO_REUSEADDR) {
        number = socket->SharesAddress();
    } else if (known == nullptr) {
        return FailCall(WSAENOPROTOOPT);
    } else {
        socklen_t size = sizeof number;
        if (::getsockopt(socket->Descriptor(), known->level, known->option, &number, &size) != 0)
            return FailCall(SocketError(errno));
        if (IsBufferSize(*known))
            number /= 2; // the system doubles the size it is given
    }
    if (*length < static_cast<int>(sizeof number))
        return FailCall(WSAEFAULT);
    std::memcpy(value, &number, sizeof number);
    *length = sizeof number;
    return 0;
}

int setsockopt(SOCKET handle, int level, int option, const char* value, int length) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    if (value == nullptr)
        return FailCall(WSAEFAULT);
    if (level == SOL_SOCKET && option == SO_LINGER)
        return SetLinger(*socket, value, length);
    const bool sharesAddress = level == SOL_SOCKET && option == SO_REUSEADDR;
    const Option* const known = FindOption(level, option);
    if (known == nullptr && !sharesAddress)
        return FailCall(WSAENOPROTOOPT);
    int number = 0;
    const int needed = IsFlag(level, option) ? 1 : static_cast<int>(sizeof number);
    if (length < needed)
        return FailCall(WSAEFAULT);
    std::memcpy(&number, value, std::min(static_cast<std::size_t>(length), sizeof number));
    if (sharesAddress)
        return socket->SetSharesAddress(number != 0) ? 0 : FailCall(SocketError(errno));
    return ::setsockopt(socket->Descriptor(), known->level, known->option, &number,
                        sizeof number) == 0
               ? 0
               : FailCall(SocketError(errno));
}

} // namespace quorvel::win32
