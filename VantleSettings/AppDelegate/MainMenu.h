#pragma once

class QMainWindow;

/// Builds the menu bar, application menu, Edit and Window, and gives it to this window.
void buildMainMenu(QMainWindow &window);
