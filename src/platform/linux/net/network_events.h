// Decides which network events of a socket are reported. It keeps a record, which is updated from
// polls of the descriptor and from the program's calls. It uses no descriptor and takes no lock.
//
// An event is recorded when its condition is seen, and reported once. It is recorded again only
// after the call that re-arms it: a receive for FD_READ, a receive of urgent data for FD_OOB, an
// accept for FD_ACCEPT, a blocked send for FD_WRITE. FD_CONNECT and FD_CLOSE have no such call;
// FD_CLOSE occurs again if a properly closed connection is reset later. Selecting re-arms nothing,
// but changes what an enumeration returns.
#pragma once

#include <quorvel/platform/sockets.h>

namespace quorvel {

class NetworkEvents {
public:
    enum class Kind { Idle, Connecting, Connected, Listening, Datagram };

    // The result of a poll.
    struct Conditions {
        bool data = false;   // bytes, a datagram or a connection is available
        bool end = false;    // the other side will send no more
        bool room = false;   // a send would not block
        bool urgent = false; // urgent data can be received
        bool hangUp = false; // neither side will send more, or there is an error
        int error = 0;       // of the connection
    };
    // The conditions to poll for; 0 when polling is useless.
    enum Look : unsigned { kData = 1, kEnd = 2, kRoom = 4, kUrgent = 8, kHangUp = 16 };

    Kind GetKind() const { return m_kind; }
    // Accepted sockets become Connected by this call; connecting ones do in Connected.
    void SetKind(Kind kind) { m_kind = kind; }
    void Connect(); // begins, possibly after a failed attempt
    void Connected();

    long Mask() const { return m_mask; }
    void Select(long mask) { m_mask = mask; }
    bool HasReport() const { return (m_recorded & m_mask) != 0; }

    unsigned Interest() const;
    // Returns true when there is a new event to report.
    bool Observe(const Conditions& conditions);

    void Received() { Arm(FD_READ); }
    void ReceivedUrgent() { Arm(FD_OOB); }
    void SendBlocked() { Arm(FD_WRITE); }
    void Accepted() { Arm(FD_ACCEPT); }

    struct Report {
        long events;
        int errors[FD_MAX_EVENTS];
    };
    Report Enumerate();

private:
    void Arm(long event);
    bool Wants(long event) const { return (m_mask & ~(m_recorded | m_reported) & event) != 0; }
    void Record(long event, int error = 0);
    void ObserveConnecting(const Conditions& conditions);
    void ObserveConnected(const Conditions& conditions);

    Kind m_kind = Kind::Idle;
    long m_mask = 0;
    long m_recorded = 0;
    long m_reported = 0;
    int m_errors[FD_MAX_EVENTS] = {};
    bool m_endWaits = false; // the end was seen, but data before it has not been received
    bool m_ended = false;
    bool m_hungUp = false;
    bool m_reset = false;
    bool m_over = false; // no further events are possible
};

} // namespace quorvel
