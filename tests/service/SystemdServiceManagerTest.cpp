#include "LaunchAgent/LaunchAgent.h"
#include "Platform/Agent/detail/ToolOutput.h"

#include <QDeadlineTimer>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const QString unit = u"com.vantle.agent.service"_s;
const QByteArray harmless = "ExecStart=/bin/sleep infinity\n";

QString units(const char *folder)
{
    return qEnvironmentVariable(folder) + u"/systemd/user/"_s;
}

QByteArray systemctl(const QStringList &arguments)
{
    return toolOutput(u"/usr/bin/systemctl"_s, QStringList{u"--user"_s} + arguments)
        .value_or(QByteArray())
        .trimmed();
}

/// Asks until the unit is in this state, as systemctl calls it; false when it never is.
bool comesToBe(const QByteArray &state)
{
    const QDeadlineTimer deadline(60000);
    while (systemctl({u"is-active"_s, unit}) != state) {
        if (deadline.hasExpired())
            return false;
    }
    return true;
}

/// Beside a systemd that knows no unit of ours yet.
struct SystemdTest : testing::Test {
    SystemdTest()
    {
        qputenv("XDG_CONFIG_HOME", qgetenv("VANTLE_TEST_CONFIG"));
        qputenv("XDG_DATA_HOME", qgetenv("VANTLE_TEST_DATA"));
    }

    ~SystemdTest() override
    {
        systemctl({u"kill"_s, u"--signal=KILL"_s, unit});
        systemctl({u"disable"_s, u"--now"_s, unit});
        for (const auto *folder : {"VANTLE_TEST_CONFIG", "VANTLE_TEST_DATA"})
            QFile::remove(units(folder) + unit);
        systemctl({u"daemon-reload"_s});
        systemctl({u"reset-failed"_s});
    }

    static void install(const QByteArray &service, const char *folder = "VANTLE_TEST_CONFIG")
    {
        QFile file(units(folder) + unit);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Service]\n" + service + "[Install]\nWantedBy=default.target\n");
        file.close();
        systemctl({u"daemon-reload"_s});
    }
};

TEST_F(SystemdTest, WithoutAUnitFileNothingIsLoadedOrUnloaded)
{
    EXPECT_FALSE(LaunchAgent::isLoaded());
    EXPECT_FALSE(LaunchAgent::load());
    EXPECT_FALSE(LaunchAgent::unload());
}

TEST_F(SystemdTest, LoadingStartsTheUnitNowAndAtEachLogin)
{
    install(harmless);
    EXPECT_FALSE(LaunchAgent::isLoaded());
    EXPECT_TRUE(LaunchAgent::load());
    EXPECT_TRUE(LaunchAgent::isLoaded());
    EXPECT_EQ(systemctl({u"is-active"_s, unit}), "active");
    EXPECT_EQ(systemctl({u"is-enabled"_s, unit}), "enabled");
}

TEST_F(SystemdTest, UnloadingStopsTheUnitUntilTheNextLogin)
{
    install(harmless);
    ASSERT_TRUE(LaunchAgent::load());
    EXPECT_TRUE(LaunchAgent::unload());
    EXPECT_FALSE(LaunchAgent::isLoaded());
    EXPECT_EQ(systemctl({u"is-active"_s, unit}), "inactive");
    EXPECT_EQ(systemctl({u"is-enabled"_s, unit}), "enabled");
}

TEST_F(SystemdTest, AUnitFileInTheDataFolderCounts)
{
    install(harmless, "VANTLE_TEST_DATA");
    EXPECT_TRUE(LaunchAgent::load());
    EXPECT_TRUE(LaunchAgent::unload());
}

TEST_F(SystemdTest, AUnitThatFailsToStartIsNotLoaded)
{
    install("ExecStartPre=/bin/false\n" + harmless);
    EXPECT_FALSE(LaunchAgent::load());
    EXPECT_EQ(systemctl({u"is-active"_s, unit}), "failed");
}

TEST_F(SystemdTest, AUnitOnItsWayUpIsLoaded)
{
    install("Type=notify\nTimeoutStartSec=infinity\n" + harmless);
    systemctl({u"start"_s, u"--no-block"_s, unit});
    ASSERT_TRUE(comesToBe("activating"));
    EXPECT_TRUE(LaunchAgent::isLoaded());
}

TEST_F(SystemdTest, AUnitThatReloadsIsLoaded)
{
    install("ExecReload=/bin/sleep infinity\n" + harmless);
    ASSERT_TRUE(LaunchAgent::load());
    systemctl({u"reload"_s, u"--no-block"_s, unit});
    ASSERT_TRUE(comesToBe("reloading"));
    EXPECT_TRUE(LaunchAgent::isLoaded());
}

TEST_F(SystemdTest, AUnitOnItsWayDownIsNotLoaded)
{
    install("ExecStop=/bin/sleep infinity\nTimeoutStopSec=infinity\n" + harmless);
    ASSERT_TRUE(LaunchAgent::load());
    systemctl({u"stop"_s, u"--no-block"_s, unit});
    ASSERT_TRUE(comesToBe("deactivating"));
    EXPECT_FALSE(LaunchAgent::isLoaded());
}

TEST_F(SystemdTest, ALoadedUnitStaysLoadedWhenItsFileIsGone)
{
    install(harmless);
    ASSERT_TRUE(LaunchAgent::load());
    ASSERT_TRUE(QFile::remove(units("VANTLE_TEST_CONFIG") + unit));
    EXPECT_TRUE(LaunchAgent::isLoaded());
    EXPECT_FALSE(LaunchAgent::unload());
    EXPECT_TRUE(LaunchAgent::isLoaded());
}

} // namespace
