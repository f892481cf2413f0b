#include "TestEnvironment.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QEvent>
#include <QString>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace
{

void failOnWarning(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    // The offscreen platform has no window manager to tell sizes to, and says so of every window.
    if (message.startsWith(u"This plugin does not support"))
        return;
    ADD_FAILURE() << "Qt warned: " << message.toStdString();
    if (type == QtFatalMsg)
        std::abort();
}

class HomePerCase : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo &) override
    {
        m_home = std::make_unique<QTemporaryDir>();
        ASSERT_TRUE(m_home->isValid());
        qputenv("HOME", m_home->path().toUtf8());
    }

    void OnTestEnd(const testing::TestInfo &) override
    {
        // Objects that write a file on destruction must do so while the home directory exists.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_home.reset();
    }

    std::unique_ptr<QTemporaryDir> m_home;
};

} // namespace

int runAllTests(int argc, char **argv)
{
    testing::InitGoogleMock(&argc, argv);
    qInstallMessageHandler(failOnWarning);
    for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"})
        qunsetenv(variable);
    testing::UnitTest::GetInstance()->listeners().Append(new HomePerCase);
    const int status = RUN_ALL_TESTS();
    if (testing::UnitTest::GetInstance()->test_to_run_count() == 0) {
        std::fputs("no test was run\n", stderr);
        return 1;
    }
    return status;
}
