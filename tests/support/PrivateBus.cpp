#include "PrivateBus.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

std::unique_ptr<QProcess> daemon;

/// Starts the bus before the first case, so that the program's own connection finds it, and ends it.
class BusEnvironment : public testing::Environment
{
    void SetUp() override
    {
        daemon = std::make_unique<QProcess>();
        daemon->start(u"dbus-daemon"_s,
                      {u"--config-file=" VANTLE_BUS_CONFIGURATION ""_s, u"--nofork"_s, u"--print-address"_s});
        ASSERT_TRUE(daemon->waitForReadyRead()) << qPrintable(daemon->errorString());
        qputenv("DBUS_SESSION_BUS_ADDRESS", daemon->readLine().trimmed());
        ASSERT_TRUE(PrivateBus::services().isConnected());
    }

    void TearDown() override
    {
        daemon->terminate(); // it takes its socket with it
        daemon->waitForFinished();
        daemon.reset();
    }
};

const testing::Environment *const environment = testing::AddGlobalTestEnvironment(new BusEnvironment);

} // namespace

QDBusConnection PrivateBus::services()
{
    static const QDBusConnection connection =
        QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), u"services"_s);
    return connection;
}
