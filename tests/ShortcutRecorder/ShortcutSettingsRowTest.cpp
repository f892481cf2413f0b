#include "ShortcutRecorder/ShortcutSettingsRow.h"

#include "Components/Buttons.h"
#include "Components/Text/Label.h"
#include "KeyPresses.h"
#include "Model/SettingsModel.h"
#include "OutsideWorld.h"
#include "Platform/Keyboard/USKeyboardLayout.h"
#include "ShortcutRecorder/ShortcutRecorder.h"

#include <QAccessible>
#include <QCoreApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <memory>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace
{

const QString shortcutsFile = u".vantle/shortcuts.json"_s;

/// A layout whose every key prints this text.
class OneText : public USKeyboardLayout
{
public:
    std::optional<QString> printedText(std::uint16_t) override { return text; }

    QString text = u"x"_s;
};

class ShortcutRows : public testing::Test
{
protected:
    /// The model with a file of these bytes; none where it is empty.
    SettingsModel &model(const QByteArray &file = {})
    {
        if (!file.isEmpty())
            m_world.put(shortcutsFile, file);
        m_model = std::make_unique<SettingsModel>();
        m_world.takeRecord();
        return *m_model;
    }

    static void turnEventLoop() { QCoreApplication::sendPostedEvents(); }

    static ShortcutRecorder &recorder(QWidget &row) { return *row.findChild<ShortcutRecorder *>(); }
    static IconButton &reset(QWidget &row) { return *row.findChild<IconButton *>(); }

    static QString subtitle(QWidget &row)
    {
        for (const Label *label : row.findChildren<Label *>()) {
            if (label->text().startsWith(u"Default "_s))
                return label->text();
        }
        return {};
    }

    OutsideWorld m_world;
    USKeyboardLayout m_us;
    Seam<KeyboardLayout>::Replacement m_layoutSeam{m_us};
    std::unique_ptr<SettingsModel> m_model;
};

TEST_F(ShortcutRows, TellWhatTheyAre)
{
    ShortcutSettingsRow row(ShortcutAction::focusPrevious, model());
    EXPECT_EQ(subtitle(row), u"Default ⇧⌘K"_s);
    EXPECT_EQ(recorder(row).accessibleName(), u"Focus previous notification shortcut"_s);
    EXPECT_EQ(recorder(row).accessibleDescription(), u"⇧⌘K"_s);
    EXPECT_EQ(reset(row).toolTip(), u"Reset to default (⇧⌘K)"_s);
    EXPECT_EQ(reset(row).accessibleName(), u"Reset Focus previous notification to default (⇧⌘K)"_s);
}

TEST_F(ShortcutRows, DrawTheResetSymbolOfMediumWeight)
{
    ShortcutSettingsRow row(ShortcutAction::focusPrevious, model());
    const Symbol &symbol = reset(row).symbol();
    EXPECT_EQ(symbol.name, u"arrow.counterclockwise"_s);
    EXPECT_EQ(symbol.pointSize, 11);
    EXPECT_EQ(symbol.weight, QFont::Medium);
}

TEST_F(ShortcutRows, AreDescribedInWords)
{
    ShortcutSettingsRow row(ShortcutAction::focusPrevious, model());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&recorder(row))->text(QAccessible::Description),
              u"Shift Command K");
    const auto labels = QAccessible::queryAccessibleInterface(&reset(row))->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels.first().first->text(QAccessible::Name),
              u"Reset Focus previous notification to default (Shift Command K)");
}

TEST_F(ShortcutRows, ARecordedComboIsBoundWrittenAndPosted)
{
    SettingsModel &settings = model();
    ShortcutSettingsRow row(ShortcutAction::focusLast, settings);
    recorder(row).click();
    press(row, {KEY_F5, XKB_KEY_F5, Qt::Key_F5, Qt::AltModifier});
    EXPECT_EQ(settings.shortcuts().bindings->at(ShortcutAction::focusLast), (KeyCombo{96, 0x0800}));
    EXPECT_THAT(m_world.takeChanges(), ElementsAre("write", "post"));
    EXPECT_FALSE(recorder(row).isRecording());
    turnEventLoop();
    EXPECT_EQ(recorder(row).accessibleDescription(), u"⌥F5"_s);
    EXPECT_EQ(subtitle(row), u"Default ⇧⌘J"_s);
}

TEST_F(ShortcutRows, AfterRecordingTheOldCombinationIsNotDescribedAgain)
{
    ShortcutSettingsRow row(ShortcutAction::focusLast, model());
    recorder(row).click();
    turnEventLoop();
    press(row, {KEY_F5, XKB_KEY_F5, Qt::Key_F5, Qt::AltModifier});
    EXPECT_EQ(recorder(row).accessibleDescription(), u"Press shortcut…"_s);
    turnEventLoop();
    EXPECT_EQ(recorder(row).accessibleDescription(), u"⌥F5"_s);
}

TEST_F(ShortcutRows, ACancelledRecordingWritesNothing)
{
    ShortcutSettingsRow row(ShortcutAction::focusLast, model());
    recorder(row).click();
    press(row, {KEY_ESC, XKB_KEY_Escape, Qt::Key_Escape, Qt::MetaModifier});
    EXPECT_FALSE(recorder(row).isRecording());
    EXPECT_THAT(m_world.takeChanges(), ElementsAre());
}

TEST_F(ShortcutRows, ResettingWritesAndPostsAlsoAtTheDefault)
{
    SettingsModel &settings = model(R"({"focusLast": {"keyCode": 0, "modifiers": 256}})");
    ShortcutSettingsRow row(ShortcutAction::focusLast, settings);
    EXPECT_EQ(recorder(row).accessibleDescription(), u"⌘A"_s);
    for (int time = 0; time < 2; ++time) {
        std::vector<std::string> writtenAtAnnouncement;
        const auto connection = QObject::connect(&settings, &Observable::objectWillChange, &row,
                                                 [&] { writtenAtAnnouncement = m_world.takeChanges(); });
        reset(row).click();
        QObject::disconnect(connection);
        EXPECT_EQ(settings.shortcuts().bindings->at(ShortcutAction::focusLast), (KeyCombo{38, 0x0300}));
        EXPECT_THAT(writtenAtAnnouncement, ElementsAre("write", "post"));
        EXPECT_THAT(m_world.takeChanges(), ElementsAre());
        EXPECT_TRUE(reset(row).isEnabled());
        turnEventLoop();
        EXPECT_EQ(recorder(row).accessibleDescription(), u"⇧⌘J"_s);
    }
}

TEST_F(ShortcutRows, TwoActionsMayShareACombo)
{
    SettingsModel &settings = model();
    ShortcutSettingsRow first(ShortcutAction::focusLast, settings);
    ShortcutSettingsRow second(ShortcutAction::focusPrevious, settings);
    recorder(first).click();
    press(first, {KEY_K, XKB_KEY_K, Qt::Key_K, Qt::MetaModifier | Qt::ShiftModifier});
    turnEventLoop();
    EXPECT_EQ(recorder(first).accessibleDescription(), u"⇧⌘K"_s);
    EXPECT_EQ(recorder(second).accessibleDescription(), u"⇧⌘K"_s);
}

TEST_F(ShortcutRows, ShowWhatTheBindingsAnnounceThemselves)
{
    SettingsModel &settings = model();
    ShortcutSettingsRow row(ShortcutAction::focusLast, settings);
    settings.shortcuts().bindings.modify([](Shortcuts::Bindings &bindings) {
        bindings[ShortcutAction::focusLast] = {0, 256};
    });
    turnEventLoop();
    EXPECT_EQ(recorder(row).accessibleDescription(), u"⌘A"_s);
}

TEST_F(ShortcutRows, AreDrawnAgainWhenTheModelAnnouncesAChange)
{
    OneText layout;
    const Seam<KeyboardLayout>::Replacement replacement(layout);
    SettingsModel &settings = model();
    ShortcutSettingsRow row(ShortcutAction::focusLast, settings);
    layout.text = u"y"_s;
    Q_EMIT settings.objectWillChange();
    turnEventLoop();
    EXPECT_EQ(recorder(row).accessibleDescription(), u"⇧⌘Y"_s);
}

TEST_F(ShortcutRows, ShowAndKeepAKeyCodeThatNoKeyHas)
{
    SettingsModel &settings = model(R"({"openPlan": {"keyCode": 65536, "modifiers": 0}})");
    ShortcutSettingsRow row(ShortcutAction::openPlan, settings);
    EXPECT_EQ(recorder(row).accessibleDescription(), u"⟨65536⟩"_s);
    settings.rebindShortcut(ShortcutAction::focusLast, {0, 256});
    EXPECT_TRUE(m_world.file(shortcutsFile)->contains("\"keyCode\" : 65536"));
}

TEST_F(ShortcutRows, FollowTheKeyboardLayout)
{
    OneText layout;
    const Seam<KeyboardLayout>::Replacement replacement(layout);
    ShortcutSettingsRow row(ShortcutAction::focusLast, model());
    EXPECT_EQ(recorder(row).accessibleDescription(), u"⇧⌘X"_s);
    layout.text = u"ß"_s;
    Q_EMIT layout.objectWillChange();
    turnEventLoop();
    EXPECT_EQ(recorder(row).accessibleDescription(), u"⇧⌘SS"_s);
    EXPECT_EQ(subtitle(row), u"Default ⇧⌘SS"_s);
    EXPECT_EQ(reset(row).toolTip(), u"Reset to default (⇧⌘SS)"_s);
}

} // namespace
