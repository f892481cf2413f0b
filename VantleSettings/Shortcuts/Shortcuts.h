#pragma once

#include "Foundation/Observable.h"
#include "Shortcuts/ShortcutAction.h"

#include <map>
#include <optional>

/// The current binding of every shortcut action: `~/.vantle/shortcuts.json`.
class Shortcuts : public Observable
{
    Q_OBJECT

public:
    using Bindings = std::map<ShortcutAction, KeyCombo>;

    /// Starts from the file, or from the defaults when it can't be read.
    explicit Shortcuts(QObject *parent = nullptr);

    Published<Bindings> bindings;

    /// Binds the action to its default and saves.
    void reset(ShortcutAction action);
    void save() const;

    /// All bindings of the file, missing ones filled with defaults; nothing when any of it is invalid.
    static std::optional<Bindings> load();
    static Bindings defaults();
};
