#include "Platform/WindowFrame.h"

#include <QWidget>

#import <AppKit/AppKit.h>

void restoreWindowFrame(QWidget &window, const QString &name)
{
    NSView *view = (__bridge NSView *)reinterpret_cast<void *>(window.winId());
    [view.window center];
    [view.window setFrameAutosaveName:name.toNSString()];
}

/// AppKit remembers the frame by itself as long as it has an autosave name.
void saveWindowFrame(const QWidget &, const QString &) {}
