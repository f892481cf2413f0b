#include "Platform/QuitSignals.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <gtest/gtest.h>

#include <csignal>

namespace
{

TEST(QuitSignals, EachRequestToEndIsPassedOnByTheEventLoop)
{
    int asked = 0;
    onQuitSignal([&] { ++asked; });
    int expected = 0;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        std::raise(signal);
        EXPECT_EQ(asked, expected) << "not from within the signal";
        ++expected;
        const QDeadlineTimer deadline(10'000);
        while (asked < expected && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        EXPECT_EQ(asked, expected);
    }
}

} // namespace
