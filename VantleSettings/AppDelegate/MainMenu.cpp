#include "AppDelegate/MainMenu.h"

#include "AppDelegate/EditMenu.h"
#include "Platform/Window/ApplicationMenu.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace
{

QAction *addItem(QMenu &menu, const QString &title, const QKeySequence &key = {})
{
    QAction *item = menu.addAction(title);
    item->setShortcut(key);
    item->setMenuRole(QAction::NoRole); // never guessed from the title
    return item;
}

void addApplicationMenu(QMenuBar &bar, QMainWindow &window, StandardMenuItems &items)
{
    QMenu &menu = *bar.addMenu(u"Vantle Settings"_s);
    items.about = addItem(menu, u"About Vantle Settings"_s);
    menu.addSeparator();
    items.hide = addItem(menu, u"Hide Vantle Settings"_s, Qt::CTRL | Qt::Key_H);
    items.hideOthers = addItem(menu, u"Hide Others"_s, Qt::ALT | Qt::CTRL | Qt::Key_H);
    items.showAll = addItem(menu, u"Show All"_s);
    menu.addSeparator();
    items.quit = addItem(menu, u"Quit Vantle Settings"_s, Qt::CTRL | Qt::Key_Q);
    QObject::connect(items.about, &QAction::triggered, &window, [&window] { showAboutPanel(window); });
    QObject::connect(items.quit, &QAction::triggered, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

QMenu &addWindowMenu(QMenuBar &bar, QMainWindow &window, StandardMenuItems &items)
{
    QMenu &menu = *bar.addMenu(u"Window"_s);
    items.minimize = addItem(menu, u"Minimize"_s, Qt::CTRL | Qt::Key_M);
    items.close = addItem(menu, u"Close"_s, Qt::CTRL | Qt::Key_W);
    QObject::connect(items.minimize, &QAction::triggered, &window, &QWidget::showMinimized);
    QObject::connect(items.close, &QAction::triggered, &window, &QWidget::close, Qt::QueuedConnection);
    return menu;
}

} // namespace

void buildMainMenu(QMainWindow &window)
{
    QMenuBar &bar = *window.menuBar();
    StandardMenuItems items;
    addApplicationMenu(bar, window, items);
    auto *edit = new EditMenu(&bar);
    items.undo = edit->undoItem();
    items.redo = edit->redoItem();
    bar.addMenu(edit);
    QMenu &windowMenu = addWindowMenu(bar, window, items);
    adoptMenuBar(bar, items, *edit, windowMenu);
}
