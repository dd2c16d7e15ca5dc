// A connection of a check through a host's transport.
#pragma once

#include <quorvel/update/update_transport.h>

#include "update/update_connection.h"

namespace quorvel {

// Its statuses are not posted. The window's owner reads them when the window receives
// kChangedMessage, and periodically.
class TransportConnection : public UpdateConnection {
public:
    static constexpr UINT kChangedMessage = WM_APP + 0x100;

    // From Connect to Close, `current` points to this connection.
    TransportConnection(CUpdateTransport& transport, HWND window, TransportConnection*& current)
        : m_transport(transport), m_window(window), m_current(current) {}
    ~TransportConnection() override { Stop(); }

    // Copies the transport's progress for NextStatus.
    void UpdateProgress();
    // The next of the statuses for this progress; false if there are no more.
    bool NextStatus(int& status, DWORD& error);

    const void* GetSender() const override { return this; }
    DWORD Create() override;
    DWORD Connect(const UpdateRequest& request) override;
    void Close() override;
    bool HasEnded(DWORD& error) const override;
    ULONGLONG GetBytesReceived() const override { return m_progress.received; }
    bool IsHeaderParsed() const override { return m_isHeaderParsed; }
    const CHttpHeader& GetHeader() const override { return m_header; }
    CString GetResolvedUrl() const override { return m_url; }
    CString GetErrorText() const override { return m_progress.errorText; }

private:
    void Stop();
    void TakeHeader();

    CUpdateTransport& m_transport;
    const HWND m_window;
    TransportConnection*& m_current;
    CString m_url;
    CUpdateTransport::Progress m_progress;
    CHttpHeader m_header; // empty: the file contains only the body
    bool m_isStarted = false;
    bool m_isHeaderParsed = false;
    // The statuses that NextStatus has returned.
    bool m_reportedConnected = false, m_reportedHeader = false, m_reportedEnd = false;
    ULONGLONG m_reportedReceived = 0;
};

} // namespace quorvel
