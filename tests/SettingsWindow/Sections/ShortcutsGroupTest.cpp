#include "SettingsWindow/Sections/ShortcutsGroup.h"

#include "Components/Buttons.h"
#include "Components/SettingsGroup.h"
#include "Model/SettingsModel.h"
#include "OutsideWorld.h"
#include "ShortcutRecorder/ShortcutSettingsRow.h"

#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace
{

const QString shortcutsFile = u".vantle/shortcuts.json"_s;

TEST(ShortcutsGroup, ListsTheShortcutsWithDividersBetweenAndAboveResetAll)
{
    const OutsideWorld world;
    SettingsModel settings;
    const std::unique_ptr<SettingsGroup> group(shortcutsGroup(settings));
    EXPECT_EQ(group->accessibleName(), u"Keyboard Shortcuts"_s);
    EXPECT_EQ(group->accessibleDescription(), u"Click a shortcut to rebind it. Press ⎋ to cancel."_s);
    QString order;
    for (const QObject *part : group->findChild<ShortcutSettingsRow *>()->parentWidget()->children()) {
        if (qobject_cast<const ShortcutSettingsRow *>(part))
            order += u'R';
        else if (qobject_cast<const SettingsRowDivider *>(part))
            order += u'-';
        else if (part->findChild<LinkButton *>())
            order += u'A';
    }
    EXPECT_EQ(order, u"R-R-R-A"_s);
    EXPECT_EQ(group->findChild<LinkButton *>()->text(), u"Reset all shortcuts"_s);
}

TEST(ShortcutsGroup, ResetAllWritesAndPostsThreeTimesAlsoAtTheDefaults)
{
    OutsideWorld world;
    world.put(shortcutsFile, R"({"focusLast": {"keyCode": 0, "modifiers": 256}})");
    SettingsModel settings;
    world.takeRecord();
    const std::unique_ptr<SettingsGroup> group(shortcutsGroup(settings));
    for (int time = 0; time < 2; ++time) {
        const QSignalSpy announcements(&settings, &Observable::objectWillChange);
        group->findChild<LinkButton *>()->click();
        EXPECT_THAT(world.takeChanges(), ElementsAre("write", "post", "write", "post", "write", "post"));
        EXPECT_EQ(announcements.size(), 3);
        EXPECT_EQ(settings.shortcuts().bindings.value(), Shortcuts::defaults());
    }
}

TEST(ShortcutsGroup, ResetAllGoesThroughTheActionsInTheirOrder)
{
    OutsideWorld world;
    world.put(shortcutsFile, R"({"focusLast": {"keyCode": 0, "modifiers": 256},
                                 "focusPrevious": {"keyCode": 0, "modifiers": 256},
                                 "openPlan": {"keyCode": 0, "modifiers": 256}})");
    SettingsModel settings;
    const std::unique_ptr<SettingsGroup> group(shortcutsGroup(settings));
    std::vector<Shortcuts::Bindings> announced;
    QObject::connect(&settings, &Observable::objectWillChange, group.get(),
                     [&] { announced.push_back(settings.shortcuts().bindings); });
    group->findChild<LinkButton *>()->click();
    Shortcuts::Bindings expected = Shortcuts::defaults();
    expected[ShortcutAction::openPlan] = {0, 256};
    ASSERT_EQ(announced.size(), 3);
    EXPECT_EQ(announced[1], expected);
    expected[ShortcutAction::focusPrevious] = {0, 256};
    EXPECT_EQ(announced[0], expected);
}

} // namespace
