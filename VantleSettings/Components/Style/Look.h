#pragma once

class QApplication;

/// Gives the application its look: style, dark palette, fonts, tooltips and the focus ring. Directly after
/// the application is made, before any window.
void installLook(QApplication &application);

/// Keeps the look in step with the system's accent colour, text size, contrast and motion from here on. The
/// program does; tests and pictures do not, so that they look the same everywhere.
void followAppearance();
