#include "Model/SettingsSection.h"

#include <QStringList>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace
{

TEST(SettingsSection, IsListedInSidebarOrderByItsTitle)
{
    QStringList titles;
    for (const auto section : allSettingsSections)
        titles << rawValue(section);
    EXPECT_EQ(titles, (QStringList{u"General"_s, u"Planning"_s, u"Browser Patterns"_s, u"Data & Privacy"_s,
                                   u"About"_s}));
}

TEST(SettingsSection, IsMadeFromExactlyItsTitle)
{
    for (const auto section : allSettingsSections)
        EXPECT_EQ(settingsSection(rawValue(section)), section);
    for (const auto &other : {u"general"_s, u"General "_s, u""_s, u"Browser"_s})
        EXPECT_EQ(settingsSection(other), std::nullopt) << other.toStdString();
}

TEST(SettingsSection, HasASymbolAndASubtitleEach)
{
    QStringList symbols;
    QStringList subtitles;
    for (const auto section : allSettingsSections) {
        symbols << symbol(section);
        subtitles << subtitle(section);
    }
    EXPECT_EQ(symbols, (QStringList{u"gearshape.fill"_s, u"checklist"_s, u"globe"_s, u"internaldrive.fill"_s,
                                    u"info"_s}));
    EXPECT_EQ(subtitles,
              (QStringList{
                  u"Configure how the notch agent launches and the global shortcuts it listens for."_s,
                  u"Point the agent at the folder where your planning work lives."_s,
                  u"Match browser tabs to the project that owns them so ⇧⌘L opens the right page."_s,
                  u"Clear persisted sessions and browser patterns, or remove the Claude/Codex hooks Vantle "
                  u"installed. These actions cannot be undone."_s,
                  u"Build information and the paths the agent reads and writes."_s}));
}

TEST(SettingsSection, HasASystemColourEach)
{
    std::vector<SystemColor> tints;
    tints.reserve(allSettingsSections.size());
    for (const auto section : allSettingsSections)
        tints.push_back(tint(section));
    EXPECT_THAT(tints, testing::ElementsAre(SystemColor::gray, SystemColor::green, SystemColor::blue,
                                            SystemColor::orange, SystemColor::indigo));
}

} // namespace
