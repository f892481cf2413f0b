#include "Platform/Window/WindowChrome.h"

#include <QGuiApplication>
#include <QWidget>

#import <AppKit/AppKit.h>

namespace
{

/// Nil where the windows aren't the system's, as in tests that draw without a screen.
NSWindow *nativeWindow(const QWidget &window)
{
    if (QGuiApplication::platformName() != QStringLiteral("cocoa"))
        return nil;
    return ((__bridge NSView *)reinterpret_cast<void *>(window.winId())).window;
}

/// Lets the content extend under an invisible title bar.
void hideTitleBar(NSWindow *window)
{
    window.styleMask |= NSWindowStyleMaskFullSizeContentView;
    window.titlebarAppearsTransparent = YES;
    window.titleVisibility = NSWindowTitleHidden;
}

/// Hides the title bar again after the toolkit has set the window up for entering or leaving full screen.
void keepTitleBarHidden(NSWindow *window)
{
    for (NSNotificationName change in
         @[ NSWindowDidEnterFullScreenNotification, NSWindowDidExitFullScreenNotification ]) {
        [NSNotificationCenter.defaultCenter addObserverForName:change
                                                        object:window
                                                         queue:nil
                                                    usingBlock:^(NSNotification *notification) {
                                                      NSWindow *changed = notification.object;
                                                      dispatch_async(dispatch_get_main_queue(), ^{
                                                        hideTitleBar(changed);
                                                      });
                                                    }];
    }
}

} // namespace

void prepareWindow(QWidget &window)
{
    const QSize size = window.size();
    NSWindow *native = nativeWindow(window);
    if (native == nil)
        return;
    hideTitleBar(native);
    keepTitleBarHidden(native);
    native.movableByWindowBackground = YES;
    native.appearance = [NSAppearance appearanceNamed:NSAppearanceNameDarkAqua];
    native.backgroundColor = NSColor.blackColor;
    native.opaque = YES;
    native.hasShadow = YES;
    native.tabbingMode = NSWindowTabbingModeDisallowed;
    native.releasedWhenClosed = NO;
    [native setContentSize:NSMakeSize(size.width(), size.height())];
}

void extendUnderTitleBar(QWidget &widget)
{
    widget.setAttribute(Qt::WA_ContentsMarginsRespectsSafeArea, false);
}

int titleBarHeight(const QWidget &window)
{
    NSWindow *native = nativeWindow(window);
    return int(NSHeight(native.contentView.frame) - NSHeight(native.contentLayoutRect));
}

bool windowsAreComposited() { return true; }

void bringToFront(QWidget &window)
{
    [nativeWindow(window) makeKeyAndOrderFront:nil];
    [NSApp activateIgnoringOtherApps:YES];
}
