// The thread of a socket: finds the host, connects, and calls the socket's On... members for what
// the network reports, until the connection, a member or Close ends it.
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
    // Each gives false when the worker is to end; what it has to report is reported.
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
    HANDLE m_request = nullptr; // while the look-up has not been dealt with
};

} // namespace quorvel
