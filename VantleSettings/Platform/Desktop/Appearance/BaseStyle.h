#pragma once

class QStyle;

/// The system's part in how controls look.

/// The style that ours builds on: the system's own in its dark form where the window uses the system's
/// controls, else a plain one. The caller owns it.
QStyle *makeBaseStyle();

/// Whether the system's style draws buttons, pickers, menus and scroll bars itself.
bool systemDrawsControls();
