#pragma once

class QStyle;

/// The system's part in how controls look.

/// The style that ours builds on: the system's own, dark, where its controls belong to the look, else a plain
/// one. The caller owns it.
QStyle *makeBaseStyle();

/// Whether the system's style draws buttons, pickers, menus and scroll bars itself.
bool systemDrawsControls();
