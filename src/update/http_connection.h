// The connections of a check, over HTTP or through a host's transport, and the hidden window for
// their messages.
#pragma once

#include <quorvel/framework/wnd.h>
#include <quorvel/update/update_transport.h>

#include "update/update_flow.h"

namespace quorvel {

// Belongs to one check and its thread. The thread must dispatch messages and must have initialised
// the sockets.
class HttpSource : public UpdateSource {
public:
    explicit HttpSource(UINT port = 80);
    ~HttpSource() override;

    void SetFlow(UpdateFlow* flow); // the check that gets the statuses
    // Null means HTTP over sockets.
    void SetTransport(CUpdateTransport* transport);
    // Sockets created from now on post to this window instead, which forwards their statuses.
    void SetSocketWindow(HWND window) { m_socketWindow = window; }

    std::unique_ptr<UpdateConnection> NewConnection() override;
    CString GetWinsockErrorText(DWORD code) override;
    COleDateTime GetCurrentUTCTime() override;
    bool IsStrict() const override { return m_transport != nullptr; }

private:
    class StatusWindow;

    const UINT m_port;
    CUpdateTransport* m_transport = nullptr;
    HWND m_socketWindow = nullptr; // null means m_window
    const std::unique_ptr<StatusWindow> m_window;
};

} // namespace quorvel
