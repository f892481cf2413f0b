#include "SettingsModelTest.h"

#include "Planning/Planning.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

TEST_F(SettingsModelTest, SettingTheTypefaceWritesItsFileThenTellsTheAgent)
{
    const auto model = makeModel();
    model->setTypeface(TypefaceOption::system);
    EXPECT_EQ(model->typeface, TypefaceOption::system);
    EXPECT_THAT(world.takeRecord(), ElementsAre("create directory ~/.vantle", "read ~/.vantle/typeface.json",
                                                R"(write ~/.vantle/typeface.json { "name" : "system" })",
                                                "post http://127.0.0.1:18484/settings/reload-typeface"));
}

TEST_F(SettingsModelTest, TheTypefaceChangesBetweenItsSavingAndItsPost)
{
    const auto model = makeModel();
    EXPECT_THAT(askedBetweenAnnouncements(*model, [&] { model->setTypeface(TypefaceOption::system); }),
                ElementsAre(ElementsAre("create directory ~/.vantle", "read ~/.vantle/typeface.json",
                                        R"(write ~/.vantle/typeface.json { "name" : "system" })"),
                            ElementsAre("post http://127.0.0.1:18484/settings/reload-typeface")));
}

TEST_F(SettingsModelTest, SettingTheCurrentTypefaceDoesNothing)
{
    const auto model = makeModel();
    model->setTypeface(TypefaceOption::jetbrainsMono);
    EXPECT_THAT(world.takeRecord(), IsEmpty());
}

TEST_F(SettingsModelTest, SettingTheTerminalWritesItsFileThenTellsTheAgent)
{
    const auto model = makeModel();
    model->setTerminalBackend(TerminalBackendOption::vantleTerm);
    EXPECT_EQ(model->terminalBackend, TerminalBackendOption::vantleTerm);
    EXPECT_THAT(world.takeRecord(),
                ElementsAre("create directory ~/.vantle", "read ~/.vantle/terminal-backend.json",
                            R"(write ~/.vantle/terminal-backend.json { "backend" : "vantle-term" })",
                            "post http://127.0.0.1:18484/settings/reload-terminal-backend"));
}

TEST_F(SettingsModelTest, TheTerminalChangesBetweenItsSavingAndItsPost)
{
    const auto model = makeModel();
    EXPECT_THAT(
        askedBetweenAnnouncements(*model,
                                  [&] { model->setTerminalBackend(TerminalBackendOption::vantleTerm); }),
        ElementsAre(ElementsAre("create directory ~/.vantle", "read ~/.vantle/terminal-backend.json",
                                R"(write ~/.vantle/terminal-backend.json { "backend" : "vantle-term" })"),
                    ElementsAre("post http://127.0.0.1:18484/settings/reload-terminal-backend")));
}

TEST_F(SettingsModelTest, SettingTheCurrentTerminalDoesNothing)
{
    const auto model = makeModel();
    model->setTerminalBackend(TerminalBackendOption::iterm);
    EXPECT_THAT(world.takeRecord(), IsEmpty());
}

TEST_F(SettingsModelTest, SettingThePlanningRootSavesReloadsAndThenTellsTheAgent)
{
    const auto model = makeModel();
    model->setPlanningRoot(u"/plan"_s);
    EXPECT_EQ(model->planningRoot.value(), u"/plan"_s);
    EXPECT_THAT(world.takeRecord(), ElementsAre("create directory ~/.vantle", "read ~/.vantle/planning.json",
                                                R"(write ~/.vantle/planning.json { "root" : "\/plan" })",
                                                "read /plan/projects.toml",
                                                "post http://127.0.0.1:18484/settings/reload-planning"));
}

TEST_F(SettingsModelTest, ThePlanningRootChangesBeforeItIsSavedAndItsProjectsBeforeThePost)
{
    const auto model = makeModel();
    EXPECT_THAT(askedBetweenAnnouncements(*model, [&] { model->setPlanningRoot(u"/plan"_s); }),
                ElementsAre(IsEmpty(),
                            ElementsAre("create directory ~/.vantle", "read ~/.vantle/planning.json",
                                        R"(write ~/.vantle/planning.json { "root" : "\/plan" })",
                                        "read /plan/projects.toml"),
                            ElementsAre("post http://127.0.0.1:18484/settings/reload-planning")));
}

TEST_F(SettingsModelTest, SettingThePlanningRootAgainSavesAgain)
{
    const auto model = makeModel();
    model->setPlanningRoot(u"/plan"_s);
    const auto first = world.takeRecord();
    model->setPlanningRoot(u"/plan"_s);
    EXPECT_EQ(world.takeRecord(), first);
}

TEST_F(SettingsModelTest, AnEmptyPlanningRootRemovesTheFileAndStillTellsTheAgent)
{
    const auto model = makeModel();
    model->setPlanningRoot(u""_s);
    EXPECT_EQ(model->planningRoot.value(), u""_s);
    EXPECT_THAT(world.takeRecord(), ElementsAre("remove ~/.vantle/planning.json",
                                                "post http://127.0.0.1:18484/settings/reload-planning"));
}

TEST_F(SettingsModelTest, NoPlanningRootRemovesTheFileAndStillTellsTheAgent)
{
    const auto model = makeModel();
    model->setPlanningRoot(u"/plan"_s);
    world.takeRecord();
    model->setPlanningRoot(std::nullopt);
    EXPECT_EQ(model->planningRoot.value(), std::nullopt);
    EXPECT_THAT(world.takeRecord(), ElementsAre("remove ~/.vantle/planning.json",
                                                "post http://127.0.0.1:18484/settings/reload-planning"));
}

TEST_F(SettingsModelTest, RefreshingThePlanningProjectsReadsThemAgainAndTellsNobody)
{
    const QString root = qEnvironmentVariable("HOME") + u"/plan"_s;
    world.put(u".vantle/planning.json"_s, "{\"root\": \"" + root.toUtf8() + "\"}");
    const auto model = makeModel();
    EXPECT_THAT(model->planningProjects.value(), IsEmpty());
    world.put(u"plan/projects.toml"_s, "[[projects]]\nname = \"App\"\npath = \"/work/app\"\n");
    model->refreshPlanningProjects();
    ASSERT_EQ(model->planningProjects->size(), 1);
    EXPECT_EQ(model->planningProjects->at(0).name, u"App"_s);
    EXPECT_EQ(model->planningProjects->at(0).sessionCount, 1);
    EXPECT_THAT(world.takeRecord(), ElementsAre("read ~/plan/projects.toml", "read ~/.vantle/sessions.json"));
}

TEST_F(SettingsModelTest, SavingPatternsWritesThemAndLeavesTheRowsAndTheAgentAlone)
{
    const auto model = makeModel();
    const auto rows = model->projects.value();
    model->saveBrowserPatterns({{u"/b"_s, {u"x"_s}}, {u"/a"_s, {u"y"_s}}});
    EXPECT_EQ(model->browserPatternsCount, 2);
    EXPECT_EQ(model->projects.value(), rows);
    EXPECT_THAT(world.takeRecord(),
                ElementsAre("create directory ~/.claude", "read ~/.claude/browser-patterns.json",
                            R"(write ~/.claude/browser-patterns.json { "\/a" : [ "y" ], "\/b" : [ "x" ] })"));
}

TEST_F(SettingsModelTest, PatternsAreSavedBeforeTheyAreCounted)
{
    const auto model = makeModel();
    EXPECT_THAT(askedBetweenAnnouncements(*model,
                                          [&] {
                                              model->saveBrowserPatterns({{u"/b"_s, {}}});
                                          }),
                ElementsAre(testing::SizeIs(3), IsEmpty()));
}

TEST_F(SettingsModelTest, SavingNoPatternsWritesAnEmptyObject)
{
    const auto model = makeModel();
    model->saveBrowserPatterns({});
    EXPECT_EQ(model->browserPatternsCount, 0);
    EXPECT_THAT(world.takeRecord(),
                ElementsAre("create directory ~/.claude", "read ~/.claude/browser-patterns.json",
                            "write ~/.claude/browser-patterns.json { }"));
}

TEST_F(SettingsModelTest, ClearingTheSessionsIsLeftToTheAgent)
{
    const auto model = makeModel();
    std::vector<std::string> recordAtAnnouncement;
    QObject::connect(model.get(), &Observable::objectWillChange,
                     [&] { recordAtAnnouncement = world.takeRecord(); });
    model->clearSessions();
    EXPECT_EQ(model->sessionsCount, 0);
    EXPECT_THAT(recordAtAnnouncement, ElementsAre("post http://127.0.0.1:18484/settings/clear-sessions"));
    EXPECT_THAT(world.takeRecord(), IsEmpty());
}

TEST_F(SettingsModelTest, ClearingThePatternsRemovesTheFileAndEmptiesEveryRow)
{
    const auto model = makeModel();
    const auto before = model->projects.value();
    model->clearBrowserPatterns();
    EXPECT_THAT(world.takeRecord(), ElementsAre("remove ~/.claude/browser-patterns.json"));
    EXPECT_EQ(model->browserPatternsCount, 0);
    const auto &after = model->projects.value();
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_EQ(after[i].root, before[i].root);
        EXPECT_EQ(after[i].urls, u""_s);
        EXPECT_NE(after[i].id, before[i].id);
    }
}

TEST_F(SettingsModelTest, ThePatternsFileIsRemovedBeforeTheCountAndThenTheRowsChange)
{
    const auto model = makeModel();
    std::vector<std::int64_t> counts;
    QObject::connect(model.get(), &Observable::objectWillChange,
                     [&] { counts.push_back(model->browserPatternsCount); });
    EXPECT_THAT(askedBetweenAnnouncements(*model, [&] { model->clearBrowserPatterns(); }),
                ElementsAre(ElementsAre("remove ~/.claude/browser-patterns.json"), IsEmpty(), IsEmpty()));
    EXPECT_THAT(counts, ElementsAre(1, 0));
}

TEST_F(SettingsModelTest, RebindingAShortcutSavesAllTellsTheAgentAndAnnouncesItself)
{
    const auto model = makeModel();
    const KeyCombo combo{35, 4352};
    std::vector<std::string> recordAtAnnouncement;
    QObject::connect(model.get(), &Observable::objectWillChange,
                     [&] { recordAtAnnouncement = world.takeRecord(); });
    model->rebindShortcut(ShortcutAction::openPlan, combo);
    EXPECT_EQ(model->shortcuts().bindings->at(ShortcutAction::openPlan), combo);
    EXPECT_EQ(model->shortcuts().bindings->at(ShortcutAction::focusLast),
              defaultCombo(ShortcutAction::focusLast));
    EXPECT_THAT(
        recordAtAnnouncement,
        ElementsAre("create directory ~/.vantle", "read ~/.vantle/shortcuts.json",
                    R"(write ~/.vantle/shortcuts.json { "focusLast" : { "keyCode" : 38, )"
                    R"("modifiers" : 768 }, "focusPrevious" : { "keyCode" : 40, "modifiers" : 768 }, )"
                    R"("openPlan" : { "keyCode" : 35, "modifiers" : 4352 } })",
                    "post http://127.0.0.1:18484/settings/reload-shortcuts"));
}

TEST_F(SettingsModelTest, RebindingAShortcutToItsCurrentKeyStillSavesAndTellsTheAgent)
{
    const auto model = makeModel();
    const auto rebind = [&] {
        model->rebindShortcut(ShortcutAction::openPlan, defaultCombo(ShortcutAction::openPlan));
    };
    EXPECT_THAT(askedBetweenAnnouncements(*model, rebind), ElementsAre(testing::SizeIs(4), IsEmpty()));
}

TEST_F(SettingsModelTest, TwoShortcutsMayShareAKey)
{
    const auto model = makeModel();
    const KeyCombo combo = defaultCombo(ShortcutAction::focusPrevious);
    model->rebindShortcut(ShortcutAction::focusLast, combo);
    EXPECT_EQ(model->shortcuts().bindings->at(ShortcutAction::focusLast), combo);
    EXPECT_EQ(model->shortcuts().bindings->at(ShortcutAction::focusPrevious), combo);
}

TEST_F(SettingsModelTest, ChoosingAPageIsNotSaved)
{
    const auto model = makeModel();
    model->section = SettingsSection::about;
    EXPECT_THAT(world.takeRecord(), IsEmpty());
}

TEST_F(SettingsModelTest, EveryAssignmentIsAnnouncedEvenOfAnEqualValue)
{
    const auto model = makeModel();
    int announcements = 0;
    QObject::connect(model.get(), &Observable::objectWillChange, [&] { ++announcements; });
    model->section = model->section.value();
    model->launchAtLogin = model->launchAtLogin.value();
    model->projects = model->projects.value();
    model->sessionsCount = model->sessionsCount.value();
    model->browserPatternsCount = model->browserPatternsCount.value();
    model->planningRoot = model->planningRoot.value();
    model->planningProjects = model->planningProjects.value();
    model->demoMode = model->demoMode.value();
    model->typeface = model->typeface.value();
    model->greenScreen = model->greenScreen.value();
    model->terminalBackend = model->terminalBackend.value();
    model->automaticUpdates = model->automaticUpdates.value();
    EXPECT_EQ(announcements, 12);
}

} // namespace
