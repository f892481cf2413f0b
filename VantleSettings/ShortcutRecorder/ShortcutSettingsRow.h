#pragma once

#include "Components/SettingsRow.h"
#include "Shortcuts/ShortcutAction.h"

class IconButton;
class SettingsModel;
class ShortcutRecorder;

/// Binds the action to its default, tells the agent and announces the model.
void resetShortcut(SettingsModel &model, ShortcutAction action);

/// One action with its default, a recorder for its combination and a button back to the default, which is
/// there and acts also where the default is in force.
class ShortcutSettingsRow : public SettingsRow
{
    Q_OBJECT

public:
    ShortcutSettingsRow(ShortcutAction action, SettingsModel &model, QWidget *parent = nullptr);

private:
    ShortcutSettingsRow(ShortcutAction action, SettingsModel &model, ShortcutRecorder *recorder,
                        IconButton *reset, QWidget *parent);
};
