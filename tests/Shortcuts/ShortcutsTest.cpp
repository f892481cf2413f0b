#include "Shortcuts/Shortcuts.h"

#include "HomeFiles.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const QString shortcutsFile = u".vantle/shortcuts.json"_s;

const QByteArray defaultsFile = R"({
  "focusLast" : {
    "keyCode" : 38,
    "modifiers" : 768
  },
  "focusPrevious" : {
    "keyCode" : 40,
    "modifiers" : 768
  },
  "openPlan" : {
    "keyCode" : 37,
    "modifiers" : 768
  }
})";

Shortcuts::Bindings loaded(const QByteArray &file)
{
    putHomeFile(shortcutsFile, file);
    return Shortcuts().bindings;
}

/// The defaults with one action bound otherwise.
Shortcuts::Bindings defaultsBut(ShortcutAction action, const KeyCombo &combo)
{
    Shortcuts::Bindings bindings = Shortcuts::defaults();
    bindings[action] = combo;
    return bindings;
}

void bind(Shortcuts &shortcuts, ShortcutAction action, const KeyCombo &combo)
{
    shortcuts.bindings.modify([&](Shortcuts::Bindings &bindings) { bindings[action] = combo; });
}

TEST(Shortcuts, AreTheDefaultsWithoutAFileAndMakeNone)
{
    const Shortcuts shortcuts;
    EXPECT_EQ(shortcuts.bindings.value(), Shortcuts::defaults());
    EXPECT_EQ(shortcuts.bindings->size(), 3U);
    EXPECT_EQ(Shortcuts::load(), std::nullopt);
    EXPECT_FALSE(QDir(homePath(u".vantle"_s)).exists());
}

TEST(Shortcuts, TheDefaultsFileIsExactlyThis)
{
    Shortcuts().save();
    EXPECT_EQ(homeFile(shortcutsFile), defaultsFile);
}

TEST(Shortcuts, SavingMakesTheDirectoryFirst)
{
    ASSERT_FALSE(QDir(homePath(u".vantle"_s)).exists());
    Shortcuts().reset(ShortcutAction::openPlan);
    EXPECT_EQ(homeFile(shortcutsFile), defaultsFile);
}

TEST(Shortcuts, APartialFileIsFilledUpWithDefaults)
{
    EXPECT_EQ(loaded(R"({"focusLast": {"keyCode": 0, "modifiers": 256}})"),
              defaultsBut(ShortcutAction::focusLast, {0, 256}));
    EXPECT_EQ(loaded("{}"), Shortcuts::defaults());
}

TEST(Shortcuts, AnUnknownNameIsIgnoredWhenItsValueIsACombo)
{
    EXPECT_EQ(loaded(R"({"zoom": {"keyCode": 1, "modifiers": 256},
                         "openPlan": {"keyCode": 35, "modifiers": 4352}})"),
              defaultsBut(ShortcutAction::openPlan, {35, 4352}));
    EXPECT_EQ(loaded(R"({"OpenPlan": {"keyCode": 35, "modifiers": 4352}})"), Shortcuts::defaults());
}

TEST(Shortcuts, ABadValueUnderAnUnknownNameDiscardsTheWholeFile)
{
    EXPECT_EQ(loaded(R"({"zoom": 5, "openPlan": {"keyCode": 35, "modifiers": 4352}})"),
              Shortcuts::defaults());
    EXPECT_EQ(Shortcuts::load(), std::nullopt);
}

TEST(Shortcuts, OneBadComboDiscardsTheWholeFile)
{
    for (const char *combo :
         {R"({"keyCode": 35})", R"({"modifiers": 256})", R"({"keyCode": -1, "modifiers": 256})",
          R"({"keyCode": 1.5, "modifiers": 256})", R"({"keyCode": 4294967296, "modifiers": 256})",
          R"({"keyCode": 35, "modifiers": -256})", R"({"keyCode": 35, "modifiers": 0.5})",
          R"({"keyCode": "35", "modifiers": 256})", R"({"keyCode": null, "modifiers": 256})",
          R"({"keyCode": 35, "modifiers": true})", R"({"KeyCode": 35, "modifiers": 256})", "null", "[]",
          "[35, 256]", "\"\"", "{}"}) {
        const QByteArray file =
            QByteArray(R"({"openPlan": {"keyCode": 35, "modifiers": 4352}, "focusLast": )") + combo + "}";
        EXPECT_EQ(loaded(file), Shortcuts::defaults()) << combo;
        EXPECT_EQ(Shortcuts::load(), std::nullopt) << combo;
    }
}

TEST(Shortcuts, AFileThatIsNoObjectIsDiscardedAndStays)
{
    for (const char *file : {"", "[]", "null", "5", "{\"openPlan\": {\"keyCode\": 35, \"modifiers\": 1}",
                             "{\"openPlan\": {\"keyCode\": 35, \"modifiers\": 1}}}", "\xff\xfe{\0}\0"}) {
        EXPECT_EQ(loaded(file), Shortcuts::defaults()) << file;
        EXPECT_EQ(Shortcuts::load(), std::nullopt) << file;
        EXPECT_EQ(homeFile(shortcutsFile), QByteArray(file));
    }
}

TEST(Shortcuts, ADirectoryInTheFilesPlaceGivesTheDefaults)
{
    ASSERT_TRUE(QDir().mkpath(homePath(shortcutsFile)));
    Shortcuts shortcuts;
    EXPECT_EQ(shortcuts.bindings.value(), Shortcuts::defaults());
    bind(shortcuts, ShortcutAction::openPlan, {35, 4352});
    shortcuts.save();
    EXPECT_EQ(shortcuts.bindings.value(), defaultsBut(ShortcutAction::openPlan, {35, 4352}));
}

TEST(Shortcuts, NumbersMayBeSpelledInAnyWay)
{
    EXPECT_EQ(loaded(R"({"focusLast": {"modifiers": 2.56e2, "keyCode": 38.0, "extra": [1, {}]}})"),
              defaultsBut(ShortcutAction::focusLast, {38, 256}));
    EXPECT_EQ(loaded(R"({"focusLast": {"keyCode": 4294967295, "modifiers": 4294967295}})"),
              defaultsBut(ShortcutAction::focusLast, {4294967295, 4294967295}));
}

TEST(Shortcuts, LegacyNamesAreReadAndNeverWritten)
{
    putHomeFile(shortcutsFile, R"({"openBrowsers": {"keyCode": 35, "modifiers": 4352},
                                   "openSessions": {"keyCode": 1, "modifiers": 256}})");
    Shortcuts shortcuts;
    EXPECT_EQ(shortcuts.bindings->at(ShortcutAction::openPlan), (KeyCombo{35, 4352}));
    EXPECT_EQ(shortcuts.bindings->at(ShortcutAction::focusPrevious), (KeyCombo{1, 256}));
    EXPECT_TRUE(homeFile(shortcutsFile)->contains("openBrowsers"));
    shortcuts.save();
    EXPECT_EQ(homeFile(shortcutsFile), R"({
  "focusLast" : {
    "keyCode" : 38,
    "modifiers" : 768
  },
  "focusPrevious" : {
    "keyCode" : 1,
    "modifiers" : 256
  },
  "openPlan" : {
    "keyCode" : 35,
    "modifiers" : 4352
  }
})");
}

TEST(Shortcuts, APresentNameWinsOverItsLegacyName)
{
    const QByteArray legacy = R"("openBrowsers": {"keyCode": 35, "modifiers": 4352})";
    const QByteArray present = R"("openPlan": {"keyCode": 1, "modifiers": 256})";
    const auto expected = defaultsBut(ShortcutAction::openPlan, {1, 256});
    EXPECT_EQ(loaded("{" + legacy + "," + present + "}"), expected);
    EXPECT_EQ(loaded("{" + present + "," + legacy + "}"), expected);
}

TEST(Shortcuts, TheFirstOfEqualNamesWins)
{
    EXPECT_EQ(loaded(R"({"openPlan": {"keyCode": 1, "modifiers": 256},
                         "openPlan": {"keyCode": 2, "modifiers": 256}})"),
              defaultsBut(ShortcutAction::openPlan, {1, 256}));
}

TEST(Shortcuts, UnknownModifierBitsSurviveARewrite)
{
    putHomeFile(shortcutsFile, R"({"openPlan": {"keyCode": 35, "modifiers": 2147484928}})");
    Shortcuts shortcuts;
    shortcuts.reset(ShortcutAction::focusLast);
    EXPECT_TRUE(homeFile(shortcutsFile)->contains("\"modifiers\" : 2147484928"));
}

TEST(Shortcuts, AKeyCodeThatNoKeyHasSurvivesARewrite)
{
    putHomeFile(shortcutsFile, R"({"openPlan": {"keyCode": 65536, "modifiers": 256}})");
    Shortcuts().reset(ShortcutAction::focusLast);
    EXPECT_TRUE(homeFile(shortcutsFile)->contains("\"keyCode\" : 65536"));
}

TEST(Shortcuts, TwoActionsMayShareACombo)
{
    Shortcuts shortcuts;
    bind(shortcuts, ShortcutAction::focusLast, defaultCombo(ShortcutAction::focusPrevious));
    shortcuts.save();
    EXPECT_EQ(Shortcuts().bindings.value(), defaultsBut(ShortcutAction::focusLast, {40, 768}));
}

TEST(Shortcuts, ResettingChangesOneActionOnly)
{
    Shortcuts shortcuts;
    bind(shortcuts, ShortcutAction::focusLast, {0, 256});
    bind(shortcuts, ShortcutAction::openPlan, {35, 4352});
    shortcuts.reset(ShortcutAction::focusLast);
    EXPECT_EQ(shortcuts.bindings.value(), defaultsBut(ShortcutAction::openPlan, {35, 4352}));
    EXPECT_EQ(Shortcuts::load(), shortcuts.bindings.value());
}

TEST(Shortcuts, ResettingADefaultStillRewritesTheFile)
{
    Shortcuts shortcuts;
    ASSERT_EQ(homeFile(shortcutsFile), std::nullopt);
    shortcuts.reset(ShortcutAction::focusLast);
    EXPECT_EQ(homeFile(shortcutsFile), defaultsFile);
    putHomeFile(shortcutsFile, "overwritten");
    shortcuts.reset(ShortcutAction::focusLast);
    EXPECT_EQ(homeFile(shortcutsFile), defaultsFile);
}

TEST(Shortcuts, ChangesAreAnnouncedBeforeTheyHappen)
{
    Shortcuts shortcuts;
    bind(shortcuts, ShortcutAction::openPlan, {35, 4352});
    std::vector<KeyCombo> seen;
    QObject::connect(&shortcuts, &Observable::objectWillChange,
                     [&] { seen.push_back(shortcuts.bindings->at(ShortcutAction::openPlan)); });
    shortcuts.reset(ShortcutAction::openPlan);
    EXPECT_EQ(seen, std::vector{(KeyCombo{35, 4352})});
}

} // namespace
