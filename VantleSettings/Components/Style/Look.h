#pragma once

class QApplication;

/// Gives the application its look: style, dark palette, fonts, tooltips and the focus ring. Call it directly
/// after constructing the application, before any window.
void installLook(QApplication &application);

/// Updates the look whenever the system's accent colour, text size, contrast or motion setting changes. The
/// program calls it; pictures and most tests do not, so that they look the same everywhere.
void followAppearance();
