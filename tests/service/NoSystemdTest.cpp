#include "ChildProcess.h"
#include "HomeFiles.h"
#include "Platform/Agent/detail/LaunchctlServiceManager.h"
#include "Platform/Agent/detail/SystemdServiceManager.h"

#include <QDBusConnection>
#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace
{

/// What a process of its own, that knows this bus, says: the connection to the bus lasts as long as a
/// process.
bool saysNotLoaded(const QByteArray &busAddress)
{
    return inChildProcess([&] {
        qputenv("DBUS_SESSION_BUS_ADDRESS", busAddress);
        return !SystemdServiceManager().isLoaded();
    });
}

/// A session bus on which no systemd is.
struct EmptyBus {
    QProcess daemon;
    QByteArray address;

    EmptyBus()
    {
        daemon.setStandardErrorFile(QProcess::nullDevice());
        daemon.start(u"dbus-daemon"_s,
                     {u"--config-file=" VANTLE_BUS_CONFIGURATION ""_s, u"--nofork"_s, u"--print-address"_s});
        while (!address.endsWith('\n') && daemon.waitForReadyRead())
            address += daemon.readAllStandardOutput();
        address = address.trimmed();
    }

    ~EmptyBus()
    {
        daemon.terminate();
        daemon.waitForFinished();
    }
};

struct NoSystemd : testing::Test {
    NoSystemd() { qunsetenv("XDG_RUNTIME_DIR"); }
};

TEST_F(NoSystemd, WithoutASessionBusNothingIsLoaded)
{
    EXPECT_TRUE(saysNotLoaded(""));
}

TEST_F(NoSystemd, ABusIsNeverStartedForTheQuestion)
{
    // Were it tried, the launcher would be found here and leave its mark.
    putHomeFile(u"bin/dbus-launch"_s, "#!/bin/sh\ntouch \"$HOME/launched\"\n");
    QFile::setPermissions(homePath(u"bin/dbus-launch"_s), QFile::ExeOwner | QFile::ReadOwner);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", homePath(u"bin"_s).toUtf8() + ":" + path);
    EXPECT_TRUE(saysNotLoaded(""));
    EXPECT_TRUE(saysNotLoaded("autolaunch:"));
    EXPECT_TRUE(saysNotLoaded("unix:path=/nonexistent/bus;autolaunch:"));
    qputenv("PATH", path);
    EXPECT_EQ(homeFile(u"launched"_s), std::nullopt);
}

TEST_F(NoSystemd, ABusThatIsGoneAnswersNothing)
{
    EXPECT_TRUE(saysNotLoaded("unix:path=/nonexistent/bus"));
    EXPECT_TRUE(saysNotLoaded("no address"));
}

TEST_F(NoSystemd, ABusWithoutSystemdAnswersAtOnce)
{
    const EmptyBus bus;
    ASSERT_FALSE(bus.address.isEmpty());
    EXPECT_TRUE(saysNotLoaded(bus.address));
}

TEST_F(NoSystemd, ASystemdThatNeverAnswersIsGivenUp)
{
    const EmptyBus bus;
    const pid_t silent = ::fork();
    ASSERT_GE(silent, 0);
    if (silent == 0) {
        auto connection = QDBusConnection::connectToBus(QString::fromUtf8(bus.address), u"silent"_s);
        if (connection.registerService(u"org.freedesktop.systemd1"_s))
            ::raise(SIGSTOP);
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(silent, &status, WUNTRACED), silent);
    EXPECT_TRUE(WIFSTOPPED(status));
    EXPECT_TRUE(saysNotLoaded(bus.address));
    ::kill(silent, SIGKILL);
    ::waitpid(silent, &status, 0);
}

TEST_F(NoSystemd, WithoutLaunchdsToolNothingIsLoadedThereEither)
{
    EXPECT_FALSE(!LaunchctlServiceManager::isAvailable() && LaunchctlServiceManager().isLoaded());
}

TEST_F(NoSystemd, WithoutAUnitFileNothingIsLoadedOrUnloaded)
{
    SystemdServiceManager manager;
    EXPECT_FALSE(manager.load());
    EXPECT_FALSE(manager.unload());
}

} // namespace
