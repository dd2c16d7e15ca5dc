// A check for updates whose view is a window. The window receives the statuses of its connections
// and the end of a check.
//
// The window and its object may be destroyed at any time, even while a box of its check is shown.
// So the object holds its check by a shared pointer, and each call into the check holds another
// one. When the window is destroyed, it leaves the check: the check ends silently and is deleted
// after the last call has returned.
#pragma once

#include <quorvel/update/check_for_updates_view.h>

#include "update/http_connection.h"
#include "update/update_check.h"

#include <memory>
#include <utility>

namespace quorvel {

inline constexpr UINT kAutoCheckMessage = WM_APP + 1006;     // by a window to itself: start a check
inline constexpr UINT kCheckFinishedMessage = WM_APP + 1007; // with the final code

// Makes HTTP connections whose sockets post to the window.
inline std::unique_ptr<UpdateSource> MakeHttpSource(HWND window) {
    auto source = std::make_unique<HttpSource>();
    source->SetSocketWindow(window);
    return source;
}

// The host's settings for the checks of a window.
struct CheckOptions {
    bool isStrict = false;
    CUpdateTransport* transport = nullptr; // not owned; null: plain HTTP
    PublisherKeys keys;
    // For listings.
    int maxAge = 0; // in days
    ULONGLONG bodyLimit = UpdateCheck::kBodyLimit;
};

// `Window` is the class of the object. Its window must exist.
template <class Window, class Flow>
class WindowedCheck : public CCheckForUpdatesView,
                      public std::enable_shared_from_this<WindowedCheck<Window, Flow>> {
public:
    template <class Subject>
    WindowedCheck(Window& window, std::unique_ptr<UpdateSource> source, const CRegistryPath& path,
                  const Subject& subject)
        : m_window(&window), m_source(std::move(source)), m_flow(path, subject, *this, *m_source) {
        if (HttpSource* const http = GetHttpSource())
            http->SetFlow(&m_flow, [this] { return this->weak_from_this().lock(); });
    }
    ~WindowedCheck() override {
        if (HttpSource* const http = GetHttpSource())
            http->SetFlow(nullptr);
    }

    Flow& GetFlow() { return m_flow; }
    void SetOptions(const CheckOptions& options) {
        m_flow.SetStrict(options.isStrict);
        m_flow.Verifier().SetKeys(options.keys);
        if (HttpSource* const http = GetHttpSource())
            http->SetTransport(options.transport);
    }
    // Ends the running check silently. The window is not used any more.
    void Leave() {
        m_window = nullptr;
        m_flow.Leave();
    }
    // The arguments of CVaskSocket::STATUS_MESSAGE.
    void OnSocketStatus(WPARAM socket, LPARAM status) {
        m_flow.OnSocketStatus(reinterpret_cast<const void*>(socket), LOWORD(status),
                              HIWORD(status));
    }

    BOOL PostCheckFinished(DWORD code) override {
        return m_window != nullptr &&
               ::PostMessageW(m_window->m_hWnd, kCheckFinishedMessage, code, 0);
    }

protected:
    Window* GetWindow() const { return m_window; } // null after Leave

private:
    HttpSource* GetHttpSource() const { return dynamic_cast<HttpSource*>(m_source.get()); }

    Window* m_window;
    const std::unique_ptr<UpdateSource> m_source;
    Flow m_flow;
};

} // namespace quorvel
