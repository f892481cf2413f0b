#include "Shortcuts/Shortcuts.h"

#include "Persistence/HomeFile.h"
#include "Persistence/SharedFiles.h"

using namespace Qt::StringLiterals;

namespace
{

/// The action that takes over the binding of an action of earlier versions of the agent; nothing for any
/// other name.
std::optional<ShortcutAction> legacyAction(const QString &name)
{
    if (name == u"openBrowsers"_s)
        return ShortcutAction::openPlan;
    if (name == u"openSessions"_s)
        return ShortcutAction::focusPrevious;
    return std::nullopt;
}

std::optional<KeyCombo> decoded(const Json::Value &value)
{
    const auto keyCode = value["keyCode"].uint32();
    const auto modifiers = value["modifiers"].uint32();
    if (!keyCode || !modifiers)
        return std::nullopt;
    return KeyCombo{*keyCode, *modifiers};
}

/// The binding of every action; nothing when any member is no key combination.
std::optional<Shortcuts::Bindings> allBindings(const Json::Value &top)
{
    if (!top.isObject())
        return std::nullopt;
    Shortcuts::Bindings current;
    Shortcuts::Bindings legacy;
    for (const auto &[name, value] : top.members()) {
        const auto combo = decoded(value);
        if (!combo)
            return std::nullopt;
        if (const auto action = shortcutAction(name))
            current[*action] = *combo;
        else if (const auto successor = legacyAction(name))
            legacy[*successor] = *combo;
    }
    // merge() keeps present entries: a current name wins over a legacy one, and that over the default.
    current.merge(legacy);
    current.merge(Shortcuts::defaults());
    return current;
}

Json::Object encoded(const KeyCombo &combo)
{
    return {{u"keyCode"_s, std::int64_t{combo.keyCode}}, {u"modifiers"_s, std::int64_t{combo.modifiers}}};
}

} // namespace

Shortcuts::Shortcuts(QObject *parent) : Observable(parent), bindings(*this, load().value_or(defaults()))
{
}

void Shortcuts::reset(ShortcutAction action)
{
    bindings.modify([action](Bindings &all) { all[action] = defaultCombo(action); });
    save();
}

void Shortcuts::save() const
{
    Json::Object members;
    for (const auto &[action, combo] : bindings.value())
        members.emplace_back(rawValue(action), encoded(combo));
    HomeFile::save(SharedFiles::shortcuts.path, members, allBindings);
}

std::optional<Shortcuts::Bindings> Shortcuts::load()
{
    return HomeFile::load(SharedFiles::shortcuts.path, allBindings);
}

Shortcuts::Bindings Shortcuts::defaults()
{
    Bindings all;
    for (const ShortcutAction action : allShortcutActions)
        all[action] = defaultCombo(action);
    return all;
}
