#include "ChildProcess.h"
#include "Platform/Agent/detail/UnitFolders.h"
#include "SystemdTest.h"

using namespace std::chrono_literals;

namespace
{

const QByteArray untilToldTo = "ExecStartPre=/bin/sh -c 'until test -e %t/go; do sleep 0.05; done'\n";

/// Asks until the unit is in this state, as systemctl calls it; false when it never is.
bool comesToBe(const QByteArray &state)
{
    return QTest::qWaitFor([&] { return systemctl({u"is-active"_s, unit}) == state; }, 60000);
}

bool comesToBeEnabled(const QByteArray &state)
{
    return QTest::qWaitFor([&] { return systemctl({u"is-enabled"_s, unit}) == state; }, 60000);
}

TEST_F(SystemdTest, WithoutAUnitFileNothingIsLoadedOrUnloaded)
{
    EXPECT_FALSE(Job::isLoaded());
    EXPECT_FALSE(Job::load());
    EXPECT_FALSE(Job::unload());
}

TEST_F(SystemdTest, LoadingStartsTheUnitNowAndAtEachLogin)
{
    install(harmless);
    EXPECT_FALSE(Job::isLoaded());
    EXPECT_TRUE(Job::load());
    EXPECT_TRUE(Job::isLoaded());
    EXPECT_EQ(systemctl({u"is-active"_s, unit}), "active");
    EXPECT_EQ(systemctl({u"is-enabled"_s, unit}), "enabled");
}

TEST_F(SystemdTest, UnloadingStopsTheUnitUntilTheNextLogin)
{
    install(harmless);
    ASSERT_TRUE(Job::load());
    EXPECT_TRUE(Job::unload());
    EXPECT_FALSE(Job::isLoaded());
    EXPECT_EQ(systemctl({u"is-active"_s, unit}), "inactive");
    EXPECT_EQ(systemctl({u"is-enabled"_s, unit}), "enabled");
}

TEST_F(SystemdTest, EveryFolderThatSystemdSearchesIsSearched)
{
    const QString path = QString::fromUtf8(systemctl({u"show"_s, u"--property=UnitPath"_s, u"--value"_s}));
    const QStringList searched = path.split(u' ', Qt::SkipEmptyParts);
    EXPECT_GE(searched.size(), 10);
    for (const QString &folder : searched)
        EXPECT_TRUE(unitFolders().contains(folder)) << qPrintable(folder);
}

TEST_F(SystemdTest, AUnitIsSwitchedWhereverItsFileIs)
{
    for (const QString &folder :
         {units("VANTLE_TEST_DATA"), u"/etc/systemd/user"_s, units("XDG_RUNTIME_DIR"), u"/run/systemd/user"_s,
          u"/usr/local/lib/systemd/user"_s, u"/usr/lib/systemd/user"_s}) {
        install(harmless, folder);
        EXPECT_TRUE(Job::load()) << qPrintable(folder);
        EXPECT_EQ(systemctl({u"is-enabled"_s, unit}), "enabled") << qPrintable(folder);
        EXPECT_TRUE(Job::unload()) << qPrintable(folder);
        systemctl({u"disable"_s, unit});
        EXPECT_TRUE(QFile::remove(m_file));
    }
}

TEST_F(SystemdTest, AUnitThatFailsToStartIsNeitherLoadedNorEnabled)
{
    install("ExecStartPre=/bin/false\n" + harmless);
    EXPECT_FALSE(Job::load());
    EXPECT_EQ(systemctl({u"is-active"_s, unit}), "failed");
    EXPECT_EQ(systemctl({u"is-enabled"_s, unit}), "disabled");
}

TEST_F(SystemdTest, AUnitThatWasEnabledAndFailsToStartIsEnabledNoMore)
{
    install("ExecStartPre=/bin/false\n" + harmless);
    systemctl({u"enable"_s, unit});
    EXPECT_FALSE(Job::load());
    EXPECT_EQ(systemctl({u"is-enabled"_s, unit}), "disabled");
}

TEST_F(SystemdTest, AUnitThatIsNeverReadyKeepsNobodyWaiting)
{
    install("Type=notify\nTimeoutStartSec=2\n" + harmless);
    Awaited<bool> answer;
    Job::manager().load(answer.take());
    ASSERT_TRUE(comesToBe("activating"));
    EXPECT_FALSE(answer.isGiven()) << "the manager has not said yet what comes of it";
    EXPECT_FALSE(answer.value());
    EXPECT_EQ(systemctl({u"is-enabled"_s, unit}), "disabled");
}

TEST_F(SystemdTest, AUnitThatIgnoresItsEndKeepsNobodyWaiting)
{
    install("ExecStop=/bin/sleep infinity\nTimeoutStopSec=2\n" + harmless);
    ASSERT_TRUE(Job::load());
    Awaited<bool> answer;
    Job::manager().unload(answer.take());
    ASSERT_TRUE(comesToBe("deactivating"));
    EXPECT_FALSE(answer.isGiven());
    EXPECT_TRUE(answer.value());
}

TEST_F(SystemdTest, AChangeOfTheUnitsFileIsSeen)
{
    install("ExecStartPre=/bin/false\n" + harmless);
    ASSERT_FALSE(Job::load());
    QFile file(m_file);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Service]\n" + harmless);
    file.close();
    EXPECT_TRUE(Job::load());
}

/// A program that ends as soon as it has been told to load the job.
bool endsWhileLoading()
{
    return inChildProcess([] {
        Job::manager().load([](bool) {});
        Job::manager().finish(900ms);
        return true;
    });
}

TEST_F(SystemdTest, AnEndMeanwhileLosesNoLoading)
{
    install(untilToldTo + harmless);
    ASSERT_TRUE(endsWhileLoading());
    EXPECT_TRUE(comesToBe("activating"));
    EXPECT_EQ(systemctl({u"is-enabled"_s, unit}), "disabled") << "it has not started yet";
    tellToGoOn();
    EXPECT_TRUE(comesToBe("active"));
    EXPECT_TRUE(comesToBeEnabled("enabled"));
}

TEST_F(SystemdTest, AStartThatFailsAfterTheEndDoesNotStayEnabled)
{
    install(untilToldTo + "ExecStartPre=/bin/false\n" + harmless);
    systemctl({u"enable"_s, unit});
    ASSERT_TRUE(endsWhileLoading());
    EXPECT_TRUE(comesToBe("activating"));
    tellToGoOn();
    EXPECT_TRUE(comesToBe("failed"));
    EXPECT_TRUE(comesToBeEnabled("disabled"));
}

TEST_F(SystemdTest, AnEndMeanwhileLosesNoUnloading)
{
    install("ExecStop=/bin/sleep infinity\nTimeoutStopSec=infinity\n" + harmless);
    ASSERT_TRUE(Job::load());
    Job::manager().unload([](bool) {});
    Job::manager().finish(900ms);
    EXPECT_TRUE(comesToBe("deactivating"));
}

TEST_F(SystemdTest, AUnitOnItsWayUpIsLoaded)
{
    install("Type=notify\nTimeoutStartSec=infinity\n" + harmless);
    systemctl({u"start"_s, u"--no-block"_s, unit});
    ASSERT_TRUE(comesToBe("activating"));
    EXPECT_TRUE(Job::isLoaded());
}

TEST_F(SystemdTest, AUnitThatReloadsIsLoaded)
{
    install("ExecReload=/bin/sleep infinity\n" + harmless);
    ASSERT_TRUE(Job::load());
    systemctl({u"reload"_s, u"--no-block"_s, unit});
    ASSERT_TRUE(comesToBe("reloading"));
    EXPECT_TRUE(Job::isLoaded());
}

TEST_F(SystemdTest, AUnitOnItsWayDownIsNotLoaded)
{
    install("ExecStop=/bin/sleep infinity\nTimeoutStopSec=infinity\n" + harmless);
    ASSERT_TRUE(Job::load());
    systemctl({u"stop"_s, u"--no-block"_s, unit});
    ASSERT_TRUE(comesToBe("deactivating"));
    EXPECT_FALSE(Job::isLoaded());
}

TEST_F(SystemdTest, ALoadedUnitStaysLoadedWhenItsFileIsGone)
{
    install(harmless);
    ASSERT_TRUE(Job::load());
    ASSERT_TRUE(QFile::remove(m_file));
    EXPECT_TRUE(Job::isLoaded());
    EXPECT_FALSE(Job::unload());
    EXPECT_TRUE(Job::isLoaded());
}

} // namespace
