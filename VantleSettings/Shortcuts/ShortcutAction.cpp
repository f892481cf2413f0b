#include "Shortcuts/ShortcutAction.h"

#include "Foundation/RawValue.h"

using namespace Qt::StringLiterals;

namespace
{

struct Traits {
    QString rawValue;
    QString title;
    QString icon;
    SystemColor tint;
    KeyCombo defaultCombo;
};

constexpr std::uint32_t commandShift = KeyCombo::command | KeyCombo::shift;

Traits traits(ShortcutAction action)
{
    switch (action) {
    case ShortcutAction::focusLast:
        // The agent's "last" is the user's "next": the list runs downwards.
        return {u"focusLast"_s,
                u"Focus next notification"_s,
                u"arrow.down.circle.fill"_s,
                SystemColor::pink,
                {38, commandShift}};
    case ShortcutAction::focusPrevious:
        return {u"focusPrevious"_s,
                u"Focus previous notification"_s,
                u"arrow.up.circle.fill"_s,
                SystemColor::teal,
                {40, commandShift}};
    case ShortcutAction::openPlan:
        return {u"openPlan"_s,
                u"Open Planning tab"_s,
                u"list.bullet.rectangle.fill"_s,
                SystemColor::purple,
                {37, commandShift}};
    }
    Q_UNREACHABLE();
}

} // namespace

QString rawValue(ShortcutAction action)
{
    return traits(action).rawValue;
}

std::optional<ShortcutAction> shortcutAction(const QString &rawValue)
{
    return fromRawValue(allShortcutActions, rawValue);
}

QString title(ShortcutAction action)
{
    return traits(action).title;
}

QString icon(ShortcutAction action)
{
    return traits(action).icon;
}

SystemColor tint(ShortcutAction action)
{
    return traits(action).tint;
}

KeyCombo defaultCombo(ShortcutAction action)
{
    return traits(action).defaultCombo;
}
