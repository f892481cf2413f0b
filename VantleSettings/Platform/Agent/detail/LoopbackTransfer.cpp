#include "Platform/Agent/detail/LoopbackTransfer.h"

#include <QTimerEvent>

#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace
{

// Time is counted in ticks: when the main thread was held up, the turn that follows counts as one, so that a
// request never loses its time to us.
constexpr int timeoutTicks = 3;
constexpr int silentTick = 500;  // ms: 1.5 s until a silent listener is given up
constexpr int answeredTick = 30; // ms: what has been answered needs no patience, only time to close

bool isRetryable(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR || error == EINPROGRESS ||
           error == ENOTCONN;
}

/// A connection that never blocks, is not inherited by child processes and raises no SIGPIPE; -1 on failure.
int connectionTo(quint16 port)
{
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    if (socket < 0)
        return -1;
    ::fcntl(socket, F_SETFD, FD_CLOEXEC);
    ::fcntl(socket, F_SETFL, O_NONBLOCK);
#ifdef SO_NOSIGPIPE
    const int yes = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_NOSIGPIPE, &yes, sizeof yes);
#endif
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::connect(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0 ||
        isRetryable(errno))
        return socket;
    ::close(socket);
    return -1;
}

#ifdef MSG_NOSIGNAL
constexpr int sendFlags = MSG_NOSIGNAL;
#else
constexpr int sendFlags = 0;
#endif

} // namespace

LoopbackTransfer::LoopbackTransfer()
{
    connect(&m_writable, &QSocketNotifier::activated, this, &LoopbackTransfer::proceed);
    connect(&m_readable, &QSocketNotifier::activated, this, &LoopbackTransfer::proceed);
}

LoopbackTransfer::~LoopbackTransfer()
{
    stop();
}

bool LoopbackTransfer::start(quint16 port, const QByteArray &request)
{
    stop();
    m_socket = connectionTo(port);
    if (m_socket < 0)
        return false;
    m_unsent = request;
    m_answered = false;
    m_writable.setSocket(m_socket);
    m_readable.setSocket(m_socket);
    m_writable.setEnabled(true);
    moved();
    const QSignalBlocker quiet(this);
    send();
    return !isFree();
}

void LoopbackTransfer::proceed()
{
    if (isFree())
        return;
    if (m_unsent.isEmpty())
        receive();
    else
        send();
}

short LoopbackTransfer::awaitedEvents() const
{
    return m_unsent.isEmpty() ? POLLIN : POLLOUT;
}

void LoopbackTransfer::send()
{
    const auto sent = ::send(m_socket, m_unsent.constData(), static_cast<size_t>(m_unsent.size()), sendFlags);
    if (sent < 0) {
        if (!isRetryable(errno))
            end();
        return;
    }
    m_unsent.remove(0, sent);
    moved();
    if (m_unsent.isEmpty()) {
        m_writable.setEnabled(false);
        m_readable.setEnabled(true);
    }
}

void LoopbackTransfer::receive()
{
    std::array<char, 4096> unread{};
    const auto received = ::recv(m_socket, unread.data(), unread.size(), 0);
    if (received == 0 || (received < 0 && !isRetryable(errno))) {
        end();
    } else if (received > 0 && !m_answered) {
        m_answered = true;
        moved();
    }
}

void LoopbackTransfer::moved()
{
    m_quietTicks = 0;
    m_tick.start(m_answered ? answeredTick : silentTick, this);
}

void LoopbackTransfer::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_tick.timerId() && ++m_quietTicks == timeoutTicks)
        end();
}

void LoopbackTransfer::end()
{
    stop();
    Q_EMIT ended();
}

void LoopbackTransfer::stop()
{
    if (isFree())
        return;
    m_tick.stop();
    m_writable.setEnabled(false);
    m_readable.setEnabled(false);
    ::close(m_socket);
    m_socket = -1;
    m_unsent.clear();
}
