#pragma once

class SettingsGroup;
class SettingsModel;

/// Makes the group of the keyboard shortcuts: a row for each action, and a way back to all their defaults.
SettingsGroup *shortcutsGroup(SettingsModel &model);
