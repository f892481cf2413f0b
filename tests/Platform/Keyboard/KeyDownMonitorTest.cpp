#include "Platform/Keyboard/KeyDownMonitor.h"

#include "KeyPresses.h"
#include "Platform/Keyboard/ModifierFlags.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QLineEdit>

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

/// A text field with a monitor before it.
struct MonitoredField {
    QLineEdit field;
    std::vector<KeyDown> keys;
    std::unique_ptr<KeyDownMonitor> monitor =
        std::make_unique<KeyDownMonitor>([this](const KeyDown &key) { keys.push_back(key); });
};

const PressedKey plainJ{KEY_J, XKB_KEY_j, Qt::Key_J};

TEST(KeyDownMonitor, TakesKeysBeforeTextFieldAndMenu)
{
    MonitoredField field;
    EXPECT_FALSE(press(field.field, plainJ));
    EXPECT_FALSE(press(field.field, {KEY_W, XKB_KEY_w, Qt::Key_W, Qt::ControlModifier}));
    EXPECT_EQ(field.field.text(), QString());
    ASSERT_EQ(field.keys.size(), 2U);
    EXPECT_EQ(field.keys.at(0).keyCode, 38U);
    EXPECT_EQ(field.keys.at(0).modifierFlags, 0U);
    EXPECT_EQ(field.keys.at(1).keyCode, 13U);
    EXPECT_EQ(field.keys.at(1).modifierFlags, ModifierFlags::control);
}

TEST(KeyDownMonitor, LeavesKeysAloneOnceItIsGone)
{
    MonitoredField field;
    field.monitor.reset();
    QKeyEvent typed(QEvent::KeyPress, Qt::Key_J, Qt::NoModifier, KEY_J + 8, XKB_KEY_j, 0, u"j"_s);
    QCoreApplication::sendEvent(&field.field, &typed);
    EXPECT_EQ(field.field.text(), u"j"_s);
    EXPECT_TRUE(field.keys.empty());
}

TEST(KeyDownMonitor, SuperIsCommandAndAltIsOption)
{
    MonitoredField field;
    PressedKey key = plainJ;
    const std::vector<std::pair<Qt::KeyboardModifiers, std::uint32_t>> flags{
        {Qt::MetaModifier, ModifierFlags::command},
        {Qt::AltModifier, ModifierFlags::option},
        {Qt::ControlModifier, ModifierFlags::control},
        {Qt::ShiftModifier, ModifierFlags::shift},
        {Qt::KeypadModifier, 0},
        {Qt::GroupSwitchModifier, 0}};
    for (const auto &[modifiers, expected] : flags) {
        key.modifiers = modifiers;
        press(field.field, key);
        EXPECT_EQ(field.keys.back().modifierFlags, expected) << modifiers;
    }
}

TEST(KeyDownMonitor, SwallowsModifierAndLockKeys)
{
    MonitoredField field;
    for (const PressedKey &key : std::vector<PressedKey>{
             {KEY_LEFTCTRL, XKB_KEY_Control_L, Qt::Key_Control},
             {KEY_LEFTMETA, XKB_KEY_Super_L, Qt::Key_Super_L},
             {KEY_RIGHTALT, XKB_KEY_ISO_Level3_Shift, Qt::Key_AltGr},
             {KEY_CAPSLOCK, XKB_KEY_Caps_Lock, Qt::Key_CapsLock},
             {KEY_NUMLOCK, XKB_KEY_Num_Lock, Qt::Key_NumLock},
             {KEY_BACKSLASH, XKB_KEY_ISO_Level3_Shift, Qt::Key_AltGr, Qt::ControlModifier},
             {KEY_COMPOSE, XKB_KEY_Super_R, Qt::Key_Super_R, Qt::ControlModifier},
             {KEY_102ND, XKB_KEY_ISO_Level5_Shift, Qt::Key_unknown, Qt::ControlModifier},
             {KEY_SPACE, XKB_KEY_ISO_Next_Group, Qt::Key_unknown, Qt::MetaModifier}}) {
        EXPECT_FALSE(press(field.field, key));
        EXPECT_TRUE(field.keys.empty()) << key.evdevCode;
    }
}

TEST(KeyDownMonitor, SwallowsKeysThatNoMacKeyboardHas)
{
    MonitoredField field;
    EXPECT_FALSE(press(field.field, {KEY_PAUSE, XKB_KEY_Pause, Qt::Key_Pause, Qt::ControlModifier}));
    EXPECT_FALSE(press(field.field, {KEY_HENKAN, XKB_KEY_Henkan, Qt::Key_Henkan, Qt::ControlModifier}));
    EXPECT_TRUE(field.keys.empty());
}

TEST(KeyDownMonitor, ShiftTabIsTheTabKey)
{
    MonitoredField field;
    press(field.field,
          {KEY_TAB, XKB_KEY_ISO_Left_Tab, Qt::Key_Backtab, Qt::ShiftModifier | Qt::ControlModifier});
    ASSERT_EQ(field.keys.size(), 1U);
    EXPECT_EQ(field.keys.front().keyCode, 48U);
    EXPECT_EQ(field.keys.front().modifierFlags, ModifierFlags::control | ModifierFlags::shift);
}

TEST(KeyDownMonitor, ADeadKeyIsAKeyLikeAnother)
{
    MonitoredField field;
    press(field.field, {KEY_LEFTBRACE, XKB_KEY_dead_circumflex, Qt::Key_Dead_Circumflex, Qt::AltModifier});
    ASSERT_EQ(field.keys.size(), 1U);
    EXPECT_EQ(field.keys.front().keyCode, 33U);
}

TEST(KeyDownMonitor, AKeyMadeEscapeByTheLayoutIsEscape)
{
    MonitoredField field;
    press(field.field, {KEY_CAPSLOCK, XKB_KEY_Escape, Qt::Key_Escape});
    ASSERT_EQ(field.keys.size(), 1U);
    EXPECT_EQ(field.keys.front().keyCode, 53U);
}

TEST(KeyDownMonitor, MarksRepeats)
{
    MonitoredField field;
    PressedKey key = plainJ;
    press(field.field, key);
    key.isRepeat = true;
    press(field.field, key);
    ASSERT_EQ(field.keys.size(), 2U);
    EXPECT_FALSE(field.keys.at(0).isRepeat);
    EXPECT_TRUE(field.keys.at(1).isRepeat);
}

TEST(KeyDownMonitor, TurnsTheInputMethodOff)
{
    MonitoredField field;
    const auto enabled = [&field] {
        QInputMethodQueryEvent query(Qt::ImEnabled);
        QCoreApplication::sendEvent(&field.field, &query);
        return query.value(Qt::ImEnabled).toBool();
    };
    EXPECT_FALSE(enabled());
    QInputMethodEvent composed;
    composed.setCommitString(u"字"_s);
    QCoreApplication::sendEvent(&field.field, &composed);
    EXPECT_EQ(field.field.text(), QString());
    field.monitor.reset();
    EXPECT_TRUE(enabled());
}

TEST(KeyDownMonitor, MayBeDestroyedByItsHandler)
{
    QLineEdit field;
    int keys = 0;
    std::unique_ptr<KeyDownMonitor> monitor;
    monitor = std::make_unique<KeyDownMonitor>([&](const KeyDown &) {
        monitor.reset();
        ++keys;
    });
    press(field, plainJ);
    EXPECT_EQ(keys, 1);
    EXPECT_EQ(monitor, nullptr);
}

} // namespace
