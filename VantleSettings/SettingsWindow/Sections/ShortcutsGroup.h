#pragma once

#include "Components/SettingsGroup.h"

class SettingsModel;

/// The keyboard shortcuts: a row for each action, and a way back to all their defaults.
class ShortcutsGroup : public SettingsGroup
{
    Q_OBJECT

public:
    explicit ShortcutsGroup(SettingsModel &model, QWidget *parent = nullptr);
};
