#pragma once

#include "Platform/Window/OnlyProgram.h"

class QWidget;

/// Brings a window to the front with the token that a desktop gave for it, where window managers otherwise
/// keep programs from taking the keyboard from others, and ends the desktop's display of a program that is
/// starting.
void activateWindow(QWidget &window, const LaunchToken &token);
