#include "Awaited.h"
#include "ChildProcess.h"
#include "HomeFiles.h"
#include "Platform/Agent/detail/LaunchctlServiceManager.h"
#include "Platform/Agent/detail/SystemdServiceManager.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QFile>
#include <QProcess>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

/// What a process of its own, that knows this bus, answers: the connection to the bus lasts as long as a
/// process.
bool saysNotLoaded(const QByteArray &busAddress)
{
    return inChildProcess([&] {
        qputenv("DBUS_SESSION_BUS_ADDRESS", busAddress);
        SystemdServiceManager manager;
        Awaited<bool> answer;
        manager.isLoaded(0ms, answer.take());
        return !answer.value() && answer.isGiven();
    });
}

/// A session bus with nobody on it. It starts only the services that are described in the home's folder
/// "services".
struct EmptyBus {
    QProcess daemon;
    QByteArray address;

    EmptyBus()
    {
        QFile usual(QStringLiteral(VANTLE_BUS_CONFIGURATION));
        EXPECT_TRUE(usual.open(QIODevice::ReadOnly));
        const QByteArray folder = homePath(u"services"_s).toUtf8();
        putHomeFile(u"bus.conf"_s, usual.readAll().replace("</busconfig>", "<servicedir>" + folder +
                                                                               "</servicedir></busconfig>"));
        daemon.setStandardErrorFile(QProcess::nullDevice());
        daemon.start(u"dbus-daemon"_s,
                     {u"--config-file="_s + homePath(u"bus.conf"_s), u"--nofork"_s, u"--print-address"_s});
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

/// Tells every caller that the unit is active.
class ActiveUnit : public QDBusVirtualObject
{
public:
    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(u"active"_s))));
    }
};

/// A process that stands for systemd on this bus; it has stopped, and answers once it is continued.
pid_t stoppedSystemd(const QByteArray &busAddress)
{
    const pid_t process = ::fork();
    if (process == 0) {
        auto connection = QDBusConnection::connectToBus(QString::fromUtf8(busAddress), u"systemd"_s);
        // The event loop of this thread is shared with the parent and its other children; a new one is not.
        QThread thread;
        ActiveUnit unit;
        unit.moveToThread(&thread);
        thread.start();
        connection.registerVirtualObject(u"/"_s, &unit, QDBusConnection::SubPath);
        if (connection.registerService(u"org.freedesktop.systemd1"_s))
            ::raise(SIGSTOP);
        thread.wait();
        ::_exit(0);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(process, &status, WUNTRACED), process);
    EXPECT_TRUE(WIFSTOPPED(status));
    return process;
}

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

TEST_F(NoSystemd, TheBusIsNeverAskedToStartIt)
{
    putHomeFile(u"start"_s, "#!/bin/sh\ntouch \"" + homePath(u"started"_s).toUtf8() + "\"\n");
    QFile::setPermissions(homePath(u"start"_s), QFile::ExeOwner | QFile::ReadOwner);
    putHomeFile(u"services/org.freedesktop.systemd1.service"_s,
                "[D-BUS Service]\nName=org.freedesktop.systemd1\nExec=" + homePath(u"start"_s).toUtf8() +
                    "\n");
    const EmptyBus bus;
    ASSERT_FALSE(bus.address.isEmpty());
    EXPECT_TRUE(saysNotLoaded(bus.address));
    EXPECT_EQ(homeFile(u"started"_s), std::nullopt);
}

TEST_F(NoSystemd, ASystemdThatAnswersLateIsNotWaitedForAndBelievedThen)
{
    const EmptyBus bus;
    const pid_t systemd = stoppedSystemd(bus.address);
    EXPECT_TRUE(inChildProcess([&] {
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address);
        SystemdServiceManager manager;
        Awaited<bool> answer;
        manager.isLoaded(100ms, answer.take());
        const bool early = answer.isGiven();
        ::kill(systemd, SIGCONT);
        return !early && answer.value();
    }));
    ::kill(systemd, SIGKILL);
    int status = 0;
    ::waitpid(systemd, &status, 0);
}

TEST_F(NoSystemd, WithoutLaunchdsToolNothingIsLoadedThereEither)
{
    ASSERT_FALSE(LaunchctlServiceManager::isAvailable());
    Awaited<bool> answer;
    LaunchctlServiceManager().isLoaded(0ms, answer.take());
    EXPECT_FALSE(answer.value());
}

TEST_F(NoSystemd, WithoutAUnitFileNothingIsLoadedOrUnloaded)
{
    SystemdServiceManager manager;
    Awaited<bool> loaded;
    manager.load(loaded.take());
    ASSERT_TRUE(loaded.isGiven());
    EXPECT_FALSE(loaded.value());
    Awaited<bool> unloaded;
    manager.unload(unloaded.take());
    ASSERT_TRUE(unloaded.isGiven());
    EXPECT_FALSE(unloaded.value());
}

} // namespace
