#include "platform/linux/net/posix_sockets.h"

#include "platform/linux/net/socket_object.h"

#include <algorithm>
#include <utility>

namespace quorvel {

namespace {

// Sets an event when a descriptor has one of the conditions, for one blocking call.
class Readiness final : public WaitSource {
public:
    Readiness(int descriptor, short conditions, std::shared_ptr<Waitable> ready)
        : m_polled{descriptor, conditions, 0}, m_ready(std::move(ready)) {}
    pollfd Interest() override { return m_polled; }
    void OnPolled(short) override { m_ready->Signal(); }

private:
    const pollfd m_polled;
    const std::shared_ptr<Waitable> m_ready;
};

} // namespace

Socket::Socket(int descriptor, bool stream) : m_descriptor(descriptor), m_stream(stream) {
    if (!stream)
        m_events.SetKind(NetworkEvents::Kind::Datagram);
}

Socket::~Socket() {
    if (m_stream)
        ShareAddress(m_descriptor,
                     true); // the rest of its connection blocks no port
    close(m_descriptor);
}

pollfd Socket::Interest() {
    const std::lock_guard lock(m_mutex);
    const unsigned look = m_events.Interest();
    if (look == 0 || m_event == nullptr)
        return {-1, 0, 0};
    short conditions = 0;
    if (look & NetworkEvents::kData)
        conditions |= POLLIN;
    if (look & NetworkEvents::kEnd)
        conditions |= POLLRDHUP;
    if (look & NetworkEvents::kRoom)
        conditions |= POLLOUT;
    if (look & NetworkEvents::kUrgent)
        conditions |= POLLPRI;
    return {m_descriptor, conditions, 0};
}

// The caller holds the lock.
NetworkEvents::Conditions Socket::ConditionsOf(short polled) {
    NetworkEvents::Conditions conditions;
    conditions.end = (polled & (POLLRDHUP | POLLHUP)) != 0;
    conditions.room = (polled & POLLOUT) != 0;
    conditions.urgent = (polled & POLLPRI) != 0;
    conditions.hangUp = (polled & (POLLHUP | POLLERR)) != 0;
    conditions.data = (polled & POLLIN) != 0;
    // Readable may mean only the end, and poll may report it before it reports the end.
    const bool connected = m_events.GetKind() == NetworkEvents::Kind::Connected;
    if (conditions.end || conditions.hangUp || (conditions.data && connected)) {
        int bytes = 0;
        conditions.data = ioctl(m_descriptor, FIONREAD, &bytes) == 0 && bytes > 0;
        // The count ends at an urgent byte, even one that was received. Peeking looks behind it,
        // but would take the error of a broken connection.
        if (!conditions.data && m_stream && !conditions.hangUp) {
            char next;
            conditions.data = ::recv(m_descriptor, &next, 1, MSG_PEEK | MSG_DONTWAIT) > 0;
        }
    }
    const bool connecting = m_events.GetKind() == NetworkEvents::Kind::Connecting;
    if (conditions.hangUp || connecting) {
        int error = 0;
        socklen_t length = sizeof error;
        ::getsockopt(m_descriptor, SOL_SOCKET, SO_ERROR, &error, &length);
        const int found = error != 0 ? SocketError(error) : 0;
        if (found != 0)
            m_error = found;
        if (found != 0 && m_stream && (!connecting || found == WSAECONNRESET))
            m_resetError = found;
        conditions.error = connecting ? found : m_resetError;
    }
    return conditions;
}

void Socket::OnPolled(short polled) {
    const std::lock_guard lock(m_mutex);
    if (m_events.Observe(ConditionsOf(polled)) && m_event != nullptr)
        m_event->Signal();
}

bool Socket::SetNonBlocking(bool nonBlocking) {
    const std::lock_guard lock(m_mutex);
    if (!nonBlocking && m_event != nullptr)
        return false;
    m_nonBlocking = nonBlocking;
    return true;
}

bool Socket::IsNonBlocking() {
    const std::lock_guard lock(m_mutex);
    return m_nonBlocking;
}

void Socket::Select(std::shared_ptr<Waitable> event, long mask) {
    const std::lock_guard lock(m_mutex);
    if (mask == 0)
        event = nullptr;
    m_nonBlocking = true;
    m_events.Select(mask);
    if (m_event != nullptr && m_event != event)
        m_event->RemoveSource(*this);
    if (event != nullptr && m_event != event)
        event->AddSource(weak_from_this());
    m_event = std::move(event);
    WakeWaiters();
    if (m_event != nullptr && m_events.HasReport())
        m_event->Signal();
}

void Socket::SelectAs(Socket& listener) {
    std::unique_lock lock(listener.m_mutex);
    std::shared_ptr<Waitable> event = listener.m_event;
    const long mask = listener.m_events.Mask();
    const bool nonBlocking = listener.m_nonBlocking;
    lock.unlock();
    if (event != nullptr)
        Select(std::move(event), mask);
    else
        SetNonBlocking(nonBlocking);
}

NetworkEvents::Report Socket::Enumerate(Waitable* eventToReset) {
    bool known;
    {
        const std::lock_guard lock(m_mutex);
        known = m_events.HasReport();
    }
    if (!known) {
        pollfd polled = Interest();
        if (poll(&polled, 1, 0) > 0)
            OnPolled(polled.revents);
    }
    const std::lock_guard lock(m_mutex); // locked: the next event must signal after the reset
    if (eventToReset != nullptr)
        eventToReset->Reset();
    const NetworkEvents::Report report = m_events.Enumerate();
    WakeWaiters();
    return report;
}

bool Socket::WaitFor(short conditions) {
    const auto ready = std::make_shared<Waitable>(false);
    const auto source = std::make_shared<Readiness>(m_descriptor, conditions, ready);
    ready->AddSource(source);
    const std::shared_ptr<Waitable> things[] = {m_closed, ready};
    if (WaitForAny(things, INFINITE) == WAIT_OBJECT_0 + 1)
        return true;
    win32::SetLastError(WSAEINTR);
    return false;
}

void Socket::Close() {
    m_closed->Signal();
    const std::lock_guard lock(m_mutex);
    if (m_event != nullptr)
        m_event->RemoveSource(*this);
    m_event = nullptr;
}

int Socket::TakeError() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_error, 0);
}

int Socket::ResetError() {
    const std::lock_guard lock(m_mutex);
    return m_resetError;
}

void Socket::RecordReset() {
    const std::lock_guard lock(m_mutex);
    m_resetError = WSAECONNRESET;
}

Socket::Done Socket::GetDone() {
    const std::lock_guard lock(m_mutex);
    return m_done;
}

bool Socket::SharesAddress() {
    const std::lock_guard lock(m_mutex);
    return m_sharesAddress;
}

bool Socket::SetSharesAddress(bool shares) {
    const std::lock_guard lock(m_mutex);
    const bool listens = m_events.GetKind() == NetworkEvents::Kind::Listening;
    if (!listens && !ShareAddress(m_descriptor, shares))
        return false;
    m_sharesAddress = shares;
    return true;
}

bool ShareAddress(int descriptor, bool share) {
    const int on = share;
    return ::setsockopt(descriptor, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) == 0;
}

void Socket::SetDone(bool Done::*what) {
    const std::lock_guard lock(m_mutex);
    m_done.*what = true;
}

int SocketError(int error) {
    static constexpr std::pair<int, int> kErrors[] = {
        {EAGAIN, WSAEWOULDBLOCK},
        {EINPROGRESS, WSAEWOULDBLOCK},
        {EALREADY, WSAEALREADY},
        {EINTR, WSAEINTR},
        {EACCES, WSAEACCES},
        {EPERM, WSAEACCES},
        {EFAULT, WSAEFAULT},
        {EINVAL, WSAEINVAL},
        {EMFILE, WSAEMFILE},
        {ENFILE, WSAEMFILE},
        {ENOTSOCK, WSAENOTSOCK},
        {EDESTADDRREQ, WSAENOTCONN}, // a datagram without an address
        {EMSGSIZE, WSAEMSGSIZE},
        {EPROTOTYPE, WSAEPROTOTYPE},
        {ENOPROTOOPT, WSAENOPROTOOPT},
        {EPROTONOSUPPORT, WSAEPROTONOSUPPORT},
        {ESOCKTNOSUPPORT, WSAESOCKTNOSUPPORT},
        {EOPNOTSUPP, WSAEOPNOTSUPP},
        {EAFNOSUPPORT, WSAEAFNOSUPPORT},
        {EADDRINUSE, WSAEADDRINUSE},
        {EADDRNOTAVAIL, WSAEADDRNOTAVAIL},
        {ENETDOWN, WSAENETDOWN},
        {ENETUNREACH, WSAENETUNREACH},
        {ENETRESET, WSAENETRESET},
        {ECONNABORTED, WSAECONNABORTED},
        {ECONNRESET, WSAECONNRESET},
        {EPIPE, WSAECONNRESET},
        {ENOBUFS, WSAENOBUFS},
        {ENOMEM, WSAENOBUFS},
        {EISCONN, WSAEISCONN},
        {ENOTCONN, WSAENOTCONN},
        {ETIMEDOUT, WSAETIMEDOUT},
        {ECONNREFUSED, WSAECONNREFUSED},
        {EHOSTDOWN, WSAEHOSTDOWN},
        {EHOSTUNREACH, WSAEHOSTUNREACH},
    };
    const auto found = std::ranges::find(kErrors, error, &std::pair<int, int>::first);
    return found != std::end(kErrors) ? found->second : WSASYSCALLFAILURE;
}

} // namespace quorvel
