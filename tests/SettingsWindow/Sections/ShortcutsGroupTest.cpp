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

class ShortcutsGroupTest : public testing::Test
{
protected:
    /// The model with a file of these bytes; none where it is empty.
    SettingsModel &model(const QByteArray &file = {})
    {
        if (!file.isEmpty())
            m_world.put(u".vantle/shortcuts.json"_s, file);
        m_model = std::make_unique<SettingsModel>();
        m_world.takeRecord();
        return *m_model;
    }

    /// The files written and the requests posted since the last call.
    std::vector<std::string> written()
    {
        std::vector<std::string> record = m_world.takeRecord();
        std::erase_if(record, [](const std::string &entry) {
            return entry.rfind("write", 0) != 0 && entry.rfind("post", 0) != 0;
        });
        for (std::string &entry : record)
            entry = entry.substr(0, entry.find(' '));
        return record;
    }

private:
    OutsideWorld m_world;
    std::unique_ptr<SettingsModel> m_model;
};

TEST_F(ShortcutsGroupTest, ListsTheShortcutsWithDividersBetweenAndAboveResetAll)
{
    const std::unique_ptr<SettingsGroup> group(shortcutsGroup(model()));
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

TEST_F(ShortcutsGroupTest, ResetAllWritesAndPostsThreeTimesAlsoAtTheDefaults)
{
    SettingsModel &settings = model(R"({"focusLast": {"keyCode": 0, "modifiers": 256}})");
    const std::unique_ptr<SettingsGroup> group(shortcutsGroup(settings));
    for (int time = 0; time < 2; ++time) {
        const QSignalSpy announcements(&settings, &Observable::objectWillChange);
        group->findChild<LinkButton *>()->click();
        EXPECT_THAT(written(), ElementsAre("write", "post", "write", "post", "write", "post"));
        EXPECT_EQ(announcements.size(), 3);
        EXPECT_EQ(settings.shortcuts().bindings.value(), Shortcuts::defaults());
    }
}

TEST_F(ShortcutsGroupTest, ResetAllGoesThroughTheActionsInTheirOrder)
{
    SettingsModel &settings = model(R"({"focusLast": {"keyCode": 0, "modifiers": 256},
                                        "focusPrevious": {"keyCode": 0, "modifiers": 256},
                                        "openPlan": {"keyCode": 0, "modifiers": 256}})");
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
