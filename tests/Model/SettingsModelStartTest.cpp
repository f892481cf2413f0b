#include "FakeServices.h"
#include "Foundation/Seam.h"
#include "SettingsModelTest.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

TEST_F(SettingsModelTest, TheLoginJobDelaysTheStartByHalfASecondAtMost)
{
    FakeServiceManager service;
    service.loaded = true;
    const Seam<ServiceManager>::Replacement replacement(service);
    const SettingsModel model;
    EXPECT_THAT(service.patiences, ElementsAre(500ms));
    EXPECT_TRUE(model.launchAtLogin);
}

TEST_F(SettingsModelTest, IsMadeFromTheFilesInAFixedOrder)
{
    const SettingsModel model;
    EXPECT_THAT(world.takeRecord(),
                ElementsAre("read ~/.vantle/demo-mode.json", "read ~/.claude/browser-patterns.json",
                            "read ~/.vantle/sessions.json", "read ~/.vantle/sessions.json",
                            "is the job loaded", "read ~/.vantle/shortcuts.json",
                            "read ~/.vantle/typeface.json", "read ~/.vantle/green-screen.json",
                            "read ~/.vantle/terminal-backend.json", "read ~/.vantle/updates.json",
                            "read ~/.vantle/planning.json"));
}

TEST_F(SettingsModelTest, ReadsThePlanningRootBeforeItsManifest)
{
    world.put(u".vantle/planning.json"_s, R"({"root": "/plan"})");
    const SettingsModel model;
    const std::vector<std::string> record = world.takeRecord();
    ASSERT_GE(record.size(), 2U);
    EXPECT_THAT(std::vector(record.end() - 2, record.end()),
                ElementsAre("read ~/.vantle/planning.json", "read /plan/projects.toml"));
}

TEST_F(SettingsModelTest, StartsFromTheDefaultsWhereThereAreNoFiles)
{
    world.put(u".vantle/sessions.json"_s, "");
    world.put(u".claude/browser-patterns.json"_s, "");
    const SettingsModel model;
    EXPECT_EQ(model.section, SettingsSection::general);
    EXPECT_FALSE(model.launchAtLogin);
    EXPECT_THAT(model.projects.value(), IsEmpty());
    EXPECT_EQ(model.sessionsCount, 0);
    EXPECT_EQ(model.browserPatternsCount, 0);
    EXPECT_EQ(model.planningRoot.value(), std::nullopt);
    EXPECT_THAT(model.planningProjects.value(), IsEmpty());
    EXPECT_FALSE(model.demoMode);
    EXPECT_EQ(model.typeface, TypefaceOption::jetbrainsMono);
    EXPECT_FALSE(model.greenScreen);
    EXPECT_EQ(model.terminalBackend, TerminalBackendOption::iterm);
    EXPECT_TRUE(model.automaticUpdates);
    EXPECT_EQ(model.shortcuts().bindings.value(), Shortcuts::defaults());
}

TEST_F(SettingsModelTest, HoldsWhatTheFilesAndTheServiceManagerSay)
{
    world.serviceIsLoaded = true;
    world.put(u".vantle/typeface.json"_s, R"({"name": "system"})");
    world.put(u".vantle/green-screen.json"_s, R"({"enabled": true})");
    world.put(u".vantle/terminal-backend.json"_s, R"({"backend": "vantle-term"})");
    world.put(u".vantle/updates.json"_s, R"({"automatic": false})");
    world.put(u".vantle/planning.json"_s, R"({"root": "/plan"})");
    world.put(u".vantle/shortcuts.json"_s, R"({"openPlan": {"keyCode": 35, "modifiers": 4352}})");
    const SettingsModel model;
    EXPECT_TRUE(model.launchAtLogin);
    EXPECT_EQ(model.projects->size(), 2);
    EXPECT_EQ(model.sessionsCount, 2);
    EXPECT_EQ(model.browserPatternsCount, 1);
    EXPECT_EQ(model.planningRoot.value(), u"/plan"_s);
    EXPECT_EQ(model.typeface, TypefaceOption::system);
    EXPECT_TRUE(model.greenScreen);
    EXPECT_EQ(model.terminalBackend, TerminalBackendOption::vantleTerm);
    EXPECT_FALSE(model.automaticUpdates);
    EXPECT_EQ(model.shortcuts().bindings->at(ShortcutAction::openPlan), (KeyCombo{35, 4352}));
}

TEST_F(SettingsModelTest, AServiceManagerThatAnswersLateCorrectsTheState)
{
    world.serviceIsLoaded = true;
    world.serviceIsSlow = true;
    const auto model = makeModel();
    EXPECT_FALSE(model->launchAtLogin);
    int announcements = 0;
    QObject::connect(model.get(), &Observable::objectWillChange, [&] { ++announcements; });
    world.answerForService();
    EXPECT_TRUE(model->launchAtLogin);
    EXPECT_EQ(announcements, 1);
}

TEST_F(SettingsModelTest, ALateAnswerLeavesAChangeThatHasBegunAlone)
{
    world.serviceIsLoaded = true;
    world.serviceIsSlow = true;
    const auto model = makeModel();
    model->launchAtLoginIsChanging = true;
    world.answerForService();
    EXPECT_FALSE(model->launchAtLogin);
}

TEST_F(SettingsModelTest, UnknownNamesGiveJetBrainsMonoAndITerm)
{
    world.put(u".vantle/typeface.json"_s, R"({"name": "comic"})");
    world.put(u".vantle/terminal-backend.json"_s, R"({"backend": "xterm"})");
    const SettingsModel model;
    EXPECT_EQ(model.typeface, TypefaceOption::jetbrainsMono);
    EXPECT_EQ(model.terminalBackend, TerminalBackendOption::iterm);
}

} // namespace
