// Code that the socket calls share.
#pragma once

#include "platform/linux/net/socket_object.h"

namespace quorvel {

bool IsWinsockStarted();

// The socket, or null with the error set.
std::shared_ptr<Socket> FindSocket(SOCKET handle);

// Sets the error and returns SOCKET_ERROR, for the call to return.
inline int FailCall(int error) {
    win32::SetLastError(static_cast<DWORD>(error));
    return SOCKET_ERROR;
}

} // namespace quorvel
