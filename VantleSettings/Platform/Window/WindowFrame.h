#pragma once

#include <QString>

class QWidget;

/// Where a window was left, remembered between runs under a name.

/// Puts the window where it was left the last time, or in the middle of the primary screen. Call this after
/// the window was given its first size and before it is shown.
void restoreWindowFrame(QWidget &window, const QString &name);

/// Remembers where the window is now. Call this before the window is closed.
void saveWindowFrame(const QWidget &window, const QString &name);

/// Remembers from now on where the window is each time a move, a resize or a change of its state has ended,
/// so that its place is kept even when the program ends without closing it. Call this after
/// restoreWindowFrame() and before the window is shown.
void keepWindowFrame(QWidget &window, const QString &name);
