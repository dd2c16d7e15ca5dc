// The connections of a check, over HTTP or through a host's transport, and the hidden window for
// their messages.
#pragma once

#include <quorvel/framework/wnd.h>
#include <quorvel/update/update_transport.h>

#include "update/update_flow.h"

#include <functional>
#include <memory>

namespace quorvel {

// Belongs to one check and its thread. The thread must dispatch messages and must have initialised
// the sockets.
class HttpSource : public UpdateSource {
public:
    explicit HttpSource(UINT port = 80);
    ~HttpSource() override;

    // Keeps the check, its source and its view alive while the result exists.
    typedef std::function<std::shared_ptr<const void>()> Holder;

    // The check that gets the statuses. Without a holder it must not be destroyed by its view.
    void SetFlow(UpdateFlow* flow, Holder holder = {});
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
