// Which network events of a socket are to be reported: a record that is filled from looks at the
// descriptor and from the calls that the program makes. It knows no descriptors and takes no lock.
//
// An event is recorded when its condition is seen, and reported once. What is reported is recorded
// again only after the call that re-arms it: a receive for FD_READ, a receive of urgent data for
// FD_OOB, an accept for FD_ACCEPT, a send that would have blocked for FD_WRITE. FD_CONNECT and
// FD_CLOSE have no such call; FD_CLOSE comes once more when a connection that ended in good order
// is reset afterwards. Selecting re-arms nothing; it changes what an enumeration gives.
#pragma once

#include <quorvel/platform/sockets.h>

namespace quorvel {

class NetworkEvents {
public:
    enum class Kind { Idle, Connecting, Connected, Listening, Datagram };

    // What a look at the descriptor shows.
    struct Conditions {
        bool data = false;   // bytes, a datagram or a connection can be taken
        bool end = false;    // the other side sends no more
        bool room = false;   // a send would not block
        bool urgent = false; // urgent data can be received
        bool hangUp = false; // neither side sends any more, or there is an error
        int error = 0;       // the connection's
    };
    // What is worth a look: 0 means that there is nothing to be seen.
    enum Look : unsigned { kData = 1, kEnd = 2, kRoom = 4, kUrgent = 8, kHangUp = 16 };

    Kind GetKind() const { return m_kind; }
    // An accepted socket becomes Connected, one that connected by itself does so in Connected.
    void Become(Kind kind) { m_kind = kind; }
    void Connect(); // begins, perhaps after an attempt that failed
    void Connected();

    long Mask() const { return m_mask; }
    void Select(long mask) { m_mask = mask; }
    bool HasReport() const { return (m_recorded & m_mask) != 0; }

    unsigned Interest() const;
    // True when it adds to what is to be reported.
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
    bool m_endWaits = false; // the end was seen behind data that are not received yet
    bool m_ended = false;
    bool m_hungUp = false;
    bool m_reset = false;
    bool m_over = false; // nothing more can happen
};

} // namespace quorvel
