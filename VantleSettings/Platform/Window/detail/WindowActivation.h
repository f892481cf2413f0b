#pragma once

#include "Platform/Window/OnlyProgram.h"

class QWidget;

/// Brings a window to the front with the token that a desktop gave for it: without one, window managers may
/// keep a program from taking the focus from others. Also ends the desktop's display that the program is
/// starting.
void activateWindow(QWidget &window, const LaunchToken &token);
