#include "Platform/Window/QuitSignals.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <gtest/gtest.h>

#include <csignal>

namespace
{

TEST(QuitSignals, SignalsIgnoredAtTheStartStayIgnored)
{
    for (const int signal : {SIGINT, SIGHUP})
        std::signal(signal, SIG_IGN);
    onQuitSignal([] {});
    for (const int signal : {SIGINT, SIGHUP})
        EXPECT_EQ(std::signal(signal, SIG_DFL), SIG_IGN);
}

TEST(QuitSignals, EachQuitSignalIsDeliveredByTheEventLoop)
{
    for (const int signal : {SIGINT, SIGHUP})
        std::signal(signal, SIG_DFL); // a program started in the background may have them ignored
    int asked = 0;
    onQuitSignal([&] { ++asked; });
    int expected = 0;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        std::raise(signal);
        EXPECT_EQ(asked, expected) << "called in the signal handler";
        ++expected;
        const QDeadlineTimer deadline(10'000);
        while (asked < expected && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        EXPECT_EQ(asked, expected);
    }
}

} // namespace
