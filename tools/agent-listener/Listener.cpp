#include "Listener.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string_view>

namespace
{

constexpr std::string_view answer = "HTTP/1.1 200 OK\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
constexpr qsizetype requestLimit = 65536;

/// A socket that listens on this port; -1 when something else does.
int listener(quint16 port)
{
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    const int yes = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0 &&
        ::listen(socket, 16) == 0)
        return socket;
    ::close(socket);
    return -1;
}

bool isWhole(const QByteArray &request)
{
    const auto headEnd = request.indexOf("\r\n\r\n");
    if (headEnd < 0)
        return false;
    constexpr QByteArrayView field = "\r\ncontent-length:";
    const QByteArray head = request.left(headEnd + 2).toLower();
    const auto length = head.indexOf(field);
    if (length < 0)
        return true;
    const auto value =
        head.mid(length + field.size(), head.indexOf("\r\n", length + 2) - length - field.size());
    return request.size() >= headEnd + 4 + value.trimmed().toInt();
}

/// What the client sends: a complete request, or the bytes received before a second without any.
QByteArray readRequest(int connection)
{
    const timeval second{1, 0};
    ::setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &second, sizeof second);
    QByteArray request;
    std::array<char, 4096> buffer{};
    while (!isWhole(request) && request.size() < requestLimit) {
        const auto count = ::recv(connection, buffer.data(), buffer.size(), 0);
        if (count <= 0)
            break;
        request.append(buffer.data(), count);
    }
    return request;
}

} // namespace

void listenOnLoopback(quint16 port, const std::function<void()> &listening,
                      const std::function<void(const QByteArray &request)> &received)
{
    const int socket = listener(port);
    if (socket < 0)
        return;
    std::signal(SIGPIPE, SIG_IGN);
    listening();
    for (;;) {
        const int connection = ::accept(socket, nullptr, nullptr);
        if (connection < 0)
            continue;
        const QByteArray request = readRequest(connection);
        [[maybe_unused]] const auto sent = ::send(connection, answer.data(), answer.size(), 0);
        ::close(connection);
        received(request);
    }
}
