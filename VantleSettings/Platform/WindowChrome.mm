#include "Platform/WindowChrome.h"

#include <QWidget>

#import <AppKit/AppKit.h>

namespace
{

NSWindow *nativeWindow(const QWidget &window)
{
    return ((__bridge NSView *)reinterpret_cast<void *>(window.winId())).window;
}

} // namespace

void prepareWindow(QWidget &window)
{
    const QSize size = window.size();
    NSWindow *native = nativeWindow(window);
    native.styleMask |= NSWindowStyleMaskFullSizeContentView;
    native.titlebarAppearsTransparent = YES;
    native.titleVisibility = NSWindowTitleHidden;
    native.movableByWindowBackground = YES;
    native.appearance = [NSAppearance appearanceNamed:NSAppearanceNameDarkAqua];
    native.backgroundColor = NSColor.blackColor;
    native.opaque = YES;
    native.hasShadow = YES;
    native.tabbingMode = NSWindowTabbingModeDisallowed;
    native.releasedWhenClosed = NO;
    [native setContentSize:NSMakeSize(size.width(), size.height())];
}

int titleBarHeight(const QWidget &window)
{
    NSWindow *native = nativeWindow(window);
    return int(NSHeight(native.contentView.frame) - NSHeight(native.contentLayoutRect));
}

void bringToFront(QWidget &window)
{
    [nativeWindow(window) makeKeyAndOrderFront:nil];
    [NSApp activateIgnoringOtherApps:YES];
}
