#pragma once

#include "Components/SettingsRow.h"
#include "Shortcuts/ShortcutAction.h"

class IconButton;
class SettingsModel;
class ShortcutRecorder;

/// Binds the action to its default, tells the agent and emits the model's objectWillChange().
void resetShortcut(SettingsModel &model, ShortcutAction action);

/// One action with its default, a recorder for its combination, and a reset button, which is shown and
/// enabled even while the default is bound.
class ShortcutSettingsRow : public SettingsRow
{
    Q_OBJECT

public:
    ShortcutSettingsRow(ShortcutAction action, SettingsModel &model, QWidget *parent = nullptr);

private:
    ShortcutSettingsRow(ShortcutAction action, SettingsModel &model, ShortcutRecorder *recorder,
                        IconButton *reset, QWidget *parent);
};
