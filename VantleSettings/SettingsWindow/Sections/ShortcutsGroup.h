#pragma once

class SettingsGroup;
class SettingsModel;

/// Makes the group of the keyboard shortcuts: a row for each action, and a button that resets them all.
SettingsGroup *shortcutsGroup(SettingsModel &model);
