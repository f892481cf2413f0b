#pragma once

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

/// The system's part in the menu bar.

/// The items that systems treat in their own ways.
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

/// Puts the bar where the system's menu bars stand and gives it the items' system meaning: those that have
/// none on this system are disabled. The system adds its window list to `windowMenu` where it keeps one.
void adoptMenuBar(QMenuBar &bar, const StandardMenuItems &items, QMenu &editMenu, QMenu &windowMenu);

/// Shows the system's panel with the program's name, icon and version.
void showAboutPanel(QWidget &window);

/// An icon in the Dock and a menu bar, where programs can also do without.
void becomeRegularApplication();
