// Calls that are forwarded to the platform's socket, and forms with addresses as texts.
#include <quorvel/net/vask_socket.h>

#include "net/socket_address.h"
#include "platform/win32.h"

using quorvel::SocketAddress;
using quorvel::win32::sockaddr;

namespace {

BOOL Succeeds(int result) {
    return result != SOCKET_ERROR;
}

} // namespace

int CVaskSocket::Receive(void* buffer, int length, int flags) {
    return quorvel::win32::recv(m_socket, static_cast<char*>(buffer), length, flags);
}

int CVaskSocket::Send(const void* buffer, int length, int flags) {
    return quorvel::win32::send(m_socket, static_cast<const char*>(buffer), length, flags);
}

BOOL CVaskSocket::ConnectHelper(const sockaddr* address, int length) {
    return Succeeds(quorvel::win32::connect(m_socket, address, length));
}

int CVaskSocket::ReceiveFromHelper(void* buffer, int length, sockaddr* address, int* addressLength,
                                   int flags) {
    return quorvel::win32::recvfrom(m_socket, static_cast<char*>(buffer), length, flags, address,
                                    addressLength);
}

int CVaskSocket::SendToHelper(const void* buffer, int length, const sockaddr* address,
                              int addressLength, int flags) {
    return quorvel::win32::sendto(m_socket, static_cast<const char*>(buffer), length, flags,
                                  address, addressLength);
}

BOOL CVaskSocket::ShutDown(int how) {
    return Succeeds(quorvel::win32::shutdown(m_socket, how));
}

BOOL CVaskSocket::SetSockOpt(int option, const void* value, int length, int level) {
    return Succeeds(quorvel::win32::setsockopt(m_socket, level, option,
                                               static_cast<const char*>(value), length));
}

BOOL CVaskSocket::GetSockOpt(int option, void* value, int* length, int level) {
    return Succeeds(
        quorvel::win32::getsockopt(m_socket, level, option, static_cast<char*>(value), length));
}

BOOL CVaskSocket::IOCtl(LONG command, DWORD* argument) {
    return Succeeds(quorvel::win32::ioctlsocket(m_socket, command, argument));
}

int CVaskSocket::ReceiveFrom(void* buffer, int length, sockaddr* address, int* addressLength,
                             int flags) {
    return ReceiveFromHelper(buffer, length, address, addressLength, flags);
}

int CVaskSocket::ReceiveFromEx(void* buffer, int length, CString& address, UINT& port, int flags) {
    SocketAddress from;
    int addressLength = from.Length();
    const int result = ReceiveFromHelper(buffer, length, from.Get(), &addressLength, flags);
    if (result != SOCKET_ERROR)
        from.GetText(address, port);
    return result;
}

int CVaskSocket::SendTo(const void* buffer, int length, const sockaddr* address, int addressLength,
                        int flags) {
    return SendToHelper(buffer, length, address, addressLength, flags);
}

int CVaskSocket::SendToEx(const void* buffer, int length, const WCHAR* address, UINT port,
                          int flags) {
    const SocketAddress to(address, port);
    if (address == nullptr || !to.IsValid()) {
        ::WSASetLastError(WSAEINVAL);
        return SOCKET_ERROR;
    }
    return SendToHelper(buffer, length, to.Get(), to.Length(), flags);
}

BOOL CVaskSocket::GetPeerName(sockaddr* address, int* length) const {
    return Succeeds(quorvel::win32::getpeername(m_socket, address, length));
}

BOOL CVaskSocket::GetPeerNameEx(CString& address, UINT& port) const {
    SocketAddress peer;
    int length = peer.Length();
    if (!GetPeerName(peer.Get(), &length))
        return FALSE;
    peer.GetText(address, port);
    return TRUE;
}

BOOL CVaskSocket::GetSockName(sockaddr* address, int* length) const {
    return Succeeds(quorvel::win32::getsockname(m_socket, address, length));
}

BOOL CVaskSocket::GetSockNameEx(CString& address, UINT& port) const {
    SocketAddress own;
    int length = own.Length();
    if (!GetSockName(own.Get(), &length))
        return FALSE;
    own.GetText(address, port);
    return TRUE;
}
