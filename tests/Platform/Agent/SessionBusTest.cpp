#include "Platform/Agent/SessionBus.h"

#include "HomeFiles.h"

#include <QProcess>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

/// Takes callers and never answers them.
class SilentSocket
{
public:
    explicit SilentSocket(int backlog = 8) : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        const sockaddr_un address = socketAddress();
        EXPECT_EQ(::bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(m_socket, backlog), 0);
    }

    ~SilentSocket()
    {
        for (const int caller : m_callers)
            ::close(caller);
        ::close(m_socket);
    }
    Q_DISABLE_COPY_MOVE(SilentSocket)

    /// Fills the queue of connections, so that another client cannot connect.
    void fill()
    {
        const sockaddr_un address = socketAddress();
        do
            m_callers.push_back(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        while (::connect(m_callers.back(), reinterpret_cast<const sockaddr *>(&address), sizeof address) ==
               0);
    }

    static QByteArray path() { return homePath(u"bus"_s).toLocal8Bit(); }

private:
    static sockaddr_un socketAddress()
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::ranges::copy(path(), std::begin(address.sun_path));
        return address;
    }

    int m_socket;
    std::vector<int> m_callers;
};

struct SessionBus : testing::Test {
    ~SessionBus() override
    {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qunsetenv("XDG_RUNTIME_DIR");
    }

    /// Whether a program that is told this address still uses it.
    static bool isKept(const QByteArray &address)
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        abandonSilentSessionBus(50ms);
        return qgetenv("DBUS_SESSION_BUS_ADDRESS") == address;
    }
};

TEST_F(SessionBus, OneThatNeverAnswersIsAbandoned)
{
    const SilentSocket socket;
    EXPECT_FALSE(isKept("unix:path=" + SilentSocket::path()));
    EXPECT_FALSE(
        isKept("unix:guid=0123,path=" + SilentSocket::path().replace("/bus", "%2fbus") + ";autolaunch:"));
}

TEST_F(SessionBus, OneThatTakesNoMoreCallersIsAbandoned)
{
    SilentSocket socket(0);
    socket.fill();
    EXPECT_FALSE(isKept("unix:path=" + SilentSocket::path()));
}

TEST_F(SessionBus, OneInTheRuntimeFolderIsAbandonedToo)
{
    const SilentSocket socket;
    qputenv("XDG_RUNTIME_DIR", testHome().toLocal8Bit());
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    EXPECT_TRUE(hasSessionBus());
    abandonSilentSessionBus(50ms);
    EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS"), "unix:path=/dev/null");
}

TEST_F(SessionBus, OneThatAnswersIsKept)
{
    QProcess daemon;
    daemon.start(u"dbus-daemon"_s,
                 {u"--config-file=" VANTLE_BUS_CONFIGURATION ""_s, u"--nofork"_s, u"--print-address"_s});
    ASSERT_TRUE(daemon.waitForReadyRead());
    const QByteArray address = daemon.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    abandonSilentSessionBus(60s);
    EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS"), address);
    daemon.terminate();
    daemon.waitForFinished();
}

TEST_F(SessionBus, OneThatCannotBeReachedOrUnderstoodIsLeftToTheToolkit)
{
    EXPECT_TRUE(isKept("unix:path=/nonexistent/bus"));
    EXPECT_TRUE(isKept("unix:path=/dev/null"));
    EXPECT_TRUE(isKept("unix:path=/" + QByteArray(200, 'x')));
    EXPECT_TRUE(isKept("unix:abstract=/nobody-is-here"));
    EXPECT_TRUE(isKept("unix:tmpdir=/tmp"));
    EXPECT_TRUE(isKept("tcp:host=localhost,port=1"));
    EXPECT_TRUE(isKept("no address"));
}

TEST_F(SessionBus, NoneIsThereWithoutAnAddressOrASocket)
{
    EXPECT_FALSE(hasSessionBus());
    abandonSilentSessionBus(50ms);
    EXPECT_FALSE(qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"));
    qputenv("XDG_RUNTIME_DIR", testHome().toLocal8Bit());
    EXPECT_FALSE(hasSessionBus());
}

} // namespace
