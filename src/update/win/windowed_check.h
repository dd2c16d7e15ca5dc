// A check for updates whose view is a window: the statuses of its connections come to that window,
// and so does the end of a check.
//
// A window may be destroyed in the middle of anything, also while a box of its check is shown, and
// its object with it. So the object holds its check by a shared pointer and each of its calls into
// the check another one, and when the window is destroyed it leaves the check: that ends without a
// word, and goes when the last call has returned.
#pragma once

#include <quorvel/update/check_for_updates_view.h>

#include "update/http_connection.h"

#include <memory>
#include <utility>

namespace quorvel {

inline constexpr UINT kAutoCheckMessage = WM_APP + 1006;     // a window to itself: start a check
inline constexpr UINT kCheckFinishedMessage = WM_APP + 1007; // with the code of the end

// Connections over HTTP whose sockets post to the window.
inline std::unique_ptr<UpdateSource> MakeHttpSource(HWND window) {
    auto source = std::make_unique<HttpSource>();
    source->SetSocketWindow(window);
    return source;
}

// What a host has chosen for the checks of a window.
struct CheckOptions {
    bool isStrict = false;
    CUpdateTransport* transport = nullptr; // not owned; null: plain HTTP
    PublisherKeys keys;
    int maxAge = 0; // in days; for listings
};

// `Window` is the class of the object, whose window exists.
template <class Window, class Flow>
class WindowedCheck : public CCheckForUpdatesView {
public:
    template <class Subject>
    WindowedCheck(Window& window, std::unique_ptr<UpdateSource> source, const CRegistryPath& path,
                  const Subject& subject)
        : m_window(&window), m_source(std::move(source)), m_flow(path, subject, *this, *m_source) {
        Poll(&m_flow);
    }
    ~WindowedCheck() override { Poll(nullptr); }

    Flow& GetFlow() { return m_flow; }
    void SetOptions(const CheckOptions& options) {
        m_flow.SetStrict(options.isStrict);
        m_flow.Verifier().SetKeys(options.keys);
        if (auto* const http = dynamic_cast<HttpSource*>(m_source.get()))
            http->SetTransport(options.transport);
    }
    // Ends the check that runs, without a word. The window is not used any more.
    void Leave() {
        m_window = nullptr;
        m_flow.Cancel();
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
    Window* GetWindow() const { return m_window; } // null once it was left

private:
    void Poll(UpdateFlow* flow) {
        if (auto* const http = dynamic_cast<HttpSource*>(m_source.get()))
            http->SetFlow(flow);
    }

    Window* m_window;
    const std::unique_ptr<UpdateSource> m_source;
    Flow m_flow;
};

} // namespace quorvel
