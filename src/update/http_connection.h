// The connections of a check, over HTTP or by a host's transport, and the hidden window to which
// they post.
#pragma once

#include <quorvel/framework/wnd.h>
#include <quorvel/update/update_transport.h>

#include "update/update_flow.h"

namespace quorvel {

// Belongs to one check and its thread, which has to dispatch messages and on which the sockets were
// initialised.
class HttpSource : public UpdateSource {
public:
    explicit HttpSource(UINT port = 80);
    ~HttpSource() override;

    void SetFlow(UpdateFlow* flow); // the check that is told the statuses
    // Null: HTTP over sockets.
    void SetTransport(CUpdateTransport* transport);
    // Sockets made from now on post to this window instead, which passes their statuses on.
    void SetSocketWindow(HWND window) { m_socketWindow = window; }

    std::unique_ptr<UpdateConnection> NewConnection() override;
    CString GetWinsockErrorText(DWORD code) override;
    COleDateTime GetCurrentUTCTime() override;
    bool IsStrict() const override { return m_transport != nullptr; }

private:
    class StatusWindow;

    const UINT m_port;
    CUpdateTransport* m_transport = nullptr;
    HWND m_socketWindow = nullptr; // null: m_window
    const std::unique_ptr<StatusWindow> m_window;
};

} // namespace quorvel
