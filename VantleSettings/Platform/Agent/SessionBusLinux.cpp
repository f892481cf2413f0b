#include "Foundation/Seam.h"
#include "Platform/Agent/SessionBus.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Path.h"

#include <QByteArray>
#include <QString>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

using namespace Qt::StringLiterals;

namespace
{

constexpr auto addressVariable = "DBUS_SESSION_BUS_ADDRESS";

/// The socket of the user's bus where no address is given; empty when it isn't there.
QString defaultSocket()
{
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    const QString path = Path::appending(folder, u"bus"_s);
    return folder.startsWith(u'/') && Seam<FileSystem>::current().exists(path) ? path : QString();
}

/// The name of the bus's socket for `connect`, an abstract one with a zero byte in front; empty for a bus
/// that has another kind of address.
QByteArray socketName()
{
    const QByteArray address = qgetenv(addressVariable);
    if (address.isEmpty())
        return defaultSocket().toLocal8Bit();
    const QByteArray first = address.split(';').first();
    if (!first.startsWith("unix:"))
        return {};
    for (const QByteArray &part : first.mid(5).split(',')) {
        if (part.startsWith("path="))
            return QByteArray::fromPercentEncoding(part.mid(5));
        if (part.startsWith("abstract="))
            return '\0' + QByteArray::fromPercentEncoding(part.mid(9));
    }
    return {};
}

/// Connects without blocking; false only when the bus has too many connections waiting to be accepted.
bool acceptsConnections(int socket, const QByteArray &name)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (size_t(name.size()) >= sizeof address.sun_path)
        return true;
    std::ranges::copy(name, std::begin(address.sun_path));
    const auto length = socklen_t(offsetof(sockaddr_un, sun_path) + size_t(name.size()));
    return ::connect(socket, reinterpret_cast<const sockaddr *>(&address), length) == 0 || errno != EAGAIN;
}

/// Whether the bus answers the start of the authentication, which every client sends first. A bus that cannot
/// be reached at all counts as answering, because no call waits for it.
bool answersGreeting(int socket, const QByteArray &name, std::chrono::milliseconds limit)
{
    if (!acceptsConnections(socket, name))
        return false;
    const QByteArray user = QByteArray::number(::getuid()).toHex();
    const QByteArray greeting = '\0' + QByteArray("AUTH EXTERNAL ") + user + "\r\n";
    if (::send(socket, greeting.constData(), size_t(greeting.size()), MSG_NOSIGNAL) < 0)
        return true;
    pollfd answer{socket, POLLIN, 0};
    return ::poll(&answer, 1, int(limit.count())) != 0;
}

} // namespace

bool hasSessionBus()
{
    const QByteArray address = qgetenv(addressVariable);
    return address.isEmpty() ? !defaultSocket().isEmpty() : !address.contains("autolaunch:");
}

void abandonSilentSessionBus(std::chrono::milliseconds limit)
{
    const QByteArray name = socketName();
    if (name.isEmpty())
        return;
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket < 0)
        return;
    if (!answersGreeting(socket, name, limit))
        qputenv(addressVariable, "unix:path=/dev/null"); // no socket: connecting fails at once
    ::close(socket);
}
