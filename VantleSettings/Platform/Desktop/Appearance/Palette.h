#pragma once

#include "Foundation/SystemColor.h"

#include <QColor>

#include <functional>

/// The system's colours, in their dark variants, and the user's settings for appearance.

/// A colour of the system's palette in its dark variant.
QColor systemColor(SystemColor name);

/// The colour the user has chosen for selections and switches; blue where the system does not tell.
QColor accentColor();

/// Whether the user wants less motion: nothing slides or fades then.
bool reducedMotion();

/// Whether the user wants more contrast: separators and secondary texts are stronger then.
bool increasedContrast();

/// How much larger the user wants texts than the desktop's font says; 1 where the system has no such setting.
qreal textSizeFactor();

/// Calls `changed` on the main thread each time one of the answers above has changed, for as long as the
/// program runs. Until the first call the answers may be the defaults, because asking can take a while.
void watchAppearance(std::function<void()> changed);
