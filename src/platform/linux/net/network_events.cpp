#include "platform/linux/net/network_events.h"

#include <algorithm>
#include <iterator>

namespace quorvel {

namespace {

constexpr long kBits[] = {FD_READ, FD_WRITE, FD_OOB, FD_ACCEPT, FD_CONNECT, FD_CLOSE};

} // namespace

void NetworkEvents::Record(long event, int error) {
    if ((m_recorded | m_reported) & event)
        return;
    m_recorded |= event;
    m_errors[std::ranges::find(kBits, event) - std::begin(kBits)] = error;
}

void NetworkEvents::Arm(long event) {
    m_recorded &= ~event;
    m_reported &= ~event;
    if (event == FD_READ)
        m_endWaits = false;
}

void NetworkEvents::Connect() {
    m_kind = Kind::Connecting;
    Arm(FD_CONNECT);
}

void NetworkEvents::Connected() {
    m_kind = Kind::Connected;
    Record(FD_CONNECT);
    Record(FD_WRITE);
}

// Excludes conditions that are known and stay: polling for them would return at once, again and
// again.
unsigned NetworkEvents::Interest() const {
    unsigned look = 0;
    switch (m_kind) {
    case Kind::Idle:
        return 0;
    case Kind::Connecting:
        return kRoom | kHangUp;
    case Kind::Listening:
        return Wants(FD_ACCEPT) ? kData | kHangUp : 0;
    case Kind::Connected:
    case Kind::Datagram:
        if (m_over)
            return 0;
        if (Wants(FD_READ) && !m_ended)
            look |= kData | kEnd;
        if (Wants(FD_CLOSE) && !m_endWaits && !m_ended)
            look |= kEnd;
        if (Wants(FD_WRITE) && !m_hungUp)
            look |= kRoom;
        if (Wants(FD_OOB) && !m_ended && !m_hungUp)
            look |= kUrgent;
        if (look != 0 || ((m_mask & FD_CLOSE) != 0 && !m_hungUp))
            look |= kHangUp;
        return look;
    }
    return 0;
}

bool NetworkEvents::Observe(const Conditions& conditions) {
    const long before = m_recorded;
    switch (m_kind) {
    case Kind::Idle:
        break;
    case Kind::Connecting:
        ObserveConnecting(conditions);
        break;
    case Kind::Listening:
        if (conditions.data)
            Record(FD_ACCEPT);
        break;
    case Kind::Connected:
        ObserveConnected(conditions);
        break;
    case Kind::Datagram:
        if (conditions.data)
            Record(FD_READ);
        if (conditions.room)
            Record(FD_WRITE);
        break;
    }
    return (m_recorded & ~before & m_mask) != 0;
}

void NetworkEvents::ObserveConnecting(const Conditions& conditions) {
    if (conditions.error == WSAECONNRESET) { // a connection was reset; a refusal has another error
        Connected();
        ObserveConnected(conditions);
    } else if (conditions.error != 0) {
        m_kind = Kind::Idle;
        Record(FD_CONNECT, conditions.error);
    } else if (conditions.room) {
        Connected();
    }
}

void NetworkEvents::ObserveConnected(const Conditions& conditions) {
    if (conditions.data) {
        Record(FD_READ);
        m_endWaits = m_endWaits || conditions.end;
    } else if (conditions.end && !m_ended) {
        m_ended = true;
        if (conditions.error == 0)
            Record(FD_CLOSE);
    }
    if (conditions.urgent)
        Record(FD_OOB);
    if (conditions.hangUp) {
        if (conditions.error != 0 && !m_reset) {
            m_reset = true;
            m_reported &= ~FD_CLOSE;
            // For any cause: calls on the socket return the error itself.
            Record(FD_CLOSE, WSAECONNABORTED);
        }
        m_hungUp = true;
        m_over = !conditions.data;
    } else if (conditions.room) {
        Record(FD_WRITE);
    }
}

NetworkEvents::Report NetworkEvents::Enumerate() {
    Report report = {m_recorded & m_mask, {}};
    for (std::size_t i = 0; i < std::size(kBits); ++i)
        if (report.events & kBits[i])
            report.errors[i] = m_errors[i];
    m_reported |= report.events;
    m_recorded &= ~report.events;
    return report;
}

} // namespace quorvel
