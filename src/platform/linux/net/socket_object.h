// What a SOCKET stands for.
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
    Socket(int descriptor, bool stream); // takes the descriptor over
    ~Socket() override;

    int Descriptor() const { return m_descriptor; }
    bool IsStream() const { return m_stream; }

    pollfd Interest() override;
    void Notice(short conditions) override;

    // Does `act` with the record of events under the lock, and wakes who waits for them.
    template <class Act>
    auto WithEvents(Act act) {
        const std::lock_guard lock(m_mutex);
        struct Wake {
            Socket& socket;
            ~Wake() { socket.WakeWaiters(); }
        } const wake{*this};
        return act(m_events);
    }

    // False in blocking mode while events are selected.
    bool SetNonBlocking(bool nonBlocking);
    bool IsNonBlocking();

    void Select(std::shared_ptr<Waitable> event, long mask);
    // The listener's event and mask for a socket that it accepted.
    void SelectAs(Socket& listener);
    NetworkEvents::Report Enumerate(Waitable* eventToReset);

    // Waits until one of the poll conditions holds. False, with 10004, when the socket was closed.
    bool WaitFor(short conditions);
    void Close();

    // Winsock errors that a look took from the descriptor: of a failed connection, for SO_ERROR,
    // which clears it; of a reset, for every later call.
    int TakeError();
    int ResetError();
    void NoteReset(); // by a call, which the system tells only once

    // Calls that the system does not refuse as Winsock does.
    struct Done {
        bool bound = false;
        bool sendShut = false;
        bool receiveShut = false;
    };
    Done GetDone();
    // SO_REUSEADDR as the program has set it; the system's differs (see Bind).
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
    std::shared_ptr<Waitable> m_event; // null while none is selected
    bool m_nonBlocking = false;
    int m_error = 0;
    int m_resetError = 0;
    Done m_done;
    bool m_sharesAddress = false;
};

// The system's SO_REUSEADDR.
bool ShareAddress(int descriptor, bool share);

// The Winsock error of an errno.
int SocketError(int error);

} // namespace quorvel
