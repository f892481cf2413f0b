#include "SystemdTest.h"

#include <QDir>
#include <QDirIterator>

namespace
{

/// A unit that a package has installed and enabled for all users. Disabling does not change that; masking,
/// which would, also prevents every other start.
class EnabledForAllTest : public SystemdTest
{
protected:
    void TearDown() override { QFile::remove(m_link); }

    void installForAll(const QByteArray &service)
    {
        install(service, u"/usr/lib/systemd/user"_s);
        QDir().mkpath(m_wanted);
        ASSERT_TRUE(QFile::link(m_file, m_link));
        systemctl({u"daemon-reload"_s});
        ASSERT_EQ(systemctl({u"is-enabled"_s, unit}), "enabled");
    }

    /// What is below the user's own folder of units.
    static QStringList ownEntries()
    {
        QStringList entries;
        QDirIterator all(units("VANTLE_TEST_CONFIG"), QDir::Files | QDir::System,
                         QDirIterator::Subdirectories);
        while (all.hasNext())
            entries << all.next();
        return entries;
    }

private:
    const QString m_wanted = u"/etc/systemd/user/default.target.wants"_s;
    const QString m_link = m_wanted + u'/' + unit;
};

TEST_F(EnabledForAllTest, UnloadingStopsItUntilTheNextLoginToo)
{
    installForAll(harmless);
    ASSERT_TRUE(Job::load());
    EXPECT_TRUE(Job::unload());
    EXPECT_EQ(systemctl({u"is-active"_s, unit}), "inactive");
    EXPECT_EQ(systemctl({u"is-enabled"_s, unit}), "enabled");
}

TEST_F(EnabledForAllTest, AFailedStartLeavesItEnabledForAllAndStartable)
{
    installForAll("ExecStartPre=/bin/false\n" + harmless);
    systemctl({u"enable"_s, unit});
    ASSERT_EQ(ownEntries().size(), 1) << "the user's own link";
    EXPECT_FALSE(Job::load());
    EXPECT_EQ(ownEntries(), QStringList());
    EXPECT_EQ(systemctl({u"is-enabled"_s, unit}), "enabled");
    EXPECT_EQ(systemctl({u"show"_s, u"--property=LoadState"_s, u"--value"_s, unit}), "loaded")
        << "masked, it could not be started by hand either";
}

TEST_F(EnabledForAllTest, MaskedByTheUserItStaysMaskedAndIsNotLoaded)
{
    installForAll(harmless);
    ASSERT_TRUE(Job::load());
    systemctl({u"disable"_s, unit});
    systemctl({u"mask"_s, unit});
    EXPECT_TRUE(Job::isLoaded()) << "masking does not stop it";
    EXPECT_TRUE(Job::unload());
    EXPECT_FALSE(Job::load());
    EXPECT_TRUE(systemctl({u"is-enabled"_s, unit}).startsWith("masked"));
    systemctl({u"unmask"_s, unit});
    EXPECT_TRUE(Job::load());
}

} // namespace
