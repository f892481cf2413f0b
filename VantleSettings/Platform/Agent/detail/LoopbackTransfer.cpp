#include "Platform/Agent/detail/LoopbackTransfer.h"

#include <QByteArrayView>
#include <QDeadlineTimer>

#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace
{

/// How long to wait for the listener to close the connection once it has begun to answer.
constexpr std::chrono::milliseconds closingTime{90};

#ifdef MSG_NOSIGNAL
constexpr int sendFlags = MSG_NOSIGNAL;
#else
constexpr int sendFlags = 0;
#endif

/// A socket that never blocks and that child processes do not inherit; -1 on failure.
int newSocket()
{
#ifdef SOCK_CLOEXEC
    // In one call, because another thread may start a program meanwhile.
    return ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
#else
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    ::fcntl(socket, F_SETFD, FD_CLOEXEC);
    ::fcntl(socket, F_SETFL, O_NONBLOCK);
    return socket;
#endif
}

/// A connection that raises no SIGPIPE.
class Connection
{
public:
    explicit Connection(quint16 port) : m_socket(newSocket())
    {
#ifdef SO_NOSIGPIPE
        const int yes = 1;
        ::setsockopt(m_socket, SOL_SOCKET, SO_NOSIGPIPE, &yes, sizeof yes);
#endif
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (::connect(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) < 0 &&
            errno != EINPROGRESS)
            close();
    }
    ~Connection() { close(); }
    Q_DISABLE_COPY_MOVE(Connection)

    /// False when there is no listener, or when it takes longer than `timeout` to read the next part.
    bool send(QByteArrayView bytes, std::chrono::milliseconds timeout) const
    {
        while (!bytes.isEmpty()) {
            if (!waitFor(POLLOUT, timeout))
                return false;
            const auto sent = ::send(m_socket, bytes.data(), size_t(bytes.size()), sendFlags);
            if (sent < 0)
                return false;
            bytes = bytes.sliced(sent);
        }
        return true;
    }

    /// Reads and drops a part of the answer; false at its end, on failure, or when nothing arrives in time.
    bool receive(std::chrono::milliseconds timeout) const
    {
        std::array<char, 4096> unread{};
        return waitFor(POLLIN, timeout) && ::recv(m_socket, unread.data(), unread.size(), 0) > 0;
    }

private:
    bool waitFor(short event, std::chrono::milliseconds timeout) const
    {
        pollfd socket{m_socket, event, 0};
        return m_socket >= 0 && ::poll(&socket, 1, int(timeout.count())) == 1;
    }

    void close()
    {
        if (m_socket >= 0)
            ::close(m_socket);
        m_socket = -1;
    }

    int m_socket;
};

} // namespace

void transferToLoopback(quint16 port, const QByteArray &request, std::chrono::milliseconds timeout)
{
    const Connection connection(port);
    if (!connection.send(request, timeout) || !connection.receive(timeout))
        return;
    const QDeadlineTimer closing(closingTime);
    while (!closing.hasExpired() && connection.receive(std::chrono::milliseconds(closing.remainingTime()))) {
    }
}
