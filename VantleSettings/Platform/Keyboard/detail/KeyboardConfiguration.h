#pragma once

#include "Platform/Keyboard/detail/XkbKeymap.h"

#include <optional>

/// The keyboard as this system is set up: by Debian's /etc/default/keyboard, else by what localectl wrote for
/// X or for the console. Nothing where no file names a layout.
std::optional<XkbKeymap::Names> configuredKeyboard();
