#include <quorvel/net/vask_socket.h>

#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/inet.h>
#include <quorvel/framework/win_thread.h>
#include <quorvel/util/text/validation.h>

#include "net/request_word.h"
#include "net/socket_address.h"
#include "net/socket_worker.h"
#include "platform/win32.h"

#include <memory>
#include <new>
#include <utility>

using quorvel::win32::addrinfo;
using quorvel::win32::sockaddr;

BOOL CVaskSocket::m_bInitialized = FALSE;
CVaskSocketWnd CVaskSocket::m_wndSocket;

namespace {

constexpr int kNotInitialized = 1; // not a Winsock error; hosts know it

BOOL Fail(int error) {
    ::WSASetLastError(error);
    return FALSE;
}

BOOL Succeeds(int result) {
    return result != SOCKET_ERROR;
}

// Restores the Winsock error at the end of a block that cleans up.
class KeepError {
public:
    KeepError() : m_error(::WSAGetLastError()) {}
    KeepError(const KeepError&) = delete;
    ~KeepError() { ::WSASetLastError(m_error); }

private:
    const int m_error;
};

} // namespace

CVaskSocketThreadParams::CVaskSocketThreadParams(const WCHAR* hostAddress, BOOL connect,
                                                 CVaskSocket* socket)
    : m_getHostByName(TRUE), m_connect(connect), m_hostAddress(hostAddress), m_socket(socket) {}

CVaskSocketThreadParams::CVaskSocketThreadParams(const sockaddr* address, int length,
                                                 CVaskSocket* socket)
    : m_address(address), m_addressLength(length), m_socket(socket) {}

CVaskSocketThreadParams::CVaskSocketThreadParams(CVaskSocket* socket)
    : m_connect(FALSE), m_socket(socket) {}

CVaskSocket::CVaskSocket() = default;

CVaskSocket::~CVaskSocket() {
    CVaskSocket::Close();
}

// Creating and attaching sockets.

BOOL CVaskSocket::CreateNetworkEvent() {
    if (!m_bInitialized)
        return Fail(kNotInitialized);
    if (m_networkEvent != nullptr)
        return Fail(WSAEISCONN);
    m_networkEvent = ::WSACreateEvent();
    return m_networkEvent != WSA_INVALID_EVENT;
}

BOOL CVaskSocket::SelectEvents(LONG events) {
    return CreateNetworkEvent() && Succeeds(::WSAEventSelect(m_socket, m_networkEvent, events));
}

BOOL CVaskSocket::OpenSocket(int family, int type, int protocol, LONG events) {
    if (m_socket != INVALID_SOCKET)
        return Fail(WSAEISCONN);
    m_socket = quorvel::win32::socket(family, type, protocol);
    if (m_socket == INVALID_SOCKET)
        return FALSE;
    const bool hadEvent = m_networkEvent != nullptr;
    if (SelectEvents(events))
        return TRUE;
    const KeepError keep;
    CloseSocket();
    if (!hadEvent)
        CloseEvents();
    return FALSE;
}

BOOL CVaskSocket::Create(UINT port, int type, LONG events, const WCHAR* address) {
    if (!m_bInitialized)
        return Fail(kNotInitialized);
    if (!OpenSocket(AF_INET, type, 0, events))
        return FALSE;
    if (Bind(port, address))
        return TRUE;
    const KeepError keep;
    Close();
    return FALSE;
}

BOOL CVaskSocket::CreateEx(const addrinfo* info, LONG events) {
    if (!m_bInitialized)
        return Fail(kNotInitialized);
    if (info == nullptr)
        return Fail(WSAEINVAL);
    return OpenSocket(info->ai_family, info->ai_socktype, info->ai_protocol, events);
}

BOOL CVaskSocket::Attach(SOCKET socket, LONG events) {
    if (!m_bInitialized)
        return Fail(kNotInitialized);
    if (m_socket != INVALID_SOCKET || m_networkEvent != nullptr || IsThreadActive())
        return Fail(WSAEISCONN);
    if (socket == INVALID_SOCKET)
        return Fail(WSAENOTSOCK);
    m_socket = socket;
    if (SelectEvents(events))
        return TRUE;
    const KeepError keep;
    m_socket = INVALID_SOCKET;
    CloseEvents();
    return FALSE;
}

SOCKET CVaskSocket::Detach() {
    if (IsThreadActive()) {
        Fail(WSAEOPNOTSUPP);
        return INVALID_SOCKET;
    }
    if (m_networkEvent != nullptr)
        ::WSACloseEvent(std::exchange(m_networkEvent, nullptr));
    return m_socket.exchange(INVALID_SOCKET);
}

BOOL CVaskSocket::CreateFromHandle(SOCKET socket, LONG events) {
    if (!Attach(socket, events))
        return FALSE;
    if (StartThread(CVaskSocketThreadParams(this)))
        return TRUE;
    const KeepError keep;
    Detach();
    return FALSE;
}

BOOL CVaskSocket::Bind(const sockaddr* address, int length) {
    return Succeeds(quorvel::win32::bind(m_socket, address, length));
}

BOOL CVaskSocket::BindEx(const addrinfo* info) {
    return info != nullptr ? Bind(info->ai_addr, static_cast<int>(info->ai_addrlen))
                           : Fail(WSAEINVAL);
}

BOOL CVaskSocket::Bind(UINT port, const WCHAR* address) {
    const quorvel::SocketAddress bound(address, port);
    return bound.IsValid() ? Bind(bound.Get(), bound.Length()) : Fail(WSAEINVAL);
}

// Connecting, listening, accepting.

BOOL CVaskSocket::SetURL(const WCHAR* url, UINT port) {
    if (url == nullptr || !AfxIsValidPortNumber(static_cast<int>(port)))
        return FALSE;
    const CString given(url);
    if (!quorvel::IsRequestWord(given))
        return FALSE;
    DWORD serviceType;
    CString server;
    CString object;
    WORD portInUrl;
    if (!AfxParseURL(given.Find(_T("://")) >= 0 ? given : _T("http://") + given, serviceType,
                     server, object, portInUrl))
        return FALSE;
    m_hostUrl = given;
    m_hostServer = server;
    SetHostServerIP(CString());
    m_hostObject = object;
    m_hostPort = port;
    return TRUE;
}

BOOL CVaskSocket::Connect(const WCHAR* hostUrl, UINT port) {
    if (!m_bInitialized)
        return Fail(kNotInitialized);
    if (IsThreadActive())
        return Fail(WSAEISCONN);
    if (!SetURL(hostUrl, port))
        return Fail(WSAEINVAL);
    return StartThread(CVaskSocketThreadParams(m_hostServer, TRUE, this));
}

BOOL CVaskSocket::Connect(const sockaddr* address, int length) {
    return m_bInitialized ? StartThread(CVaskSocketThreadParams(address, length, this))
                          : Fail(kNotInitialized);
}

BOOL CVaskSocket::ConnectEx(const addrinfo* info) {
    if (!m_bInitialized)
        return Fail(kNotInitialized);
    return info != nullptr ? Connect(info->ai_addr, static_cast<int>(info->ai_addrlen))
                           : Fail(WSAEINVAL);
}

BOOL CVaskSocket::Listen(int backlog) {
    if (!m_bInitialized)
        return Fail(kNotInitialized);
    const BOOL listens = Succeeds(quorvel::win32::listen(m_socket, backlog));
    UpdateStatus(statusListening, listens ? 0 : ::WSAGetLastError());
    return listens && (IsThreadActive() || StartThread(CVaskSocketThreadParams(this)));
}

BOOL CVaskSocket::Accept(CVaskSocket& connected, sockaddr* address, int* addressLength) {
    if (!m_bInitialized)
        return Fail(kNotInitialized);
    if (connected.IsSocketValid())
        return Fail(WSAEISCONN);
    const SOCKET accepted = quorvel::win32::accept(m_socket, address, addressLength);
    if (accepted == INVALID_SOCKET)
        return FALSE;
    if (connected.CreateFromHandle(accepted, ALL_EVENTS))
        return TRUE;
    const KeepError keep;
    quorvel::win32::closesocket(accepted);
    return FALSE;
}

BOOL CVaskSocket::StartThread(const CVaskSocketThreadParams& params) {
    if (m_cancelThreadEvent != nullptr)
        return Fail(WSAEISCONN);
    m_cancelThreadEvent = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    if (m_cancelThreadEvent == nullptr)
        return FALSE;
    if (LaunchThread(params))
        return TRUE;
    const KeepError keep;
    ::CloseHandle(std::exchange(m_cancelThreadEvent, nullptr));
    return FALSE;
}

BOOL CVaskSocket::LaunchThread(const CVaskSocketThreadParams& params) {
    std::unique_ptr<CVaskSocketThreadParams> owned(new (std::nothrow)
                                                       CVaskSocketThreadParams(params));
    if (owned == nullptr)
        return Fail(ERROR_NOT_ENOUGH_MEMORY);
    std::unique_ptr<CWinThread> thread(AfxBeginThread(Thread_NetworkEvents, owned.get(),
                                                      THREAD_PRIORITY_NORMAL, 0, CREATE_SUSPENDED));
    if (thread == nullptr)
        return FALSE;
    // The thread object closes its own handle, so waiting needs a copy.
    if (!::DuplicateHandle(::GetCurrentProcess(), thread->m_hThread, ::GetCurrentProcess(),
                           &m_workerThread, 0, FALSE, DUPLICATE_SAME_ACCESS)) {
        const KeepError keep;
        m_workerThread = nullptr;
        thread.reset();
        return FALSE;
    }
    m_closedByWorker = false;
    owned.release();
    thread.release()->ResumeThread();
    return TRUE;
}

UINT CVaskSocket::Thread_NetworkEvents(void* params) {
    std::unique_ptr<CVaskSocketThreadParams> owned(static_cast<CVaskSocketThreadParams*>(params));
    CVaskSocket* const socket = owned->GetSocket();
    if (socket == nullptr)
        return 0;
    try {
        const CVaskSocketThreadParams started = *owned;
        owned.reset();
        quorvel::SocketWorker(started).Run();
        return 0;
    } catch (const std::bad_alloc&) {
    } catch (CMemoryException* exception) {
        exception->Delete();
    }
    if (!socket->m_closedByWorker)
        socket->UpdateStatus(statusEnded, ERROR_NOT_ENOUGH_MEMORY);
    return 0;
}

BOOL CVaskSocket::IsThreadActive() const {
    DWORD exitCode = 0;
    return m_workerThread != nullptr && ::GetExitCodeThread(m_workerThread, &exitCode) &&
           exitCode == STILL_ACTIVE;
}

BOOL CVaskSocket::IsFinished() const {
    return m_workerThread != nullptr && !IsThreadActive();
}

bool CVaskSocket::IsOwnWorker() const {
    return m_workerId == ::GetCurrentThreadId();
}

// Closing.

bool CVaskSocket::CloseSocket() {
    const SOCKET socket = m_socket.exchange(INVALID_SOCKET);
    if (socket == INVALID_SOCKET)
        return false;
    quorvel::win32::shutdown(socket, SD_SEND);
    quorvel::win32::closesocket(socket);
    return true;
}

void CVaskSocket::CloseEvents() {
    if (m_cancelThreadEvent != nullptr)
        ::CloseHandle(std::exchange(m_cancelThreadEvent, nullptr));
    if (m_networkEvent != nullptr)
        ::WSACloseEvent(std::exchange(m_networkEvent, nullptr));
}

void CVaskSocket::Close() {
    if (m_cancelThreadEvent != nullptr)
        ::SetEvent(m_cancelThreadEvent);
    const bool held = CloseSocket();
    if (IsOwnWorker()) {
        m_closedByWorker = true; // the worker still uses the events; the next Close closes them
    } else {
        if (m_workerThread != nullptr) {
            ::WaitForSingleObject(m_workerThread, INFINITE);
            ::CloseHandle(std::exchange(m_workerThread, nullptr));
        }
        CloseEvents();
    }
    SetStatus(statusClosed);
    if (held)
        PostCallbackStatusChangeMessage(statusClosed, 0);
}

// Handlers.

BOOL CVaskSocket::OnAccept(int) {
    return TRUE;
}

BOOL CVaskSocket::OnClose(int) {
    return TRUE;
}

BOOL CVaskSocket::OnConnect(int) {
    return TRUE;
}

BOOL CVaskSocket::OnOutOfBandData(int) {
    return TRUE;
}

BOOL CVaskSocket::OnSend(int) {
    return TRUE;
}

int CVaskSocket::OnReceive(int) {
    return TRUE;
}

// Status.

void CVaskSocket::UpdateStatus(int status, int error) {
    m_statusError = error;
    m_status = status;
    PostCallbackStatusChangeMessage(status, error);
}

void CVaskSocket::PostCallbackStatusChangeMessage(int status, int error) {
    const HWND window = m_statusWnd;
    if (window == nullptr)
        return;
    const KeepError keep;
    if (::IsWindow(window))
        ::PostMessageW(window, STATUS_MESSAGE, reinterpret_cast<WPARAM>(this),
                       MAKELPARAM(static_cast<WORD>(status), static_cast<WORD>(error)));
}

int CVaskSocket::GetLastError() {
    return ::WSAGetLastError();
}

CString CVaskSocket::GetHostServerIP() const {
    const std::lock_guard lock(m_lock);
    return m_hostServerIP;
}

void CVaskSocket::SetHostServerIP(const CString& address) {
    const std::lock_guard lock(m_lock);
    m_hostServerIP = address;
}
