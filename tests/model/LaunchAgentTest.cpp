#include "LaunchAgent/LaunchAgent.h"

#include "Foundation/Seam.h"
#include "Model/SettingsModel.h"
#include "Platform/Agent/ServiceManager.h"

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using testing::ElementsAre;

namespace
{

/// A service manager that notes how long it may take.
struct RecordedService final : ServiceManager {
    std::vector<std::chrono::milliseconds> patiences;
    std::vector<std::chrono::milliseconds> limits;

    void isLoaded(std::chrono::milliseconds patience, Answer answer) override
    {
        patiences.push_back(patience);
        answer(true);
    }
    void load(Answer answer) override { answer(true); }
    void unload(Answer answer) override { answer(false); }
    void finish(std::chrono::milliseconds limit) override { limits.push_back(limit); }
};

TEST(LaunchAgent, GivesAChangeUnderWayTheTimeThatThereIs)
{
    RecordedService service;
    const Seam<ServiceManager>::Replacement replacement(service);
    LaunchAgent::finish(300ms);
    EXPECT_THAT(service.limits, ElementsAre(300ms));
}

TEST(LaunchAgent, HoldsTheStartUpForHalfASecondAtMost)
{
    RecordedService service;
    const Seam<ServiceManager>::Replacement replacement(service);
    const SettingsModel model;
    EXPECT_THAT(service.patiences, ElementsAre(500ms));
    EXPECT_TRUE(model.launchAtLogin);
}

TEST(LaunchAgent, HandsOnWhatTheServiceManagerAnswers)
{
    RecordedService service;
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
