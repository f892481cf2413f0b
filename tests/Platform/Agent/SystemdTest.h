#pragma once

#include "Job.h"
#include "Platform/Agent/detail/ToolRun.h"

#include <QFile>

#include <gtest/gtest.h>

#include <optional>

using namespace Qt::StringLiterals;

inline const QString unit = u"com.vantle.agent.service"_s;
inline const QByteArray harmless = "ExecStart=/bin/sleep infinity\n";

/// The folder of the variable's base in which units lie.
inline QString units(const char *variable)
{
    return qEnvironmentVariable(variable) + u"/systemd/user"_s;
}

inline QByteArray systemctl(const QStringList &arguments)
{
    Awaited<std::optional<QByteArray>> output;
    ToolRun::reading(u"/usr/bin/systemctl"_s, QStringList{u"--user"_s} + arguments, output.take());
    return output.value().value_or(QByteArray()).trimmed();
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
        if (!m_file.isEmpty())
            QFile::remove(m_file);
        QFile::remove(qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/go"_s);
        systemctl({u"daemon-reload"_s});
        systemctl({u"reset-failed"_s});
    }

    void install(const QByteArray &service, const QString &folder = units("VANTLE_TEST_CONFIG"))
    {
        m_file = folder + u'/' + unit;
        QFile file(m_file);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(m_file);
        file.write("[Service]\n" + service + "[Install]\nWantedBy=default.target\n");
        file.close();
        systemctl({u"daemon-reload"_s});
    }

    /// Lets a unit go on that waits until it is told to.
    static void tellToGoOn()
    {
        QFile file(qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/go"_s);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }

    QString m_file; ///< the installed unit
};
