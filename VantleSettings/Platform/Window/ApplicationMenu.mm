#include "Platform/Window/ApplicationMenu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#import <AppKit/AppKit.h>
#import <CoreServices/CoreServices.h>

#include <utility>

@interface VantleReopenHandler : NSObject
@property(nonatomic) std::function<void()> reopen;
@end

@implementation VantleReopenHandler
- (void)handle:(NSAppleEventDescriptor *)event reply:(NSAppleEventDescriptor *)reply
{
    self.reopen();
}

- (void)install
{
    [NSAppleEventManager.sharedAppleEventManager setEventHandler:self
                                                     andSelector:@selector(handle:reply:)
                                                   forEventClass:kCoreEventClass
                                                      andEventID:kAEReopenApplication];
}
@end

// The toolkit moves the items with a role into the application menu and adds hiding, hiding others and
// showing all there itself, so those of ours would stand there twice. Undo, cut and the like reach the
// focused editor by the toolkit's own way from key equivalents to standard actions.
void adoptMenuBar(QMenuBar &, const ApplicationMenuItems &items, QMenu &windowMenu)
{
    items.about->setMenuRole(QAction::AboutRole);
    items.quit->setMenuRole(QAction::QuitRole);
    for (QAction *item : {items.hide, items.hideOthers, items.showAll})
        item->setVisible(false);
    NSApp.windowsMenu = windowMenu.toNSMenu();
}

void showAboutPanel(QWidget &) { [NSApp orderFrontStandardAboutPanel:nil]; }

void becomeRegularApplication() { [NSApp setActivationPolicy:NSApplicationActivationPolicyRegular]; }

void onReopen(std::function<void()> reopen)
{
    static VantleReopenHandler *handler = [[VantleReopenHandler alloc] init];
    handler.reopen = std::move(reopen);
    [handler install];
    // Launching puts the system's own handler in its place; it is done once the event loop has begun.
    [NSNotificationCenter.defaultCenter addObserver:handler
                                           selector:@selector(install)
                                               name:NSApplicationDidFinishLaunchingNotification
                                             object:nil];
}
