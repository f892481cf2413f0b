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

TEST(SettingsSection, HasAColourOfTheSystemEach)
{
    std::vector<SystemColor> tints;
    tints.reserve(allSettingsSections.size());
    for (const auto section : allSettingsSections)
        tints.push_back(tint(section));
    EXPECT_THAT(tints, testing::ElementsAre(SystemColor::gray, SystemColor::green, SystemColor::blue,
                                            SystemColor::orange, SystemColor::indigo));
}

} // namespace
