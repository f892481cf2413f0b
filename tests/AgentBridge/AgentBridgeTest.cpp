#include "AgentBridge/AgentBridge.h"

#include "FakeServices.h"
#include "Foundation/Seam.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

TEST(AgentBridge, PostsTheWholePathToTheAgentsControlPort)
{
    FakeLoopbackPost posts;
    const Seam<LoopbackPost>::Replacement replacement(posts);
    AgentBridge::fireAndForget(u"/settings/reload-typeface"_s);
    EXPECT_THAT(posts.urls, testing::ElementsAre(QUrl(u"http://127.0.0.1:18484/settings/reload-typeface"_s)));
}

TEST(AgentBridge, TwoQuickPostsAreTwoRequests)
{
    FakeLoopbackPost posts;
    const Seam<LoopbackPost>::Replacement replacement(posts);
    AgentBridge::fireAndForget(u"/settings/reload-shortcuts"_s);
    AgentBridge::fireAndForget(u"/settings/reload-shortcuts"_s);
    EXPECT_EQ(posts.urls.size(), 2);
}

TEST(AgentBridge, FinishPassesItsTimeLimitOn)
{
    FakeLoopbackPost posts;
    const Seam<LoopbackPost>::Replacement replacement(posts);
    AgentBridge::finish(700ms);
    EXPECT_THAT(posts.limits, testing::ElementsAre(700ms));
}

} // namespace
