#include "Platform/Agent/LoopbackPost.h"

#include "FakeAgent.h"
#include "HeapInUse.h"

#include <QElapsedTimer>
#include <QtCore/qtestsupport_core.h>

#include <gmock/gmock.h>

#include <filesystem>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Behaviour = FakeAgent::Behaviour;

namespace
{

QUrl address(quint16 port, const QString &path = u"/settings/reload-typeface"_s)
{
    QUrl url(u"http://127.0.0.1"_s);
    url.setPort(port);
    url.setPath(path);
    return url;
}

void post(const FakeAgent &agent, int count = 1)
{
    for (int i = 0; i < count; ++i)
        LoopbackPost::system().post(address(agent.port()));
}

/// A port of 127.0.0.1 on which nobody listens.
quint16 closedPort()
{
    return FakeAgent(Behaviour::answers).port();
}

std::ptrdiff_t openDescriptors()
{
    const std::filesystem::directory_iterator descriptors("/dev/fd");
    return std::distance(begin(descriptors), end(descriptors));
}

/// No test leaves a post pending.
struct LoopbackPostTest : testing::Test {
    ~LoopbackPostTest() override { LoopbackPost::system().finish(1min); }
};

/// Every post is sent once, whatever the agent does with it.
struct LoopbackPostFaults : LoopbackPostTest, testing::WithParamInterface<Behaviour> {
};

TEST_F(LoopbackPostTest, SendsExactlyOnePostWithTheEmptyObject)
{
    const FakeAgent agent(Behaviour::answers);
    post(agent);
    ASSERT_TRUE(agent.waitForRequests(1));
    LoopbackPost::system().finish(1min);
    EXPECT_THAT(agent.requests(), testing::ElementsAre("POST /settings/reload-typeface HTTP/1.1\r\n"
                                                       "Host: 127.0.0.1:" +
                                                       std::to_string(agent.port()) +
                                                       "\r\nContent-Type: application/json\r\n"
                                                       "Content-Length: 2\r\n"
                                                       "Connection: close\r\n"
                                                       "\r\n"
                                                       "{}"));
}

TEST_F(LoopbackPostTest, SendsAPathInItsEncodedForm)
{
    const FakeAgent agent(Behaviour::answers);
    LoopbackPost::system().post(address(agent.port(), u"/a b\r\nX: é"_s));
    LoopbackPost::system().finish(1min);
    ASSERT_EQ(agent.requests().size(), 1);
    EXPECT_THAT(agent.requests()[0], testing::StartsWith("POST /a%20b%0D%0AX:%20%C3%A9 HTTP/1.1\r\nHost: "));
}

TEST_F(LoopbackPostTest, IgnoresProxyVariables)
{
    const FakeAgent agent(Behaviour::answers);
    const FakeAgent proxy(Behaviour::answers);
    const QByteArray proxyAddress = "http://127.0.0.1:" + QByteArray::number(proxy.port());
    for (const char *variable : {"http_proxy", "HTTP_PROXY", "all_proxy"})
        qputenv(variable, proxyAddress);
    post(agent);
    LoopbackPost::system().finish(1min);
    for (const char *variable : {"http_proxy", "HTTP_PROXY", "all_proxy"})
        qunsetenv(variable);
    EXPECT_EQ(agent.requests().size(), 1);
    EXPECT_EQ(proxy.connections(), 0);
}

TEST_F(LoopbackPostTest, IsSentWithoutTheEventLoop)
{
    const FakeAgent agent(Behaviour::answers);
    post(agent);
    LoopbackPost::system().finish(1min);
    EXPECT_EQ(agent.requests().size(), 1);
}

TEST_P(LoopbackPostFaults, ReachesTheAgentOnce)
{
    const FakeAgent agent(GetParam());
    post(agent, 50);
    ASSERT_TRUE(agent.waitForConnections(50));
    LoopbackPost::system().finish(1min);
    EXPECT_EQ(agent.connections(), 50) << "no post is repeated";
    EXPECT_EQ(agent.requests().size(), GetParam() == Behaviour::closesUnread ? 0 : 50);
}

INSTANTIATE_TEST_SUITE_P(LoopbackPost, LoopbackPostFaults,
                         testing::Values(Behaviour::answers, Behaviour::keepsOpen, Behaviour::answersGarbage,
                                         Behaviour::answersEndlessly, Behaviour::closesUnread),
                         [](const auto &fault) {
                             switch (fault.param) {
                             case Behaviour::keepsOpen:
                                 return "KeepsOpen";
                             case Behaviour::answersGarbage:
                                 return "AnswersGarbage";
                             case Behaviour::answersEndlessly:
                                 return "AnswersEndlessly";
                             case Behaviour::closesUnread:
                                 return "ClosesUnread";
                             default:
                                 return "Answers";
                             }
                         });

TEST_F(LoopbackPostTest, GivesUpASilentAgentAndSendsTheNextPost)
{
    const FakeAgent agent(Behaviour::isSilent);
    post(agent, 7);
    EXPECT_TRUE(agent.waitForConnections(7)) << "only six are sent at a time";
}

TEST_F(LoopbackPostTest, ASilentAgentHasASecondAndAHalfToAnswer)
{
    const FakeAgent agent(Behaviour::isSilent);
    QElapsedTimer waited;
    waited.start();
    post(agent);
    LoopbackPost::system().finish(24h);
    EXPECT_GE(waited.elapsed(), LoopbackPost::timeout.count());
    EXPECT_EQ(LoopbackPost::timeout, 1500ms);
}

TEST_F(LoopbackPostTest, FinishDoesNotWaitForAnAbsentAgent)
{
    const quint16 port = closedPort();
    for (int i = 0; i < 1000; ++i)
        LoopbackPost::system().post(address(port));
    LoopbackPost::system().finish(24h);
}

TEST_F(LoopbackPostTest, FinishDoesNotWaitWhenNothingWasPosted)
{
    LoopbackPost::system().finish(24h);
}

TEST_F(LoopbackPostTest, FinishDoesNotWaitForAnAgentThatAnsweredAndKeepsTheConnection)
{
    const FakeAgent agent(Behaviour::keepsOpen);
    post(agent, 10);
    LoopbackPost::system().finish(24h);
    EXPECT_EQ(agent.requests().size(), 10);
}

TEST_F(LoopbackPostTest, ARestartedAgentReceivesTheNextPost)
{
    auto agent = std::make_unique<FakeAgent>(Behaviour::answers);
    const quint16 port = agent->port();
    post(*agent);
    ASSERT_TRUE(agent->waitForRequests(1));
    agent.reset();
    LoopbackPost::system().post(address(port));
    agent = std::make_unique<FakeAgent>(Behaviour::answers, port);
    post(*agent);
    EXPECT_TRUE(agent->waitForRequests(1));
}

TEST_F(LoopbackPostTest, TwoHundredRapidPostsReachASlowAgent)
{
    const FakeAgent agent(Behaviour::answersSlowly);
    post(agent, 200);
    EXPECT_TRUE(agent.waitForRequests(200));
}

TEST_F(LoopbackPostTest, FinishWaitsForASlowAgent)
{
    const FakeAgent agent(Behaviour::answersSlowly);
    post(agent, 50);
    LoopbackPost::system().finish(10min);
    EXPECT_EQ(agent.requests().size(), 50);
}

TEST_F(LoopbackPostTest, APostJustBeforeFinishReachesAListeningAgent)
{
    const FakeAgent agent(Behaviour::answers);
    for (std::size_t i = 1; i <= 200; ++i) {
        post(agent);
        LoopbackPost::system().finish(1500ms);
        ASSERT_EQ(agent.requests().size(), i);
    }
}

TEST_F(LoopbackPostTest, FinishDropsPostsToASilentAgentAtItsLimitHoweverMany)
{
    const FakeAgent agent(Behaviour::isSilent);
    post(agent, 10000);
    LoopbackPost::system().finish(100ms);
    EXPECT_TRUE(agent.waitForConnections(6));
    const FakeAgent next(Behaviour::answers);
    post(next);
    EXPECT_TRUE(next.waitForRequests(1));
    EXPECT_EQ(agent.connections(), 6) << "the other posts are dropped";
}

TEST_F(LoopbackPostTest, TenThousandRapidPostsReachTheAgentAndLeakNothing)
{
    FakeAgent agent(Behaviour::answers);
    post(agent);
    ASSERT_TRUE(agent.waitForRequests(1));
    LoopbackPost::system().finish(1min);
    agent.takeRequests();
    const auto heap = heapInUse();
    const auto descriptors = openDescriptors();
    post(agent, 10000);
    EXPECT_LE(openDescriptors(), descriptors + 7) << "six of LoopbackPost, one of the agent";
    ASSERT_TRUE(agent.waitForConnections(10001));
    LoopbackPost::system().finish(1min);
    EXPECT_EQ(agent.connections(), 10001);
    EXPECT_EQ(openDescriptors(), descriptors);
    EXPECT_EQ(agent.takeRequests().size(), 10000);
    // The threads that sent the posts end a little later.
    EXPECT_TRUE(QTest::qWaitFor([&] { return heapInUse() < heap + 100000; }));
}

} // namespace
