#pragma once

#include "Foundation/SystemColor.h"
#include "Shortcuts/KeyCombo.h"

#include <QString>

#include <array>
#include <optional>

/// What the agent's global shortcuts can do.
enum class ShortcutAction { focusLast, focusPrevious, openPlan };

inline constexpr std::array allShortcutActions{ShortcutAction::focusLast, ShortcutAction::focusPrevious,
                                               ShortcutAction::openPlan};

QString rawValue(ShortcutAction action); ///< its name in the shortcuts file
std::optional<ShortcutAction> shortcutAction(const QString &rawValue);
QString title(ShortcutAction action);
QString icon(ShortcutAction action); ///< a symbol's name
SystemColor tint(ShortcutAction action);
KeyCombo defaultCombo(ShortcutAction action);
