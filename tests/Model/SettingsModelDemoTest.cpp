#include "Model/DemoData.h"
#include "Model/SettingsModel.h"
#include "OutsideWorld.h"

#include <gmock/gmock.h>

#include <array>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

QStringList names(const std::vector<PlanningProject> &projects)
{
    QStringList result;
    for (const auto &project : projects)
        result << project.name;
    return result;
}

/// Leaves the model without any of the sample data.
void empty(SettingsModel &model)
{
    model.projects = std::vector<BrowserConfigProject>{};
    model.browserPatternsCount = 0;
    model.sessionsCount = 0;
    model.planningRoot = std::nullopt;
    model.planningProjects = std::vector<PlanningProject>{};
}

/// A model in demo mode, of a user who has files of their own.
struct SettingsModelDemoTest : testing::Test {
    OutsideWorld world;

    SettingsModelDemoTest()
    {
        world.put(u".vantle/demo-mode.json"_s, R"({"enabled": true})");
        world.put(u".vantle/sessions.json"_s, R"([{"cwd": "/work/own"}])");
        world.put(u".vantle/planning.json"_s, R"({"root": "/plan"})");
        world.put(u".claude/browser-patterns.json"_s, R"({"/work/own": ["example.org/*"]})");
    }

    std::unique_ptr<SettingsModel> makeModel()
    {
        auto model = std::make_unique<SettingsModel>();
        world.takeRecord();
        return model;
    }
};

TEST_F(SettingsModelDemoTest, IsMadeFromTheSampleDataAndStillAsksTheServiceManager)
{
    world.serviceIsLoaded = true;
    const SettingsModel model;
    EXPECT_THAT(world.takeRecord(),
                ElementsAre("read ~/.vantle/demo-mode.json", "read ~/.vantle/sessions.json",
                            "is the job loaded", "read ~/.vantle/shortcuts.json",
                            "read ~/.vantle/typeface.json", "read ~/.vantle/green-screen.json",
                            "read ~/.vantle/terminal-backend.json", "read ~/.vantle/updates.json"));
    EXPECT_TRUE(model.demoMode);
    EXPECT_TRUE(model.launchAtLogin);
    EXPECT_EQ(model.browserPatternsCount, 3);
    EXPECT_EQ(model.projects->size(), 4) << "the registry's projects are added to the sample ones";
    EXPECT_EQ(model.sessionsCount, 4);
    EXPECT_EQ(model.planningRoot.value(), u"/Users/demo/workspace/planning"_s);
    EXPECT_EQ(names(model.planningProjects), names(DemoData::planningProjects()));
}

TEST_F(SettingsModelDemoTest, IsDecidedOnceWhenTheModelIsMade)
{
    const auto model = makeModel();
    world.put(u".vantle/demo-mode.json"_s, R"({"enabled": false})");
    model->clearBrowserPatterns();
    model->refreshPlanningProjects();
    EXPECT_TRUE(model->demoMode);
    EXPECT_EQ(model->sessionsCount, 4);
}

TEST_F(SettingsModelDemoTest, KeepsTheSamplePlanningRootWhateverIsChosen)
{
    const auto model = makeModel();
    for (const auto &root :
         {std::optional(u"/elsewhere"_s), std::optional(u""_s), std::optional<QString>()}) {
        model->planningRoot = std::nullopt;
        model->planningProjects = std::vector<PlanningProject>{};
        model->setPlanningRoot(root);
        EXPECT_EQ(model->planningRoot.value(), u"/Users/demo/workspace/planning"_s);
        EXPECT_EQ(names(model->planningProjects), names(DemoData::planningProjects()));
    }
    EXPECT_THAT(world.takeRecord(), IsEmpty());
}

TEST_F(SettingsModelDemoTest, RefreshingThePlanningProjectsGivesTheSampleOnes)
{
    const auto model = makeModel();
    const auto before = model->planningProjects->at(0).id;
    model->refreshPlanningProjects();
    EXPECT_EQ(names(model->planningProjects), names(DemoData::planningProjects()));
    EXPECT_NE(model->planningProjects->at(0).id, before);
    EXPECT_THAT(world.takeRecord(), IsEmpty());
}

TEST_F(SettingsModelDemoTest, SavesNoPatternsAndLeavesTheCountAlone)
{
    const auto model = makeModel();
    model->saveBrowserPatterns({{u"/a"_s, {u"x"_s}}});
    EXPECT_EQ(model->browserPatternsCount, 3);
    EXPECT_THAT(world.takeRecord(), IsEmpty());
}

TEST_F(SettingsModelDemoTest, ClearingTheSessionsRestartsTheDemo)
{
    const auto model = makeModel();
    model->sessionsCount = 1;
    std::vector<std::string> recordAtAnnouncement{"none"};
    QObject::connect(model.get(), &Observable::objectWillChange,
                     [&] { recordAtAnnouncement = world.takeRecord(); });
    model->clearSessions();
    EXPECT_EQ(model->sessionsCount, 4);
    EXPECT_THAT(recordAtAnnouncement, IsEmpty()) << "the count changes before the post";
    EXPECT_THAT(world.takeRecord(), ElementsAre("post http://127.0.0.1:18484/settings/reload-demo-mode"));
}

TEST_F(SettingsModelDemoTest, ClearingThePatternsBringsTheSampleRowsBack)
{
    const auto model = makeModel();
    empty(*model);
    model->clearBrowserPatterns();
    EXPECT_EQ(model->projects->size(), 4);
    EXPECT_EQ(model->browserPatternsCount, 3);
    EXPECT_EQ(model->sessionsCount, 4);
    EXPECT_EQ(model->planningRoot.value(), u"/Users/demo/workspace/planning"_s);
    EXPECT_EQ(model->planningProjects->size(), 3);
    EXPECT_THAT(world.takeRecord(), ElementsAre("read ~/.vantle/sessions.json"));
}

TEST_F(SettingsModelDemoTest, TheSampleDataIsRestoredInTheOrderOfItsConstruction)
{
    const auto model = makeModel();
    empty(*model);
    using Values = std::array<std::size_t, 5>;
    std::vector<Values> before;
    QObject::connect(model.get(), &Observable::objectWillChange, [&] {
        before.push_back({model->projects->size(), std::size_t(model->browserPatternsCount),
                          std::size_t(model->sessionsCount), model->planningRoot.value().has_value(),
                          model->planningProjects->size()});
    });
    model->clearBrowserPatterns();
    EXPECT_THAT(before, ElementsAre(Values{0, 0, 0, 0, 0}, Values{4, 0, 0, 0, 0}, Values{4, 3, 0, 0, 0},
                                    Values{4, 3, 4, 0, 0}, Values{4, 3, 4, 1, 0}));
}

TEST_F(SettingsModelDemoTest, SavesEveryOtherSettingAndTellsTheAgent)
{
    const auto model = makeModel();
    model->setTypeface(TypefaceOption::system);
    model->setTerminalBackend(TerminalBackendOption::vantleTerm);
    model->rebindShortcut(ShortcutAction::focusLast, {1, 256});
    EXPECT_THAT(
        world.takeRecord(),
        ElementsAre("create directory ~/.vantle", "read ~/.vantle/typeface.json",
                    R"(write ~/.vantle/typeface.json { "name" : "system" })",
                    "post http://127.0.0.1:18484/settings/reload-typeface", "create directory ~/.vantle",
                    "read ~/.vantle/terminal-backend.json",
                    R"(write ~/.vantle/terminal-backend.json { "backend" : "vantle-term" })",
                    "post http://127.0.0.1:18484/settings/reload-terminal-backend",
                    "create directory ~/.vantle", "read ~/.vantle/shortcuts.json",
                    R"(write ~/.vantle/shortcuts.json { "focusLast" : { "keyCode" : 1, )"
                    R"("modifiers" : 256 }, "focusPrevious" : { "keyCode" : 40, "modifiers" : 768 }, )"
                    R"("openPlan" : { "keyCode" : 37, "modifiers" : 768 } })",
                    "post http://127.0.0.1:18484/settings/reload-shortcuts"));
}

} // namespace
