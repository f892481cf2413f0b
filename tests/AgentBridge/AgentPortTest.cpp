#include "AgentBridge/AgentBridge.h"
#include "FakeAgent.h"
#include "HomeFiles.h"

#include <QProcess>
#include <QRegularExpression>

#include <gmock/gmock.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::StartsWith;

namespace
{

constexpr quint16 controlPort = 18484;

/// A new network namespace starts with its loopback interface down. Brings it up; false when that fails.
bool bringLoopbackUp()
{
    const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
    ifreq loopback{};
    std::strcpy(loopback.ifr_name, "lo");
    const bool known = ::ioctl(socket, SIOCGIFFLAGS, &loopback) == 0;
    loopback.ifr_flags = static_cast<short>(loopback.ifr_flags | IFF_UP);
    const bool isUp = known && ::ioctl(socket, SIOCSIFFLAGS, &loopback) == 0;
    ::close(socket);
    return isUp;
}

/// Runs in a network namespace of its own, where the agent's port is free.
struct AgentPort : testing::Test {
    AgentPort() { EXPECT_TRUE(bringLoopbackUp()); }
};

/// A running agent-listener, the program that stands in for the agent.
struct AgentListener {
    QProcess process;

    AgentListener()
    {
        process.start(QStringLiteral(AGENT_LISTENER), {});
        waitForText(u"Listening"_s);
    }

    ~AgentListener()
    {
        process.kill();
        process.waitForFinished();
    }

    /// Everything printed up to and including this text, with each time of day as T.
    QString waitForText(const QString &text)
    {
        QString printed;
        while (!printed.contains(text) && process.waitForReadyRead(60000))
            printed += QString::fromUtf8(process.readAllStandardOutput());
        static const QRegularExpression time(u"\\d\\d:\\d\\d:\\d\\d\\.\\d\\d\\d"_s);
        return printed.replace(time, u"T"_s);
    }
};

TEST_F(AgentPort, ReceivesThePosts)
{
    const FakeAgent agent(FakeAgent::Behaviour::answers, controlPort);
    AgentBridge::fireAndForget(u"/settings/clear-sessions"_s);
    AgentBridge::finish(1500ms);
    EXPECT_THAT(agent.requests(), ElementsAre(StartsWith("POST /settings/clear-sessions HTTP/1.1\r\n"
                                                         "Host: 127.0.0.1:18484\r\n")));
}

TEST_F(AgentPort, PostsAreDroppedWhileNothingListens)
{
    AgentBridge::fireAndForget(u"/settings/clear-sessions"_s);
    AgentBridge::finish(1500ms);
    const FakeAgent agent(FakeAgent::Behaviour::answers, controlPort);
    AgentBridge::fireAndForget(u"/settings/reload-planning"_s);
    AgentBridge::finish(1500ms);
    EXPECT_THAT(agent.requests(), ElementsAre(StartsWith("POST /settings/reload-planning ")));
}

TEST_F(AgentPort, ItsListenerShowsTheAnnouncedFile)
{
    putHomeFile(u".vantle/typeface.json"_s, "{\n  \"name\" : \"system\"\n}");
    AgentListener listener;
    AgentBridge::fireAndForget(u"/settings/reload-typeface"_s);
    AgentBridge::finish(1500ms);
    EXPECT_EQ(listener.waitForText(u"}\n"_s), u"T  POST /settings/reload-typeface {}\n"
                                              "              ~/.vantle/typeface.json:\n"
                                              "              {\n"
                                              "                \"name\" : \"system\"\n"
                                              "              }\n"_s);
}

TEST_F(AgentPort, ItsListenerShowsThatAnAnnouncedFileIsGone)
{
    AgentListener listener;
    AgentBridge::fireAndForget(u"/settings/reload-planning"_s);
    AgentBridge::finish(1500ms);
    EXPECT_EQ(listener.waitForText(u"there\n"_s), u"T  POST /settings/reload-planning {}\n"
                                                  "              ~/.vantle/planning.json is not there\n"_s);
}

TEST_F(AgentPort, ItsListenerShowsAnActionWithoutAFile)
{
    AgentListener listener;
    AgentBridge::fireAndForget(u"/settings/uninstall-hooks"_s);
    AgentBridge::finish(1500ms);
    EXPECT_EQ(listener.waitForText(u"{}\n"_s), u"T  POST /settings/uninstall-hooks {}\n"_s);
}

TEST_F(AgentPort, ItsListenerFailsWhenThePortIsTaken)
{
    const FakeAgent agent(FakeAgent::Behaviour::answers, controlPort);
    QProcess listener;
    listener.start(QStringLiteral(AGENT_LISTENER), {});
    ASSERT_TRUE(listener.waitForFinished());
    EXPECT_EQ(listener.exitCode(), 1);
    EXPECT_EQ(listener.readAllStandardError(),
              "Something listens on 127.0.0.1:18484 already; is the agent running?\n");
}

} // namespace
