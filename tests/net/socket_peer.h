// Helpers for socket tests: the other side of a connection, a window for the statuses, and a socket
// that records calls of its handlers.
#pragma once

#include <quorvel/framework/wnd.h>
#include <quorvel/net/vask_socket.h>

#include "platform/win32.h"

#if !defined(_WIN32)
#include "platform/linux/net/host_lookup.h"
#endif

#include "support/test.h"

#include <atomic>
#include <chrono>
#include <filesystem>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

// A base class of fixtures with members that need sockets.
struct InitializedSockets {
    InitializedSockets() { EXPECT_TRUE(CVaskSocket::Initialize()); }
    ~InitializedSockets() { EXPECT_TRUE(CVaskSocket::Deinitialize()); }
};

// The other side of connections, with blocking calls.
class Peer {
public:
    enum Kind { kListening, kBoundOnly }; // kBoundOnly: connections are refused
    explicit Peer(Kind kind = kListening) : m_kind(kind) { Open(); }
    Peer(const Peer&) = delete;
    ~Peer() { closesocket(m_socket); }

    UINT Port() const { return m_port; }
    SOCKET Accept() { return accept(m_socket, nullptr, nullptr); }
    // The request of a client, up to the blank line.
    static std::string ReadRequest(SOCKET from) {
        std::string request;
        char next;
        while (!request.ends_with("\r\n\r\n") && recv(from, &next, 1, 0) == 1)
            request += next;
        return request;
    }
    static void Send(SOCKET to, const std::string& bytes) {
        EXPECT_EQ(send(to, bytes.data(), static_cast<int>(bytes.size()), 0),
                  static_cast<int>(bytes.size()));
    }
    void Restart() { // at another port; drops pending connections
        closesocket(m_socket);
        Open();
    }

private:
    void Open() {
        m_socket = quorvel::win32::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        auto* const plain = reinterpret_cast<quorvel::win32::sockaddr*>(&address);
        int length = sizeof address;
        EXPECT_EQ(bind(m_socket, plain, length), 0);
        EXPECT_EQ(getsockname(m_socket, plain, &length), 0);
        m_port = ntohs(address.sin_port);
        if (m_kind == kListening) {
            EXPECT_EQ(listen(m_socket, 200), 0);
        }
    }

    const Kind m_kind;
    SOCKET m_socket;
    UINT m_port = 0;
};

// Records the statuses of sockets, as in "3 4:10061 ": a non-zero error or count follows the
// colon.
class StatusWindow : public CWnd {
public:
    StatusWindow() {
        WNDCLASSEXW windowClass = {};
        windowClass.cbSize = sizeof windowClass;
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.lpszClassName = _T("StatusWindow");
        RegisterClassExW(&windowClass); // one class for all windows
        CreateEx(0, _T("StatusWindow"), _T(""), WS_POPUP, 0, 0, 0, 0, nullptr, nullptr);
    }
    ~StatusWindow() override { DestroyWindow(); }

    HWND Get() const { return m_hWnd; }
    const std::string& Of(const CVaskSocket& socket) { return m_statuses[&socket]; }
    void Forget(const CVaskSocket& socket) { m_statuses.erase(&socket); }

    static void Pump() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
    // Waits at most 20 seconds.
    static void PumpUntil(const std::function<bool()>& condition) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (Pump(), !condition() && std::chrono::steady_clock::now() < end)
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 1, QS_ALLINPUT);
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != CVaskSocket::STATUS_MESSAGE)
            return CWnd::WindowProc(message, wParam, lParam);
        std::string& text = m_statuses[reinterpret_cast<const CVaskSocket*>(wParam)];
        text += std::to_string(LOWORD(lParam));
        if (HIWORD(lParam) != 0)
            text += ':' + std::to_string(HIWORD(lParam));
        text += ' ';
        return 0;
    }

private:
    std::map<const CVaskSocket*, std::string> m_statuses;
};

// Records the calls of handlers, and runs a function of the test in each.
class ScriptedSocket : public CVaskSocket {
public:
    ~ScriptedSocket() override { ScriptedSocket::Close(); }

    // The function for a handler, by its name. Without one, the socket only receives data.
    std::map<std::string, std::function<int()>> m_acts;

    std::string Take() {
        const std::lock_guard lock(m_lock);
        return std::exchange(m_handlers, {});
    }
    std::string Received() {
        const std::lock_guard lock(m_lock);
        return m_received;
    }

protected:
    BOOL OnAccept(int) override { return Note("accept"); }
    BOOL OnClose(int) override { return Note("close"); }
    BOOL OnConnect(int) override { return Note("connect"); }
    BOOL OnSend(int) override { return Note("send"); }
    int OnReceive(int) override {
        const int result = Note("receive");
        if (m_acts.contains("receive"))
            return result;
        char buffer[16384];
        const int count = Receive(buffer, sizeof buffer);
        const std::lock_guard lock(m_lock);
        if (count > 0)
            m_received.append(buffer, static_cast<std::size_t>(count));
        return count;
    }

private:
    int Note(const char* name) {
        {
            const std::lock_guard lock(m_lock);
            m_handlers += name + std::string(" ");
        }
        const auto act = m_acts.find(name);
        return act != m_acts.end() ? act->second() : TRUE;
    }

    std::mutex m_lock; // guards the members below
    std::string m_handlers;
    std::string m_received;
};

#if defined(_WIN32)

// Look-ups whose answers wait, because no thread dispatches them.
class HeldLookUps {
public:
    void AwaitBegin() const {
        MSG message;
        while (!PeekMessageW(&message, nullptr, WM_APP + 1004, WM_APP + 1004, PM_NOREMOVE))
            std::this_thread::yield();
    }
};

#else

class HeldLookUps {
public:
    HeldLookUps() {
        quorvel::SetHostResolver([state = m_state](const std::string&, std::vector<ULONG>& found) {
            ++state->begun;
            while (state->held)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            found.push_back(htonl(INADDR_LOOPBACK));
            ++state->ended;
            return 0;
        });
    }
    HeldLookUps(const HeldLookUps&) = delete;
    ~HeldLookUps() {
        m_state->held = false;
        while (m_state->ended != m_state->begun)
            std::this_thread::yield();
        quorvel::SetHostResolver({});
    }
    void AwaitBegin() const {
        const int before = m_awaited++;
        while (m_state->begun <= before)
            std::this_thread::yield();
    }

private:
    struct State {
        std::atomic<int> begun = 0;
        std::atomic<int> ended = 0;
        std::atomic<bool> held = true;
    };
    const std::shared_ptr<State> m_state = std::make_shared<State>();
    mutable int m_awaited = 0;
};

#endif

// The number of handles, or of descriptors and threads, in the process.
inline int ThingsOpen() {
#if defined(_WIN32)
    int count = 0; // Wine's GetProcessHandleCount returns 0
    DWORD flags;
    for (ULONG_PTR handle = 4; handle < 0x4000; handle += 4)
        count += GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags) != FALSE;
    return count;
#else
    const auto count = [](const char* folder) {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    };
    return static_cast<int>(count("/proc/self/fd") + count("/proc/self/task"));
#endif
}
