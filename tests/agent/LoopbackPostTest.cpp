#include "Platform/LoopbackPost.h"

#include "FakeAgent.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Behaviour = FakeAgent::Behaviour;

namespace
{

QUrl address(const FakeAgent &agent)
{
    QUrl url(u"http://127.0.0.1/settings/reload-typeface"_s);
    url.setPort(agent.port());
    return url;
}

TEST(LoopbackPost, SendsExactlyOnePostWithTheEmptyObject)
{
    const FakeAgent agent(Behaviour::answers);
    LoopbackPost::system().post(address(agent));
    ASSERT_TRUE(agent.waitForRequests(1));
    LoopbackPost::system().finish(10s);
    EXPECT_THAT(agent.requests(),
                testing::ElementsAre("POST /settings/reload-typeface HTTP/1.1\r\nHost: 127.0.0.1:" +
                                     std::to_string(agent.port()) +
                                     "\r\nContent-Type: application/json\r\n"
                                     "Content-Length: 2\r\nConnection: close\r\n\r\n{}"));
}

TEST(LoopbackPost, FinishingWaitsForAListenerThatStillHasToAnswer)
{
    const FakeAgent agent(Behaviour::answersSlowly);
    for (int i = 0; i < 20; ++i)
        LoopbackPost::system().post(address(agent));
    LoopbackPost::system().finish(60s);
    EXPECT_EQ(agent.requests().size(), 20);
}

} // namespace
