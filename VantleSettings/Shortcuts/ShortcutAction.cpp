#include "Shortcuts/ShortcutAction.h"

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

const Traits &traits(ShortcutAction action)
{
    // The agent's "last" is the user's "next": the list runs downwards.
    static const Traits focusLast{u"focusLast"_s,
                                  u"Focus next notification"_s,
                                  u"arrow.down.circle.fill"_s,
                                  SystemColor::pink,
                                  {38, commandShift}};
    static const Traits focusPrevious{u"focusPrevious"_s,
                                      u"Focus previous notification"_s,
                                      u"arrow.up.circle.fill"_s,
                                      SystemColor::teal,
                                      {40, commandShift}};
    static const Traits openPlan{u"openPlan"_s,
                                 u"Open Planning tab"_s,
                                 u"list.bullet.rectangle.fill"_s,
                                 SystemColor::purple,
                                 {37, commandShift}};
    switch (action) {
    case ShortcutAction::focusLast:
        return focusLast;
    case ShortcutAction::focusPrevious:
        return focusPrevious;
    case ShortcutAction::openPlan:
        break;
    }
    return openPlan;
}

} // namespace

QString rawValue(ShortcutAction action)
{
    return traits(action).rawValue;
}

std::optional<ShortcutAction> shortcutAction(const QString &rawValue)
{
    for (const ShortcutAction action : allShortcutActions) {
        if (traits(action).rawValue == rawValue)
            return action;
    }
    return std::nullopt;
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
