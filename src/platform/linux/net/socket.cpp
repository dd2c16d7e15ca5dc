#include "platform/linux/net/posix_sockets.h"

#include "platform/linux/net/socket.h"

#include <quorvel/platform/linux_api.h>

#include "platform/linux/net/socket_calls.h"
#include "platform/linux/net/socket_object.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>

namespace quorvel {

namespace {

std::atomic<int> s_startups = 0;

SOCKET FailSocket(int error) {
    FailCall(error);
    return INVALID_SOCKET;
}

// Returns the result of a system call and sets the error if it failed.
int Checked(int result) {
    return result >= 0 ? result : FailCall(SocketError(errno));
}

// An address to pass to the system.
class NativeAddress {
public:
    NativeAddress(const sockaddr* address, int length) {
        const std::size_t size = static_cast<std::size_t>(std::max(length, 0));
        if (address == nullptr || size < sizeof(sockaddr_in)) {
            m_error = WSAEFAULT;
            return;
        }
        std::memcpy(&m_storage, address, std::min(size, sizeof m_storage));
        if (m_storage.ss_family != AF_INET &&
            (m_storage.ss_family != AF_INET6 || size < sizeof(sockaddr_in6)))
            m_error = WSAEAFNOSUPPORT;
        m_length = static_cast<socklen_t>(std::min(size, sizeof m_storage));
    }

    int Error() const { return m_error; }
    const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&m_storage); }
    socklen_t Length() const { return m_length; }

private:
    sockaddr_storage m_storage = {};
    socklen_t m_length = 0;
    int m_error = 0;
};

// Calls `call` to get an address from the system. The program may pass null. Returns the result of
// the call, or fails with 10014 if the buffer is too small.
template <class Call>
int GetAddress(sockaddr* address, int* length, Call call) {
    sockaddr_storage storage = {};
    socklen_t size = sizeof storage;
    const int result = call(reinterpret_cast<sockaddr*>(&storage), &size);
    if (result < 0 || address == nullptr || length == nullptr)
        return result;
    if (*length < static_cast<int>(size)) {
        errno = EFAULT;
        return FailCall(WSAEFAULT);
    }
    std::memcpy(address, &storage, size);
    *length = static_cast<int>(size);
    return result;
}

// In blocking mode, repeats a call that would block until it succeeds.
template <class Call>
ssize_t Complete(Socket& socket, short conditions, Call call) {
    for (;;) {
        const ssize_t result = call();
        if (result >= 0)
            return result;
        const int error = SocketError(errno);
        if (error == WSAECONNRESET)
            socket.RecordReset();
        if (error != WSAEWOULDBLOCK || socket.IsNonBlocking())
            return FailCall(error);
        if (!socket.WaitFor(conditions))
            return SOCKET_ERROR;
    }
}

// These flags have the system's values; other flags are not passed on.
int NativeFlags(int flags) {
    return flags & (MSG_OOB | MSG_PEEK);
}

// Binds like Winsock: to a port to which no socket is bound, even while closed connections of a
// former socket are in TIME_WAIT.
//
// The system refuses this unless this socket and all others on the port have SO_REUSEADDR. But with
// the option it would let two sockets that do not listen share a port. So a socket has the option
// only when it is harmless: listeners (nobody can share their port) and connections that inherit
// it, and other sockets when they are closed. A bound, open socket lacks it, in every process.
int Bind(Socket& socket, const NativeAddress& address) {
    const auto tryBind = [&] {
        return ::bind(socket.Descriptor(), address.Get(), address.Length()) == 0 ? 0 : errno;
    };
    int error = tryBind();
    if (error == EADDRINUSE && socket.IsStream() && !socket.SharesAddress()) {
        ShareAddress(socket.Descriptor(), true);
        error = tryBind();
        ShareAddress(socket.Descriptor(), false);
    }
    return error != 0 ? SocketError(error) : 0;
}

// The system checks for other sockets on the port again. The option stays, for the connections.
int Listen(Socket& socket, int backlog) {
    const auto tryListen = [&] { return ::listen(socket.Descriptor(), backlog) == 0 ? 0 : errno; };
    int error = tryListen();
    ShareAddress(socket.Descriptor(), true);
    if (error == EADDRINUSE)
        error = tryListen();
    if (error == 0)
        return 0;
    ShareAddress(socket.Descriptor(), socket.SharesAddress());
    return SocketError(error);
}

SOCKET NewSocket(const std::shared_ptr<Socket>& socket) {
    const HANDLE handle = NewHandle(socket);
    return handle != nullptr ? reinterpret_cast<SOCKET>(handle) : FailSocket(WSAENOBUFS);
}

NetworkEvents::Kind KindOf(Socket& socket) {
    return socket.WithEvents([](NetworkEvents& events) { return events.GetKind(); });
}

// The error that prevents a receive or a send; 0 when the system decides.
int ReceiveError(Socket& socket, int length) {
    if (length < 0)
        return WSAEFAULT;
    const Socket::Done done = socket.GetDone();
    if (done.receiveShut)
        return WSAESHUTDOWN;
    return !socket.IsStream() && !done.bound ? WSAEINVAL : 0;
}
int SendError(Socket& socket) {
    if (socket.GetDone().sendShut)
        return WSAESHUTDOWN;
    const NetworkEvents::Kind kind = KindOf(socket);
    return socket.IsStream() && kind != NetworkEvents::Kind::Connected &&
                   kind != NetworkEvents::Kind::Connecting
               ? WSAENOTCONN
               : socket.ResetError();
}

// The steps that all receives share.
template <class Call>
int Receive(Socket& socket, int length, int flags, Call call) {
    if (const int error = ReceiveError(socket, length))
        return FailCall(error);
    const bool urgent = (flags & MSG_OOB) != 0;
    ssize_t result = Complete(socket, urgent ? POLLPRI : POLLIN, call);
    if (result == 0 && socket.ResetError() != 0)
        result = FailCall(socket.ResetError());
    socket.WithEvents(
        [urgent](NetworkEvents& events) { urgent ? events.ReceivedUrgent() : events.Received(); });
    if (result >= 0)
        win32::SetLastError(NO_ERROR); // like Winsock; callers read 0 after an orderly end
    return static_cast<int>(result);
}

// `call` sends the rest after that many bytes. In blocking mode a stream sends everything before
// the call returns; otherwise it sends as much as there is room for.
template <class Call>
int Send(Socket& socket, int length, Call call) {
    if (const int error = length < 0 ? WSAEINVAL : SendError(socket))
        return FailCall(error);
    int sent = 0;
    do {
        const ssize_t result = Complete(socket, POLLOUT, [&] { return call(sent); });
        if (result < 0 && win32::GetLastError() == WSAEWOULDBLOCK)
            socket.WithEvents([](NetworkEvents& events) { events.SendBlocked(); });
        if (result < 0)
            return SOCKET_ERROR;
        if (!socket.IsStream())
            socket.SetDone(&Socket::Done::bound); // the system has bound it
        sent += static_cast<int>(result);
    } while (sent < length && !socket.IsNonBlocking());
    return sent;
}

} // namespace

bool IsWinsockStarted() {
    return s_startups > 0;
}

std::shared_ptr<Socket> FindSocket(SOCKET handle) {
    auto socket = FindHandle<Socket>(reinterpret_cast<HANDLE>(handle));
    if (socket == nullptr)
        FailCall(IsWinsockStarted() ? WSAENOTSOCK : WSANOTINITIALISED);
    return socket;
}

} // namespace quorvel

namespace quorvel::win32 {

int WSAStartup(WORD version, WSADATA* data) {
    if (data == nullptr)
        return WSAEFAULT;
    const int major = LOBYTE(version);
    const int minor = HIBYTE(version);
    *data = {};
    data->wHighVersion = MAKEWORD(2, 2);
    data->wVersion = data->wHighVersion;
    if (major == 0)
        return WSAVERNOTSUPPORTED;
    if (major == 1)
        data->wVersion = MAKEWORD(1, std::min(minor, 1));
    else if (major == 2)
        data->wVersion = MAKEWORD(2, std::min(minor, 2));
    std::strcpy(data->szDescription, "WinSock 2.0");
    std::strcpy(data->szSystemStatus, "Running");
    ++s_startups;
    return 0;
}

int WSACleanup() {
    int startups = s_startups;
    while (startups > 0 && !s_startups.compare_exchange_weak(startups, startups - 1)) {
    }
    return startups > 0 ? 0 : FailCall(WSANOTINITIALISED);
}

SOCKET socket(int family, int type, int protocol) {
    if (!IsWinsockStarted())
        return FailSocket(WSANOTINITIALISED);
    if (family != AF_INET && family != AF_INET6)
        return FailSocket(WSAEAFNOSUPPORT);
    if (type != SOCK_STREAM && type != SOCK_DGRAM)
        return FailSocket(WSAESOCKTNOSUPPORT);
    const int descriptor = ::socket(family, type | SOCK_NONBLOCK | SOCK_CLOEXEC, protocol);
    if (descriptor < 0)
        return FailSocket(SocketError(errno));
    return NewSocket(std::make_shared<Socket>(descriptor, type == SOCK_STREAM));
}

int closesocket(SOCKET handle) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    socket->Close();
    CloseHandle(reinterpret_cast<HANDLE>(handle));
    return 0;
}

int bind(SOCKET handle, const sockaddr* address, int length) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    const NativeAddress native(address, length);
    if (native.Error() != 0)
        return FailCall(native.Error());
    if (const int error = Bind(*socket, native))
        return FailCall(error);
    socket->SetDone(&Socket::Done::bound);
    return 0;
}

int listen(SOCKET handle, int backlog) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    if (!socket->GetDone().bound)
        return FailCall(WSAEINVAL);
    if (const int error = Listen(*socket, backlog))
        return FailCall(error);
    socket->WithEvents(
        [](NetworkEvents& events) { events.SetKind(NetworkEvents::Kind::Listening); });
    return 0;
}

SOCKET accept(SOCKET handle, sockaddr* address, int* length) {
    const std::shared_ptr<Socket> listener = FindSocket(handle);
    if (listener == nullptr)
        return INVALID_SOCKET;
    if (address != nullptr && length != nullptr && *length < static_cast<int>(sizeof(sockaddr_in)))
        return FailSocket(WSAEFAULT);
    const int descriptor = GetAddress(address, length, [&](sockaddr* native, socklen_t* size) {
        const auto call = [&] {
            return ::accept4(listener->Descriptor(), native, size, SOCK_NONBLOCK | SOCK_CLOEXEC);
        };
        return static_cast<int>(Complete(*listener, POLLIN, call));
    });
    listener->WithEvents([](NetworkEvents& events) { events.Accepted(); });
    if (descriptor < 0)
        return INVALID_SOCKET;
    const auto accepted = std::make_shared<Socket>(descriptor, true);
    accepted->WithEvents(
        [](NetworkEvents& events) { events.SetKind(NetworkEvents::Kind::Connected); });
    const SOCKET result = NewSocket(accepted);
    accepted->SelectAs(*listener);
    return result;
}

int connect(SOCKET handle, const sockaddr* address, int length) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    const NativeAddress native(address, length);
    if (native.Error() != 0)
        return FailCall(native.Error());
    // After a finished connection SO_ERROR would report success once.
    const NetworkEvents::Kind kind = KindOf(*socket);
    if (kind == NetworkEvents::Kind::Connected || kind == NetworkEvents::Kind::Listening)
        return FailCall(kind == NetworkEvents::Kind::Connected ? WSAEISCONN : WSAEINVAL);
    if (::connect(socket->Descriptor(), native.Get(), native.Length()) == 0) {
        if (socket->IsStream())
            socket->WithEvents([](NetworkEvents& events) { events.Connected(); });
        else
            socket->SetDone(&Socket::Done::bound);
        return 0;
    }
    if (errno != EINPROGRESS)
        return FailCall(SocketError(errno));
    socket->WithEvents([](NetworkEvents& events) { events.Connect(); });
    if (socket->IsNonBlocking())
        return FailCall(WSAEWOULDBLOCK);
    if (!socket->WaitFor(POLLOUT))
        return SOCKET_ERROR;
    socket->OnPolled(POLLOUT);
    const int error = socket->TakeError();
    return error == 0 ? 0 : FailCall(error);
}

int recvfrom(SOCKET handle, char* buffer, int length, int flags, sockaddr* address,
             int* addressLength) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    iovec part = {buffer, static_cast<std::size_t>(length)};
    bool truncated = false;
    const auto receive = [&](sockaddr* native, socklen_t* size) {
        msghdr message = {};
        message.msg_name = native;
        message.msg_namelen = *size;
        message.msg_iov = &part;
        message.msg_iovlen = 1;
        const ssize_t result = ::recvmsg(socket->Descriptor(), &message, NativeFlags(flags));
        *size = message.msg_namelen;
        truncated = result >= 0 && (message.msg_flags & MSG_TRUNC) != 0;
        return result;
    };
    const int result = Receive(*socket, length, flags, [&]() -> ssize_t {
        if (address == nullptr || addressLength == nullptr) {
            sockaddr_storage ignored;
            socklen_t size = sizeof ignored;
            return receive(reinterpret_cast<sockaddr*>(&ignored), &size);
        }
        return GetAddress(address, addressLength, [&](sockaddr* native, socklen_t* size) {
            return static_cast<int>(receive(native, size));
        });
    });
    return truncated ? FailCall(WSAEMSGSIZE) : result;
}

int recv(SOCKET handle, char* buffer, int length, int flags) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    if (!socket->IsStream())
        return recvfrom(handle, buffer, length, flags, nullptr, nullptr);
    return Receive(*socket, length, flags, [&] {
        return ::recv(socket->Descriptor(), buffer, static_cast<std::size_t>(length),
                      NativeFlags(flags));
    });
}

int sendto(SOCKET handle, const char* buffer, int length, int flags, const sockaddr* address,
           int addressLength) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    if (address == nullptr || socket->IsStream())
        return send(handle, buffer, length, flags);
    const NativeAddress native(address, addressLength);
    if (native.Error() != 0)
        return FailCall(native.Error());
    return Send(*socket, length, [&](int) {
        return ::sendto(socket->Descriptor(), buffer, static_cast<std::size_t>(std::max(length, 0)),
                        NativeFlags(flags) | MSG_NOSIGNAL, native.Get(), native.Length());
    });
}

int send(SOCKET handle, const char* buffer, int length, int flags) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    return Send(*socket, length, [&](int sent) {
        return ::send(socket->Descriptor(), buffer + sent, static_cast<std::size_t>(length - sent),
                      NativeFlags(flags) | MSG_NOSIGNAL);
    });
}

int shutdown(SOCKET handle, int how) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    if (how < SD_RECEIVE || how > SD_BOTH)
        return FailCall(WSAEINVAL);
    const NetworkEvents::Kind kind = KindOf(*socket);
    if (kind != NetworkEvents::Kind::Connected && kind != NetworkEvents::Kind::Datagram)
        return FailCall(WSAENOTCONN);
    // Shutting down the system's receiving side would look like the end of the connection. A
    // datagram socket may have no connection; SendError refuses its sends.
    if (how != SD_RECEIVE && socket->IsStream() && ::shutdown(socket->Descriptor(), SHUT_WR) != 0)
        return FailCall(SocketError(errno));
    if (how != SD_RECEIVE)
        socket->SetDone(&Socket::Done::sendShut);
    if (how != SD_SEND)
        socket->SetDone(&Socket::Done::receiveShut);
    return 0;
}

int getsockname(SOCKET handle, sockaddr* address, int* length) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    if (address == nullptr || length == nullptr)
        return FailCall(WSAEFAULT);
    return GetAddress(address, length, [&](sockaddr* native, socklen_t* size) {
        const int result = Checked(::getsockname(socket->Descriptor(), native, size));
        const bool isBound = reinterpret_cast<const sockaddr_in*>(native)->sin_port != 0;
        return result < 0 || isBound ? result : FailCall(WSAEINVAL);
    });
}

int getpeername(SOCKET handle, sockaddr* address, int* length) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    if (address == nullptr || length == nullptr)
        return FailCall(WSAEFAULT);
    return GetAddress(address, length, [&](sockaddr* native, socklen_t* size) {
        return Checked(::getpeername(socket->Descriptor(), native, size));
    });
}

ULONG inet_addr(const char* text) {
    in_addr address;
    return text != nullptr && ::inet_aton(text, &address) != 0 ? address.s_addr : 0xffffffff;
}

char* inet_ntoa(in_addr address) {
    static thread_local std::array<char, INET_ADDRSTRLEN> t_text;
    ::inet_ntop(AF_INET, &address, t_text.data(), t_text.size());
    return t_text.data();
}

WSAEVENT WSACreateEvent() {
    return CreateEventW(nullptr, TRUE, FALSE, nullptr);
}

BOOL WSACloseEvent(WSAEVENT event) {
    return CloseHandle(event);
}

DWORD WSAWaitForMultipleEvents(DWORD count, const WSAEVENT* events, BOOL all, DWORD milliseconds,
                               BOOL alertable) {
    if (all || alertable || count == 0 || count > WSA_MAXIMUM_WAIT_EVENTS || events == nullptr) {
        FailCall(WSAEINVAL);
        return WSA_WAIT_FAILED;
    }
    return WaitForAny(std::span(events, count), milliseconds);
}

int WSAEventSelect(SOCKET handle, WSAEVENT event, LONG mask) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    if (event == nullptr && mask != 0)
        return FailCall(WSAEINVAL);
    std::shared_ptr<Waitable> waitable;
    if (event != nullptr && (waitable = FindHandle<Waitable>(event)) == nullptr)
        return FailCall(ERROR_INVALID_HANDLE);
    socket->Select(std::move(waitable), mask);
    return 0;
}

int WSAEnumNetworkEvents(SOCKET handle, WSAEVENT event, WSANETWORKEVENTS* events) {
    const std::shared_ptr<Socket> socket = FindSocket(handle);
    if (socket == nullptr)
        return SOCKET_ERROR;
    if (events == nullptr)
        return FailCall(WSAEFAULT);
    std::shared_ptr<Waitable> waitable;
    if (event != nullptr && (waitable = FindHandle<Waitable>(event)) == nullptr)
        return FailCall(WSAEINVAL);
    const NetworkEvents::Report report = socket->Enumerate(waitable.get());
    events->lNetworkEvents = static_cast<LONG>(report.events);
    std::ranges::copy(report.errors, events->iErrorCode);
    SetLastError(NO_ERROR); // like Winsock
    return 0;
}

} // namespace quorvel::win32
