#include "Components/Buttons.h"
#include "Components/SettingsGroup.h"
#include "Components/SettingsRow.h"
#include "Finding.h"
#include "GeneralPage.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

const QString usedForEveryLabel = u"Used for every label rendered by the notch overlay."_s;

QStringList entries(const Picker &picker)
{
    QStringList texts;
    for (int i = 0; i < picker.count(); ++i)
        texts << picker.itemText(i);
    return texts;
}

TEST_F(GeneralPage, ShowsTheSettingsAsTheyAre)
{
    world.serviceIsLoaded = true;
    world.put(u".vantle/typeface.json"_s, R"({"name":"system"})");
    world.put(u".vantle/terminal-backend.json"_s, R"({"backend":"vantle-term"})");
    world.put(u".vantle/green-screen.json"_s, R"({"enabled":true})");
    world.put(u".vantle/updates.json"_s, R"({"automatic":false})");
    ShownPage page(world);
    EXPECT_TRUE(page.launch().isChecked());
    EXPECT_EQ(page.typeface().currentText(), u"System (SF Pro)"_s);
    EXPECT_EQ(page.terminal().currentText(), u"Vantle Terminal"_s);
    EXPECT_TRUE(page.recording().isChecked());
    EXPECT_FALSE(page.updates().isChecked());
}

TEST_F(GeneralPage, ThePickersListTheirOptions)
{
    ShownPage page(world);
    EXPECT_EQ(entries(page.typeface()), (QStringList{u"System (SF Pro)"_s, u"JetBrains Mono"_s}));
    EXPECT_EQ(entries(page.terminal()), (QStringList{u"iTerm2"_s, u"Vantle Terminal"_s}));
    EXPECT_LE(page.typeface().width(), 200);
}

TEST_F(GeneralPage, EveryRowSaysWhatItIsFor)
{
    ShownPage page(world);
    EXPECT_EQ(page.launch().accessibleDescription(), u"Keep the notification agent running via launchd."_s);
    EXPECT_EQ(page.typeface().accessibleDescription(), usedForEveryLabel);
    EXPECT_EQ(page.terminal().accessibleDescription(),
              u"Which terminal the agent focuses, lists, and launches sessions in."_s);
    EXPECT_EQ(page.recording().accessibleDescription(),
              u"Render the overlay on solid magenta so it can be keyed for transparent marketing footage."_s);
    EXPECT_EQ(page.updates().accessibleDescription(),
              u"Let the standalone updater check for signed Vantle releases in the background."_s);
}

TEST_F(GeneralPage, AMissingFontIsSaidInTheEntryAndInTheSubtitle)
{
    fonts.installed = false;
    ShownPage page(world);
    EXPECT_EQ(page.typeface().currentText(), u"JetBrains Mono — not installed"_s);
    EXPECT_EQ(page.typeface().accessibleDescription(),
              u"Install JetBrains Mono to enable. The agent falls back to SF Pro when missing."_s);
}

TEST_F(GeneralPage, WithTheSystemFontAMissingFontIsSaidInTheEntryOnly)
{
    fonts.installed = false;
    world.put(u".vantle/typeface.json"_s, R"({"name":"system"})");
    ShownPage page(world);
    EXPECT_EQ(entries(page.typeface()),
              (QStringList{u"System (SF Pro)"_s, u"JetBrains Mono — not installed"_s}));
    EXPECT_EQ(page.typeface().accessibleDescription(), usedForEveryLabel);
}

TEST_F(GeneralPage, AFontThatAppearsIsNoticedAtTheNextChange)
{
    fonts.installed = false;
    ShownPage page(world);
    fonts.installed = true;
    Q_EMIT page.model.objectWillChange();
    settle();
    EXPECT_EQ(page.typeface().currentText(), u"JetBrains Mono"_s);
    EXPECT_EQ(page.typeface().accessibleDescription(), usedForEveryLabel);
}

TEST_F(GeneralPage, AFontThatAppearsIsNoticedWhenThePageIsShownAgain)
{
    fonts.installed = false;
    ShownPage page(world);
    page.view.hide();
    fonts.installed = true;
    page.view.show();
    EXPECT_EQ(page.typeface().currentText(), u"JetBrains Mono"_s);
}

TEST_F(GeneralPage, ChoosingATypefaceSavesThenPosts)
{
    ShownPage page(world);
    EXPECT_THAT(page.pick(page.typeface(), 0),
                ElementsAre("create directory ~/.vantle", "read ~/.vantle/typeface.json",
                            R"(write ~/.vantle/typeface.json { "name" : "system" })",
                            "post http://127.0.0.1:18484/settings/reload-typeface"));
    EXPECT_EQ(page.model.typeface, TypefaceOption::system);
}

TEST_F(GeneralPage, ChoosingATerminalSavesThenPosts)
{
    ShownPage page(world);
    EXPECT_THAT(page.pick(page.terminal(), 1),
                ElementsAre("create directory ~/.vantle", "read ~/.vantle/terminal-backend.json",
                            R"(write ~/.vantle/terminal-backend.json { "backend" : "vantle-term" })",
                            "post http://127.0.0.1:18484/settings/reload-terminal-backend"));
    EXPECT_EQ(page.model.terminalBackend, TerminalBackendOption::vantleTerm);
}

TEST_F(GeneralPage, ChoosingWhatIsChosenDoesNothing)
{
    ShownPage page(world);
    EXPECT_THAT(page.pick(page.typeface(), 1), IsEmpty());
    EXPECT_THAT(page.pick(page.terminal(), 0), IsEmpty());
}

TEST_F(GeneralPage, RecordingModeSavesThenPostsOncePerRealChange)
{
    ShownPage page(world);
    EXPECT_THAT(page.click(page.recording()),
                ElementsAre("create directory ~/.vantle", "read ~/.vantle/green-screen.json",
                            R"(write ~/.vantle/green-screen.json { "enabled" : true })",
                            "post http://127.0.0.1:18484/settings/reload-green-screen"));
    EXPECT_TRUE(page.model.greenScreen);
    EXPECT_TRUE(page.recording().isChecked());
    EXPECT_THAT(page.click(page.recording()),
                ElementsAre("create directory ~/.vantle", "read ~/.vantle/green-screen.json",
                            R"(write ~/.vantle/green-screen.json { "enabled" : false })",
                            "post http://127.0.0.1:18484/settings/reload-green-screen"));
    EXPECT_FALSE(page.recording().isChecked());
}

TEST_F(GeneralPage, TwoClicksThatWaitedTogetherAreTwoChanges)
{
    ShownPage page(world);
    for (Switch *button : {&page.launch(), &page.recording(), &page.updates()}) {
        const bool before = button->isChecked();
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_NE(button->isChecked(), before);
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(button->isChecked(), before);
    }
    EXPECT_FALSE(page.model.greenScreen);
    EXPECT_THAT(world.takeRecord(), testing::IsSupersetOf({"load the job", "unload the job"}));
}

TEST_F(GeneralPage, AChangeThatCannotBeSavedIsMadeAndToldAllTheSame)
{
    world.filesRefuse = true;
    ShownPage page(world);
    const bool updates = page.updates().isChecked();
    const std::string post = "post http://127.0.0.1:18484/settings/";
    EXPECT_EQ(page.click(page.recording()).back(), post + "reload-green-screen");
    EXPECT_EQ(page.pick(page.terminal(), 1).back(), post + "reload-terminal-backend");
    EXPECT_EQ(page.pick(page.typeface(), 0).back(), post + "reload-typeface");
    QTest::mouseClick(page.view.findChild<LinkButton *>(), Qt::LeftButton);
    EXPECT_EQ(world.takeRecord().back(), post + "reload-shortcuts");
    page.click(page.updates());
    EXPECT_TRUE(page.recording().isChecked());
    EXPECT_EQ(page.terminal().currentIndex(), 1);
    EXPECT_EQ(page.typeface().currentIndex(), 0);
    EXPECT_NE(page.updates().isChecked(), updates);
    EXPECT_EQ(world.file(u".vantle/green-screen.json"_s), std::nullopt);
}

TEST_F(GeneralPage, RecordingModeChangesBetweenItsSavingAndItsPost)
{
    ShownPage page(world);
    std::vector<std::string> beforeTheChange;
    QObject::connect(&page.model, &Observable::objectWillChange,
                     [&] { beforeTheChange = world.takeRecord(); });
    EXPECT_THAT(page.click(page.recording()),
                ElementsAre("post http://127.0.0.1:18484/settings/reload-green-screen"));
    ASSERT_FALSE(beforeTheChange.empty());
    EXPECT_THAT(beforeTheChange.back(), testing::StartsWith("write ~/.vantle/green-screen.json"));
}

TEST_F(GeneralPage, AutomaticUpdatesChangeOnceTheyAreSaved)
{
    ShownPage page(world);
    std::vector<std::string> beforeTheChange;
    QObject::connect(&page.model, &Observable::objectWillChange,
                     [&] { beforeTheChange = world.takeRecord(); });
    EXPECT_THAT(page.click(page.updates()), IsEmpty());
    EXPECT_THAT(beforeTheChange, ElementsAre("read ~/.vantle/updates.json", "create directory ~/.vantle",
                                             "read ~/.vantle/updates.json",
                                             R"(write ~/.vantle/updates.json { "automatic" : false })"));
}

TEST_F(GeneralPage, AskingForWhatIsSetDoesNothing)
{
    ShownPage page(world);
    Q_EMIT page.recording().requested(false);
    Q_EMIT page.updates().requested(true);
    EXPECT_THAT(world.takeRecord(), IsEmpty());
}

TEST_F(GeneralPage, AutomaticUpdatesKeepTheManifestAddressWrittenMeanwhileAndPostNothing)
{
    ShownPage page(world);
    world.put(u".vantle/updates.json"_s,
              R"({"automatic":true,"manifest_url":"https://vantle.example/m","x":1})");
    EXPECT_THAT(
        page.click(page.updates()),
        ElementsAre(
            "read ~/.vantle/updates.json", "create directory ~/.vantle", "read ~/.vantle/updates.json",
            R"(write ~/.vantle/updates.json { "automatic" : false, "manifest_url" : "https:\/\/vantle.example\/m" })"));
    EXPECT_FALSE(page.model.automaticUpdates);
    EXPECT_FALSE(page.updates().isChecked());
}

TEST_F(GeneralPage, AutomaticUpdatesForgetTheAddressOfAnInvalidFile)
{
    world.put(u".vantle/updates.json"_s, R"({"manifest_url":"https://vantle.example/m"})");
    ShownPage page(world);
    page.click(page.updates());
    EXPECT_EQ(world.file(u".vantle/updates.json"_s), "{\n  \"automatic\" : false\n}");
}

TEST_F(GeneralPage, AChangeFromElsewhereIsShown)
{
    ShownPage page(world);
    page.model.greenScreen = true;
    page.model.setTerminalBackend(TerminalBackendOption::vantleTerm);
    settle();
    EXPECT_TRUE(page.recording().isChecked());
    EXPECT_EQ(page.terminal().currentText(), u"Vantle Terminal"_s);
}

TEST_F(GeneralPage, ResettingAllShortcutsWritesAndPostsForEachActionEvenAtTheirDefaults)
{
    ShownPage page(world);
    QTest::mouseClick(page.view.findChild<LinkButton *>(), Qt::LeftButton);
    const std::vector<std::string> asked = world.takeRecord();
    ASSERT_EQ(asked.size(), 12);
    for (size_t action = 0; action < 3; ++action) {
        EXPECT_THAT(asked[4 * action + 2], testing::StartsWith("write ~/.vantle/shortcuts.json"));
        EXPECT_EQ(asked[4 * action + 3], "post http://127.0.0.1:18484/settings/reload-shortcuts");
    }
}

TEST_F(GeneralPage, DividersStandBetweenTheShortcutsAndAboveTheirResetAndNowhereElse)
{
    ShownPage page(world);
    const auto *group = named<SettingsGroup>(page.view, u"Keyboard Shortcuts"_s);
    EXPECT_EQ(group->findChildren<SettingsRowDivider *>().size(), 3);
    EXPECT_EQ(page.view.findChildren<SettingsRowDivider *>().size(), 5);
}

} // namespace
