#include "Platform/Window/ApplicationMenu.h"

#include <QAction>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QWindow>

#import <AppKit/AppKit.h>

namespace
{

/// Puts an item of the system's own into a menu. Its action goes along the responder chain: to the panel,
/// alert or sheet that has the keyboard, else to the window. The toolkit's items always act on our window.
NSMenuItem *insertStandardItem(QMenu &menu, NSInteger place, NSString *title, SEL action, NSString *key)
{
    NSMenuItem *item = [[NSMenuItem alloc] initWithTitle:title action:action keyEquivalent:key];
    [menu.toNSMenu() insertItem:item atIndex:place];
    return item;
}

/// Adds the system's own window items in place of the toolkit's, whose action the toolkit sets again with
/// each change.
void useStandardWindowItems(const StandardMenuItems &items, QMenu &windowMenu)
{
    items.minimize->setVisible(false);
    items.close->setVisible(false);
    insertStandardItem(windowMenu, 0, @"Minimize", @selector(performMiniaturize:), @"m");
    insertStandardItem(windowMenu, 1, @"Close", @selector(performClose:), @"w");
}

/// Shows our undo and redo items while our window has the focus, because the responder chain doesn't know its
/// editors, and the system's items while one of the system's panels has the focus.
void useStandardUndoInPanels(const StandardMenuItems &items, QMenu &editMenu)
{
    // Text views respond to these two selectors without declaring them.
    NSMenuItem *undo = insertStandardItem(editMenu, 0, @"Undo", NSSelectorFromString(@"undo:"), @"z");
    NSMenuItem *redo = insertStandardItem(editMenu, 1, @"Redo", NSSelectorFromString(@"redo:"), @"z");
    redo.keyEquivalentModifierMask = NSEventModifierFlagShift | NSEventModifierFlagCommand;
    const auto show = [=](bool ours) {
        items.undo->setVisible(ours);
        items.redo->setVisible(ours);
        undo.hidden = ours;
        redo.hidden = ours;
    };
    show(true);
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &editMenu,
                     [show](const QWindow *window) { show(window != nullptr); });
}

/// The menu bar would choose its item again with every repeat of a held key equivalent. The repeats are sent
/// to our window instead, where they are ordinary keys that a text field may use.
void chooseItemsOncePerPress()
{
    [NSEvent addLocalMonitorForEventsMatchingMask:NSEventMaskKeyDown
                                          handler:^NSEvent *(NSEvent *event) {
                                            const bool isKeyEquivalent =
                                                event.modifierFlags & NSEventModifierFlagCommand;
                                            const bool isOurs = QGuiApplication::focusWindow() != nullptr;
                                            if (!event.ARepeat || !isKeyEquivalent || !isOurs)
                                                return event;
                                            [event.window sendEvent:event];
                                            return nil;
                                          }];
}

} // namespace

// The toolkit moves the items with a role into the application menu and adds items to hide, hide others and
// show all there itself, so ours would be duplicates. Cut, copy, paste and select all reach the focused
// editor, or the field of a panel, by the toolkit's own way from their titles to standard actions.
void adoptMenuBar(QMenuBar &, const StandardMenuItems &items, QMenu &editMenu, QMenu &windowMenu)
{
    items.about->setMenuRole(QAction::AboutRole);
    items.quit->setMenuRole(QAction::QuitRole);
    for (QAction *item : {items.hide, items.hideOthers, items.showAll})
        item->setVisible(false);
    if (windowMenu.toNSMenu() == nil)
        return; // the menus aren't the system's, as in tests that draw without a screen
    useStandardWindowItems(items, windowMenu);
    useStandardUndoInPanels(items, editMenu);
    NSApp.windowsMenu = windowMenu.toNSMenu();
    chooseItemsOncePerPress();
}

void showAboutPanel(QWidget &) { [NSApp orderFrontStandardAboutPanel:nil]; }

void becomeRegularApplication() { [NSApp setActivationPolicy:NSApplicationActivationPolicyRegular]; }
