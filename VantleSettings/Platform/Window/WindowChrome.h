#pragma once

class QWidget;

/// The window's frame and title bar, and its place among other windows.

/// Makes the window dark whatever the system's setting is, black behind its content, and never part of a tab
/// group. Where the system's windows allow it, the content extends under a transparent title bar without a
/// title. Call this before the window is first shown.
void prepareWindow(QWidget &window);

/// Lets a widget lay its content out under the title bar, which the toolkit would keep clear by margins.
void extendUnderTitleBar(QWidget &widget);

/// The height of the strip at the window's top that belongs to the system's window buttons, in points; 0
/// where the buttons are on a separate frame.
int titleBarHeight(const QWidget &window);

/// Whether windows can have transparent pixels. Where they cannot, such pixels are black.
bool windowsAreComposited();

/// Brings the window to the front, makes it the one that gets the keys, and its program the active one.
void bringToFront(QWidget &window);
