#include "update/transport_connection.h"

#include "platform/win32.h"

#include <string>
#include <utility>

CUpdateTransport::~CUpdateTransport() = default;

void CUpdateTransport::NotifyChanged() {
    const HWND window = m_window;
    if (window == nullptr || m_isNotified.exchange(true))
        return;
    if (!::PostMessageW(window, quorvel::TransportConnection::kChangedMessage, 0, 0))
        m_isNotified = false; // the check's timer will find the change
}

namespace quorvel {

// Without a window nobody would notice the end.
DWORD TransportConnection::Create() {
    return m_window != nullptr ? 0 : DWORD{WSAENOBUFS};
}

DWORD TransportConnection::Connect(const UpdateRequest& request) {
    HWND nobody = nullptr;
    if (!m_transport.m_window.compare_exchange_strong(nobody, m_window))
        return WSAEALREADY;
    m_isStarted = true;
    m_current = this;
    m_url = request.url;
    m_transport.m_isNotified = false;
    m_transport.Start({request.url, request.headerOnly, request.localFile, request.bodyLimit,
                       request.hostTimeOut});
    return 0;
}

void TransportConnection::Stop() {
    if (!std::exchange(m_isStarted, false))
        return;
    m_current = nullptr;
    m_transport.Cancel();
    m_transport.m_window = nullptr;
}

void TransportConnection::Close() {
    Stop();
    ::PostMessageW(m_window, CVaskSocket::STATUS_MESSAGE, reinterpret_cast<WPARAM>(GetSender()),
                   MAKELPARAM(Http::statusClosed, 0));
}

void TransportConnection::UpdateProgress() {
    m_transport.m_isNotified = false;
    m_progress = m_transport.GetProgress();
    if (m_progress.statusCode != 0 && !m_isHeaderParsed)
        TakeHeader();
}

void TransportConnection::TakeHeader() {
    m_isHeaderParsed = true;
    m_header.SetStatusCode(m_progress.statusCode);
    CString value;
    if (m_transport.GetHeaderField(_T("Last-Modified"), value))
        m_header.SetFieldValue(_T("Last-Modified"), value);
    if (m_progress.expected == 0)
        return;
    value.Format(_T("%I64u"), m_progress.expected);
    m_header.SetFieldValue(_T("Content-Length"), value);
}

bool TransportConnection::NextStatus(int& status, DWORD& error) {
    error = 0;
    if (m_progress.isConnected && !std::exchange(m_reportedConnected, true))
        status = Http::statusConnected;
    else if (m_isHeaderParsed && !std::exchange(m_reportedHeader, true))
        status = Http::statusHeaderParsed;
    else if (std::exchange(m_reportedReceived, m_progress.received) != m_progress.received)
        status = Http::statusReceived;
    else if (m_progress.hasEnded && !std::exchange(m_reportedEnd, true)) {
        status = Http::statusEnded;
        error = m_progress.error;
    } else
        return false;
    return true;
}

bool TransportConnection::HasEnded(DWORD& error) const {
    error = m_progress.error;
    return m_progress.hasEnded != FALSE;
}

} // namespace quorvel
