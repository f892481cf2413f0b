#pragma once

#include <QString>

class QWidget;

/// Where a window was left, remembered between runs under a name.

/// Puts the window where it was left the last time, or in the middle of the primary screen. Before it is
/// shown, and after it was given its first size.
void restoreWindowFrame(QWidget &window, const QString &name);

/// Remembers where the window is now, before it goes away.
void saveWindowFrame(const QWidget &window, const QString &name);

/// Remembers from now on where the window is each time a move, a resize or a change of its state has ended,
/// so that its place outlives a program that ends without closing it. After it was restored, before it is
/// shown.
void keepWindowFrame(QWidget &window, const QString &name);
