#pragma once

class QMainWindow;

/// Builds the menu bar with the application, Edit and Window menus, and gives it to this window.
void buildMainMenu(QMainWindow &window);
