// The object of a SOCKET.
#pragma once

#include "platform/linux/net/network_events.h"
#include "platform/linux/waits/wait.h"

#include <memory>
#include <mutex>

namespace quorvel {

class Socket final : public HandleObject,
                     public WaitSource,
                     public std::enable_shared_from_this<Socket> {
public:
    Socket(int descriptor, bool stream); // takes ownership of the descriptor
    ~Socket() override;

    int Descriptor() const { return m_descriptor; }
    bool IsStream() const { return m_stream; }

    pollfd Interest() override;
    void OnPolled(short conditions) override;

    // Calls `act` with the record of events under the lock, then wakes the waiting threads.
    template <class Act>
    auto WithEvents(Act act) {
        const std::lock_guard lock(m_mutex);
        struct Wake {
            Socket& socket;
            ~Wake() { socket.WakeWaiters(); }
        } const wake{*this};
        return act(m_events);
    }

    // Returns false in blocking mode while events are selected.
    bool SetNonBlocking(bool nonBlocking);
    bool IsNonBlocking();

    void Select(std::shared_ptr<Waitable> event, long mask);
    // Copies the listener's event and mask to a socket that it accepted.
    void SelectAs(Socket& listener);
    NetworkEvents::Report Enumerate(Waitable* eventToReset);

    // Waits for one of the poll conditions. Returns false with 10004 when the socket was closed.
    bool WaitFor(short conditions);
    void Close();

    // Winsock errors read from the descriptor. TakeError returns the error of a failed connection
    // for SO_ERROR and clears it; ResetError returns the error of a reset for every later call.
    int TakeError();
    int ResetError();
    void RecordReset(); // a call has seen a reset; the system reports it once

    // Calls that Winsock refuses but the system does not.
    struct Done {
        bool bound = false;
        bool sendShut = false;
        bool receiveShut = false;
    };
    Done GetDone();
    // The program's SO_REUSEADDR; the system's value may differ (see Bind).
    bool SharesAddress();
    bool SetSharesAddress(bool shares); // false when the system refuses
    void SetDone(bool Done::*what);

private:
    void WakeWaiters() {
        if (m_event != nullptr)
            m_event->WakeWaiters();
    }
    NetworkEvents::Conditions ConditionsOf(short polled);

    const int m_descriptor;
    const bool m_stream;
    const std::shared_ptr<Waitable> m_closed = std::make_shared<Waitable>(false);
    std::mutex m_mutex; // guards what follows
    NetworkEvents m_events;
    std::shared_ptr<Waitable> m_event; // null while no event is selected
    bool m_nonBlocking = false;
    int m_error = 0;
    int m_resetError = 0;
    Done m_done;
    bool m_sharesAddress = false;
};

// Sets the system's SO_REUSEADDR.
bool ShareAddress(int descriptor, bool share);

// The Winsock error for an errno.
int SocketError(int error);

} // namespace quorvel
