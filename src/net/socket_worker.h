// The thread of a socket. Finds the host, connects, and calls the socket's On... members for
// network events, until the connection ends, a member stops it or Close is called.
#pragma once

#include <quorvel/net/vask_socket.h>

#include "platform/scoped_handle.h"
#include "platform/win32.h"

namespace quorvel {

class SocketWorker {
public:
    explicit SocketWorker(const CVaskSocketThreadParams& params);
    SocketWorker(const SocketWorker&) = delete;
    ~SocketWorker();

    void Run();

private:
    // Each returns false when the worker must end; it has then reported everything.
    bool Begin();
    bool BeginLookup();
    bool FinishLookup();
    bool ConnectToHost(const CString& address);
    bool Connect(const win32::sockaddr* address, int length);
    bool WaitForEvent(WSAEVENT& signalled);
    bool Deliver(WSAEVENT signalled);
    bool DeliverConnect(int error);
    bool DeliverReceive(int error);
    bool DeliverOutOfBandData(int error);
    bool DeliverClose(int error);
    bool DeliverSend(int error);
    bool DeliverAccept(int error);

    bool EndWith(int status, int error) const;
    void ForgetRequest();

    CVaskSocket& m_socket;
    const CVaskSocketThreadParams m_params;
    const bool m_looksUp;
    ScopedHandle m_lookupEvent;
    HANDLE m_request = nullptr; // set until the look-up's result has been handled
};

} // namespace quorvel
