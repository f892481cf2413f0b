#include "LaunchAgent/LaunchAgent.h"

#include "FakeServices.h"
#include "Foundation/Seam.h"

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using testing::ElementsAre;

namespace
{

TEST(LaunchAgent, FinishPassesItsTimeLimitOn)
{
    FakeServiceManager service;
    const Seam<ServiceManager>::Replacement replacement(service);
    LaunchAgent::finish(300ms);
    EXPECT_THAT(service.limits, ElementsAre(300ms));
}

TEST(LaunchAgent, PassesOnTheAnswersOfTheServiceManager)
{
    FakeServiceManager service;
    service.loaded = true;
    const Seam<ServiceManager>::Replacement replacement(service);
    std::vector<bool> answers;
    const auto record = [&answers](bool answer) { answers.push_back(answer); };
    LaunchAgent::isLoaded(record, 20ms);
    LaunchAgent::load(record);
    LaunchAgent::unload(record);
    EXPECT_THAT(answers, ElementsAre(true, true, false));
    EXPECT_THAT(service.patiences, ElementsAre(20ms));
}

} // namespace
