#pragma once

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

/// The parts of the menu bar that differ between systems.

/// The items that each system handles differently.
struct StandardMenuItems {
    QAction *about = nullptr;
    QAction *hide = nullptr;
    QAction *hideOthers = nullptr;
    QAction *showAll = nullptr;
    QAction *quit = nullptr;
    QAction *undo = nullptr;     ///< the first item of the Edit menu
    QAction *redo = nullptr;     ///< the second
    QAction *minimize = nullptr; ///< the first item of the Window menu
    QAction *close = nullptr;    ///< the second
};

/// Shows the bar where the system's menu bars are, and gives the items the meaning that they have on this
/// system; an item without one is disabled. The system adds its list of windows to `windowMenu` where it has
/// such a list.
void adoptMenuBar(QMenuBar &bar, const StandardMenuItems &items, QMenu &editMenu, QMenu &windowMenu);

/// Shows the system's panel with the program's name, icon and version.
void showAboutPanel(QWidget &window);

/// Gives the program an icon in the Dock and a menu bar, on systems where a program may have neither.
void becomeRegularApplication();
