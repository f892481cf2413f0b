#include "LaunchAgent/LaunchAgent.h"

#include "FakeServices.h"
#include "Foundation/Seam.h"
#include "Model/SettingsModel.h"

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using testing::ElementsAre;

namespace
{

TEST(LaunchAgent, GivesAChangeUnderWayTheTimeThatThereIs)
{
    FakeServiceManager service;
    const Seam<ServiceManager>::Replacement replacement(service);
    LaunchAgent::finish(300ms);
    EXPECT_THAT(service.limits, ElementsAre(300ms));
}

TEST(LaunchAgent, HoldsTheStartUpForHalfASecondAtMost)
{
    FakeServiceManager service;
    service.loaded = true;
    const Seam<ServiceManager>::Replacement replacement(service);
    const SettingsModel model;
    EXPECT_THAT(service.patiences, ElementsAre(500ms));
    EXPECT_TRUE(model.launchAtLogin);
}

TEST(LaunchAgent, HandsOnWhatTheServiceManagerAnswers)
{
    FakeServiceManager service;
    service.loaded = true;
    const Seam<ServiceManager>::Replacement replacement(service);
    std::vector<bool> answers;
    const auto note = [&answers](bool answer) { answers.push_back(answer); };
    LaunchAgent::isLoaded(note, 20ms);
    LaunchAgent::load(note);
    LaunchAgent::unload(note);
    EXPECT_THAT(answers, ElementsAre(true, true, false));
    EXPECT_THAT(service.patiences, ElementsAre(20ms));
}

} // namespace
