#include "AgentBridge/AgentBridge.h"

#include "Foundation/Seam.h"
#include "Platform/Agent/LoopbackPost.h"

#include <gmock/gmock.h>

#include <vector>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

struct RecordedPosts final : LoopbackPost {
    std::vector<QUrl> urls;
    std::vector<std::chrono::milliseconds> finishes;

    void post(const QUrl &url) override { urls.push_back(url); }
    void finish(std::chrono::milliseconds limit) override { finishes.push_back(limit); }
};

TEST(AgentBridge, PostsToTheAgentsControlPortUnderTheWholePath)
{
    RecordedPosts posts;
    const Seam<LoopbackPost>::Replacement replacement(posts);
    AgentBridge::fireAndForget(u"/settings/reload-typeface"_s);
    EXPECT_THAT(posts.urls, testing::ElementsAre(QUrl(u"http://127.0.0.1:18484/settings/reload-typeface"_s)));
}

TEST(AgentBridge, TwoQuickPostsAreTwoRequests)
{
    RecordedPosts posts;
    const Seam<LoopbackPost>::Replacement replacement(posts);
    AgentBridge::fireAndForget(u"/settings/reload-shortcuts"_s);
    AgentBridge::fireAndForget(u"/settings/reload-shortcuts"_s);
    EXPECT_EQ(posts.urls.size(), 2);
}

TEST(AgentBridge, GivesTheLastPostsTheTimeThatThereIs)
{
    RecordedPosts posts;
    const Seam<LoopbackPost>::Replacement replacement(posts);
    AgentBridge::finish(700ms);
    EXPECT_THAT(posts.finishes, testing::ElementsAre(700ms));
}

} // namespace
