// The connections of a check over HTTP, and the hidden window to which their sockets post.
#pragma once

#include <quorvel/framework/wnd.h>

#include "update/update_flow.h"

namespace quorvel {

// Belongs to one check and its thread, which has to dispatch messages and on which the sockets were
// initialised.
class HttpSource : public UpdateSource {
public:
    explicit HttpSource(UINT port = 80);
    ~HttpSource() override;

    void SetFlow(UpdateFlow* flow); // the check that is told the statuses

    std::unique_ptr<UpdateConnection> NewConnection() override;
    CString GetWinsockErrorText(DWORD code) override;
    COleDateTime GetCurrentUTCTime() override;

private:
    class StatusWindow;

    const UINT m_port;
    const std::unique_ptr<StatusWindow> m_window;
};

} // namespace quorvel
