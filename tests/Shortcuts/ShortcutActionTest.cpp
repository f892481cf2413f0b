#include "Shortcuts/ShortcutAction.h"

#include "Foundation/Seam.h"
#include "Platform/Keyboard/USKeyboardLayout.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

TEST(ShortcutAction, ListsItsActionsInTheOrderOfTheirRows)
{
    EXPECT_EQ(rawValue(allShortcutActions.at(0)), u"focusLast"_s);
    EXPECT_EQ(rawValue(allShortcutActions.at(1)), u"focusPrevious"_s);
    EXPECT_EQ(rawValue(allShortcutActions.at(2)), u"openPlan"_s);
    EXPECT_EQ(allShortcutActions.size(), 3U);
}

TEST(ShortcutAction, FocusLastIsTheNextNotification)
{
    EXPECT_EQ(title(ShortcutAction::focusLast), u"Focus next notification"_s);
    EXPECT_EQ(icon(ShortcutAction::focusLast), u"arrow.down.circle.fill"_s);
    EXPECT_EQ(tint(ShortcutAction::focusLast), SystemColor::pink);
}

TEST(ShortcutAction, TheOthersAreWhatTheySay)
{
    EXPECT_EQ(title(ShortcutAction::focusPrevious), u"Focus previous notification"_s);
    EXPECT_EQ(icon(ShortcutAction::focusPrevious), u"arrow.up.circle.fill"_s);
    EXPECT_EQ(tint(ShortcutAction::focusPrevious), SystemColor::teal);
    EXPECT_EQ(title(ShortcutAction::openPlan), u"Open Planning tab"_s);
    EXPECT_EQ(icon(ShortcutAction::openPlan), u"list.bullet.rectangle.fill"_s);
    EXPECT_EQ(tint(ShortcutAction::openPlan), SystemColor::purple);
}

TEST(ShortcutAction, DefaultsAreCommandShiftJKL)
{
    USKeyboardLayout us;
    const Seam<KeyboardLayout>::Replacement replacement(us);
    EXPECT_EQ(defaultCombo(ShortcutAction::focusLast), (KeyCombo{38, 768}));
    EXPECT_EQ(defaultCombo(ShortcutAction::focusPrevious), (KeyCombo{40, 768}));
    EXPECT_EQ(defaultCombo(ShortcutAction::openPlan), (KeyCombo{37, 768}));
    EXPECT_EQ(defaultCombo(ShortcutAction::focusLast).display(), u"⇧⌘J"_s);
    EXPECT_EQ(defaultCombo(ShortcutAction::focusPrevious).display(), u"⇧⌘K"_s);
    EXPECT_EQ(defaultCombo(ShortcutAction::openPlan).display(), u"⇧⌘L"_s);
}

TEST(ShortcutAction, IsFoundByItsExactNameOnly)
{
    for (const ShortcutAction action : allShortcutActions)
        EXPECT_EQ(shortcutAction(rawValue(action)), action);
    for (const QString &name : {u"FocusLast"_s, u"focuslast"_s, u" focusLast"_s, u"openBrowsers"_s, u""_s})
        EXPECT_EQ(shortcutAction(name), std::nullopt) << name.toStdString();
}

} // namespace
