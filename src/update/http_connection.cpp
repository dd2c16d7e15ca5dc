#include "update/http_connection.h"

#include <quorvel/net/http_file_socket.h>
#include <quorvel/net/winsock_error_text.h>
#include <quorvel/util/calendar/local_time.h>

#include "platform/win32.h"
#include "update/transport_connection.h"

#include <utility>

namespace quorvel {

namespace {

constexpr const WCHAR* kClassName = _T("QuorvelUpdateStatus");
constexpr UINT_PTR kPollTimer = 1;
constexpr UINT kPollMilliseconds = 500;
constexpr UINT kTransportMilliseconds = 100; // for a transport that does not notify

class Socket : public CHttpFileSocket {
public:
    ~Socket() override { Close(); }

    // If a worker ends without statusEnded, the error of its last status counts.
    DWORD GetEndError() const {
        const auto error = static_cast<DWORD>(GetStatusError());
        if (GetStatus() == statusEnded)
            return error;
        return GetStatus() == statusReceived || error == 0 ? DWORD{WSAECONNABORTED} : error;
    }

protected:
    int OnReceive(int errorCode) override {
        const int received = CHttpFileSocket::OnReceive(errorCode);
        // An event may report data that an earlier call has already received.
        const bool hasNothing =
            received == SOCKET_ERROR && errorCode == 0 && ::WSAGetLastError() == WSAEWOULDBLOCK;
        return hasNothing ? 0 : received;
    }
};

class HttpConnection : public UpdateConnection {
public:
    HttpConnection(HWND window, UINT port) : m_window(window), m_port(port) {
        m_socket.SetStatusCallbackWnd(window);
    }

    const void* GetSender() const override { return static_cast<const CVaskSocket*>(&m_socket); }
    // Without a window nobody could receive the end.
    DWORD Create() override {
        return m_window != nullptr ? ErrorUnless(m_socket.Create()) : DWORD{WSAENOBUFS};
    }
    DWORD Connect(const UpdateRequest& request) override;
    void Close() override { m_socket.Close(); }

    bool HasEnded(DWORD& error) const override {
        error = m_socket.GetEndError();
        return m_socket.IsFinished() != FALSE;
    }
    ULONGLONG GetBytesReceived() const override { return m_socket.GetBytesReceived(); }
    bool IsHeaderParsed() const override { return m_socket.IsHeaderParsed() != FALSE; }
    const CHttpHeader& GetHeader() const override { return m_socket.GetHeaderConstRef(); }
    // Contains the address that this connection has looked up. Needs the scheme: in an object such
    // as "/?u=http://host" the search for a scheme would find the wrong one.
    CString GetResolvedUrl() const override {
        return _T("http://") + m_socket.GetHostServerIP() + m_socket.GetHostObject();
    }

private:
    static DWORD ErrorUnless(BOOL success) {
        return success ? 0 : static_cast<DWORD>(::WSAGetLastError());
    }

    const HWND m_window;
    const UINT m_port;
    Socket m_socket;
};

DWORD HttpConnection::Connect(const UpdateRequest& request) {
    m_socket.SetGetHeaderOnly(request.headerOnly);
    m_socket.SetLocalFileName(request.localFile);
    m_socket.SetReceiveBufferSize(request.receiveBufferSize);
    m_socket.SetGetHostTimeOut(request.hostTimeOut);
    m_socket.SetHeaderLimit(request.headerLimit);
    return ErrorUnless(m_socket.Connect(request.url, m_port));
}

void RegisterStatusClass() {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = ::DefWindowProcW;
    windowClass.lpszClassName = kClassName;
    ::RegisterClassExW(&windowClass); // fails harmlessly if it exists
}

} // namespace

class HttpSource::StatusWindow : public CWnd {
public:
    StatusWindow() {
        RegisterStatusClass();
        if (CreateEx(0, kClassName, _T(""), 0, 0, 0, 0, 0, nullptr, nullptr))
            SetPollInterval(kPollMilliseconds);
    }
    ~StatusWindow() override { DestroyWindow(); }

    void SetPollInterval(UINT milliseconds) {
        ::SetTimer(m_hWnd, kPollTimer, milliseconds, nullptr);
    }

    UpdateFlow* m_flow = nullptr;
    Holder m_holder;
    TransportConnection* m_current = nullptr; // null without a request

protected:
    LRESULT OnStatus(WPARAM socket, LPARAM status) {
        const auto hold = Hold();
        if (m_flow != nullptr)
            m_flow->OnSocketStatus(reinterpret_cast<const void*>(socket), LOWORD(status),
                                   HIWORD(status));
        return 0;
    }
    // A call to the check may end the connection, show a box, and start the next one.
    LRESULT OnTransportChanged(WPARAM, LPARAM) {
        const auto hold = Hold();
        int status = 0;
        DWORD error = 0;
        if (m_current != nullptr)
            m_current->UpdateProgress();
        while (m_flow != nullptr && m_current != nullptr && m_current->NextStatus(status, error))
            m_flow->OnSocketStatus(m_current->GetSender(), status, error);
        return 0;
    }
    // The system sends timers when no other message waits, so no status is overtaken.
    void OnTimer(UINT) {
        const auto hold = Hold();
        OnTransportChanged(0, 0);
        if (m_flow != nullptr)
            m_flow->Poll();
    }
    DECLARE_MESSAGE_MAP()

private:
    // This window belongs to the source of the check, which a box of the check may release.
    std::shared_ptr<const void> Hold() const { return m_holder ? m_holder() : nullptr; }
};

// clang-format off
BEGIN_MESSAGE_MAP(HttpSource::StatusWindow, CWnd)
    ON_MESSAGE(CVaskSocket::STATUS_MESSAGE, &ThisClass::OnStatus)
    ON_MESSAGE(TransportConnection::kChangedMessage, &ThisClass::OnTransportChanged)
    ON_WM_TIMER()
END_MESSAGE_MAP()
// clang-format on

HttpSource::HttpSource(UINT port) : m_port(port), m_window(std::make_unique<StatusWindow>()) {}

HttpSource::~HttpSource() = default;

void HttpSource::SetFlow(UpdateFlow* flow, Holder holder) {
    m_window->m_flow = flow;
    m_window->m_holder = std::move(holder);
}

void HttpSource::SetTransport(CUpdateTransport* transport) {
    m_transport = transport;
    m_window->SetPollInterval(transport != nullptr ? kTransportMilliseconds : kPollMilliseconds);
}

std::unique_ptr<UpdateConnection> HttpSource::NewConnection() {
    if (m_transport != nullptr)
        return std::make_unique<TransportConnection>(*m_transport, m_window->m_hWnd,
                                                     m_window->m_current);
    const HWND window = m_socketWindow != nullptr ? m_socketWindow : m_window->m_hWnd;
    return std::make_unique<HttpConnection>(window, m_port);
}

CString HttpSource::GetWinsockErrorText(DWORD code) {
    return AfxGetWinsockErrorText(code);
}

COleDateTime HttpSource::GetCurrentUTCTime() {
    return AfxGetCurrentUTCTime();
}

} // namespace quorvel
