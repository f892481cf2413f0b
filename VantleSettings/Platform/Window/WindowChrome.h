#pragma once

class QWidget;

/// What the system's window frame is told about the window. Before it is first shown.

/// Dark whatever the system's setting, black behind its content, never part of a tab group, and with its
/// content running under a transparent title bar without a title where the system's windows are built so.
void prepareWindow(QWidget &window);

/// Lets a widget lay its content out under the title bar, which the toolkit would keep clear by margins.
void extendUnderTitleBar(QWidget &widget);

/// The height of the strip at the window's top that belongs to the system's window buttons, in points; 0
/// where they stand on a frame of their own.
int titleBarHeight(const QWidget &window);

/// Whether windows can have pixels that are seen through. Where they cannot, those are black.
bool windowsAreComposited();

/// Brings the window to the front, makes it the one that gets the keys, and its program the active one.
void bringToFront(QWidget &window);
