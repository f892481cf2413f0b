#include "FakeAgent.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string_view>
#include <utility>

namespace
{

constexpr std::string_view endOfRequest = "\r\n\r\n{}";
constexpr std::string_view answer = "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\n{}";

/// Prevents SIGPIPE. Systems without this flag have a socket option for it, which listen() sets.
#ifdef MSG_NOSIGNAL
constexpr int sendFlags = MSG_NOSIGNAL;
#else
constexpr int sendFlags = 0;
#endif

bool write(int connection, std::string_view text)
{
    return ::send(connection, text.data(), text.size(), sendFlags) > 0;
}

/// Processes events until number() has grown to `count`; false when it has not grown for a minute. The whole
/// wait has no limit because it depends on the machine.
template <class Number>
bool processEventsUntil(std::size_t count, Number number)
{
    constexpr int timeout = 60000; // ms
    QDeadlineTimer deadline(timeout);
    for (std::size_t reached = number(); reached < count;) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        const std::size_t now = number();
        if (now != std::exchange(reached, now))
            deadline.setRemainingTime(timeout);
    }
    return true;
}

} // namespace

FakeAgent::FakeAgent(Behaviour behaviour, quint16 port)
    : m_behaviour(behaviour), m_listener(::socket(AF_INET, SOCK_STREAM, 0))
{
    const int yes = 1;
    ::setsockopt(m_listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    if (::bind(m_listener, generic, size) != 0 || ::listen(m_listener, 16) != 0 ||
        ::getsockname(m_listener, generic, &size) != 0 || ::pipe(m_stop.data()) != 0)
        qFatal("the fake agent can't listen");
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { listen(); });
}

FakeAgent::~FakeAgent()
{
    ::close(m_stop[1]);
    m_thread.join();
    ::close(m_stop[0]);
    ::close(m_listener);
    for (const int connection : m_open)
        ::close(connection);
}

std::vector<std::string> FakeAgent::requests() const
{
    const std::scoped_lock lock(m_mutex);
    return m_requests;
}

std::vector<std::string> FakeAgent::takeRequests()
{
    const std::scoped_lock lock(m_mutex);
    return std::exchange(m_requests, {});
}

std::size_t FakeAgent::connections() const
{
    const std::scoped_lock lock(m_mutex);
    return m_connections;
}

bool FakeAgent::waitForRequests(std::size_t count) const
{
    return processEventsUntil(count, [&] { return requests().size(); });
}

bool FakeAgent::waitForConnections(std::size_t count) const
{
    return processEventsUntil(count, [&] { return connections(); });
}

/// False when the agent is to stop or after this time; a negative time is no limit.
bool FakeAgent::waitUntilReadable(int socket, int milliseconds) const
{
    std::array<pollfd, 2> waiting{{{m_stop[0], POLLIN, 0}, {socket, POLLIN, 0}}};
    ::poll(waiting.data(), waiting.size(), milliseconds);
    return waiting[0].revents == 0 && waiting[1].revents != 0;
}

void FakeAgent::listen()
{
    while (waitUntilReadable(m_listener)) {
        const int connection = ::accept(m_listener, nullptr, nullptr);
        if (connection < 0)
            continue;
#ifdef SO_NOSIGPIPE
        const int yes = 1;
        ::setsockopt(connection, SOL_SOCKET, SO_NOSIGPIPE, &yes, sizeof yes);
#endif
        serve(connection);
        const std::scoped_lock lock(m_mutex);
        ++m_connections;
    }
}

std::string FakeAgent::readRequest(int connection) const
{
    std::string request;
    std::array<char, 4096> buffer{};
    while (!request.ends_with(endOfRequest) && waitUntilReadable(connection)) {
        const auto count = ::recv(connection, buffer.data(), buffer.size(), 0);
        if (count <= 0)
            break;
        request.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return request;
}

void FakeAgent::serve(int connection)
{
    if (m_behaviour != Behaviour::closesUnread) {
        std::string request = readRequest(connection);
        const std::scoped_lock lock(m_mutex);
        if (request.ends_with(endOfRequest))
            m_requests.push_back(std::move(request));
    }
    switch (m_behaviour) {
    case Behaviour::answersSlowly:
        waitUntilReadable(m_stop[0], 20);
        write(connection, answer);
        break;
    case Behaviour::answers:
        write(connection, answer);
        break;
    case Behaviour::answersGarbage:
        write(connection, std::string(100000, '\xff'));
        break;
    case Behaviour::answersEndlessly:
        while (write(connection, answer)) {
        }
        break;
    case Behaviour::closesUnread:
        break;
    case Behaviour::keepsOpen:
        write(connection, answer);
        m_open.push_back(connection);
        return;
    case Behaviour::isSilent:
        m_open.push_back(connection);
        return;
    }
    ::close(connection);
}
