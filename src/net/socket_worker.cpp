#include "net/socket_worker.h"

#include "net/socket_address.h"

#include <utility>

namespace quorvel {

SocketWorker::SocketWorker(const CVaskSocketThreadParams& params)
    : m_socket(*params.GetSocket()), m_params(params),
      m_looksUp(params.GetHostByName() && !AfxIsValidIPAddress(params.GetHostAddress())) {
    m_socket.m_workerId = ::GetCurrentThreadId();
}

SocketWorker::~SocketWorker() {
    ForgetRequest(); // before the event is closed, because the window sets it
    m_socket.m_workerId = 0;
}

void SocketWorker::ForgetRequest() {
    if (m_request != nullptr)
        CVaskSocket::m_wndSocket.RemoveGetHostRequest(std::exchange(m_request, nullptr));
}

bool SocketWorker::EndWith(int status, int error) const {
    m_socket.UpdateStatus(status, error);
    return false;
}

void SocketWorker::Run() {
    if (!Begin())
        return;
    WSAEVENT signalled;
    while (WaitForEvent(signalled) && Deliver(signalled)) {
    }
}

bool SocketWorker::Begin() {
    if (m_looksUp)
        return BeginLookup();
    if (!m_params.DoesConnect())
        return true;
    return m_params.GetHostByName() ? ConnectToHost(m_params.GetHostAddress())
                                    : Connect(m_params.GetSockAddr(), m_params.GetSockAddrLen());
}

bool SocketWorker::BeginLookup() {
    m_socket.UpdateStatus(CVaskSocket::statusLookingUp, 0);
    m_lookupEvent = ScopedHandle(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (!m_lookupEvent.IsValid())
        return EndWith(CVaskSocket::statusLookedUp, static_cast<int>(::GetLastError()));
    CVaskSocketWnd& sink = CVaskSocket::m_wndSocket;
    if (!::IsWindow(sink.m_hWnd))
        return EndWith(CVaskSocket::statusLookedUp, WSAEINVAL);
    const int error = sink.AsyncGetHostByName(m_params.GetHostAddress(), m_lookupEvent.Get(),
                                              m_socket.GetGetHostTimeOut(), m_request);
    return error == 0 || EndWith(CVaskSocket::statusLookedUp, error);
}

bool SocketWorker::FinishLookup() {
    CVaskSocketWnd& sink = CVaskSocket::m_wndSocket;
    if (const int error = sink.GetLastError(m_request))
        return EndWith(CVaskSocket::statusLookedUp, error);
    CString address;
    if (!sink.GetIPAddress(m_request, address))
        return EndWith(CVaskSocket::statusLookedUp, 0);
    m_socket.SetHostServerIP(address);
    m_socket.UpdateStatus(CVaskSocket::statusLookedUp, 0);
    ForgetRequest();
    return !m_params.DoesConnect() || ConnectToHost(address);
}

bool SocketWorker::ConnectToHost(const CString& address) {
    m_socket.SetHostServerIP(address);
    const SocketAddress host(address, m_socket.GetHostPort());
    return Connect(host.Get(), host.Length());
}

bool SocketWorker::Connect(const win32::sockaddr* address, int length) {
    if (!m_socket.ConnectHelper(address, length)) {
        const int error = ::WSAGetLastError();
        if (error != WSAEWOULDBLOCK)
            return EndWith(CVaskSocket::statusConnecting, error);
    }
    m_socket.UpdateStatus(CVaskSocket::statusConnecting, 0);
    return true;
}

// Returns the event to enumerate and reset. The network event is the last one, so that a finished
// look-up is handled first.
bool SocketWorker::WaitForEvent(WSAEVENT& signalled) {
    const WSAEVENT two[] = {m_socket.m_cancelThreadEvent, m_socket.m_networkEvent};
    const WSAEVENT three[] = {m_socket.m_cancelThreadEvent, m_lookupEvent.Get(),
                              m_socket.m_networkEvent};
    const WSAEVENT* const events = m_looksUp ? three : two;
    const DWORD count = m_looksUp ? 3 : 2;
    const DWORD result = ::WSAWaitForMultipleEvents(count, events, FALSE, WSA_INFINITE, FALSE);
    if (result == WSA_WAIT_TIMEOUT)
        return EndWith(m_socket.GetStatus(), WSAETIMEDOUT);
    if (result == WSA_WAIT_FAILED || result - WSA_WAIT_EVENT_0 >= count)
        return EndWith(m_socket.GetStatus(), static_cast<int>(::GetLastError()));
    const DWORD index = result - WSA_WAIT_EVENT_0;
    if (index == 0) {
        if (m_request != nullptr)
            CVaskSocket::m_wndSocket.CancelAsyncRequest(m_request, TRUE);
        return !m_socket.m_closedByWorker && EndWith(m_socket.GetStatus(), WSAECONNABORTED);
    }
    signalled = events[index];
    return !m_looksUp || index != 1 || FinishLookup();
}

bool SocketWorker::DeliverConnect(int error) {
    m_socket.UpdateStatus(CVaskSocket::statusConnected, error);
    return m_socket.OnConnect(error);
}

bool SocketWorker::DeliverReceive(int error) {
    m_socket.UpdateStatus(CVaskSocket::statusReceiving, error);
    const int received = m_socket.OnReceive(error);
    if (received == SOCKET_ERROR)
        return false;
    if (!m_socket.m_closedByWorker)
        m_socket.UpdateStatus(CVaskSocket::statusReceived, received);
    return true;
}

bool SocketWorker::DeliverOutOfBandData(int error) {
    m_socket.UpdateStatus(CVaskSocket::statusOutOfBand, error);
    return m_socket.OnOutOfBandData(error);
}

bool SocketWorker::DeliverClose(int error) {
    if (!m_socket.OnClose(error) || m_socket.m_closedByWorker)
        return false;
    return EndWith(CVaskSocket::statusEnded, ::WSAGetLastError());
}

bool SocketWorker::DeliverSend(int error) {
    m_socket.UpdateStatus(CVaskSocket::statusSending, error);
    return m_socket.OnSend(error);
}

bool SocketWorker::DeliverAccept(int error) {
    m_socket.UpdateStatus(CVaskSocket::statusAccepting, error);
    return m_socket.OnAccept(error);
}

// The order is fixed: the end of a connection is delivered after its data and stops the loop.
bool SocketWorker::Deliver(WSAEVENT signalled) {
    struct Delivery {
        LONG event;
        int bit;
        bool (SocketWorker::*deliver)(int error);
    };
    static constexpr Delivery kDeliveries[] = {
        {FD_CONNECT, FD_CONNECT_BIT, &SocketWorker::DeliverConnect},
        {FD_READ, FD_READ_BIT, &SocketWorker::DeliverReceive},
        {FD_OOB, FD_OOB_BIT, &SocketWorker::DeliverOutOfBandData},
        {FD_CLOSE, FD_CLOSE_BIT, &SocketWorker::DeliverClose},
        {FD_WRITE, FD_WRITE_BIT, &SocketWorker::DeliverSend},
        {FD_ACCEPT, FD_ACCEPT_BIT, &SocketWorker::DeliverAccept},
    };
    WSANETWORKEVENTS events = {};
    if (::WSAEnumNetworkEvents(m_socket.GetHandle(), signalled, &events) == SOCKET_ERROR)
        return EndWith(m_socket.GetStatus(), ::WSAGetLastError());
    for (const Delivery& each : kDeliveries)
        if ((events.lNetworkEvents & each.event) != 0 &&
            (!(this->*each.deliver)(events.iErrorCode[each.bit]) || m_socket.m_closedByWorker))
            return false;
    return true;
}

} // namespace quorvel
