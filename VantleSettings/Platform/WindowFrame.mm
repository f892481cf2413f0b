#include "Platform/WindowFrame.h"

#include <QWidget>
#include <QWindow>

#import <AppKit/AppKit.h>

void restoreWindowFrame(QWidget &window, const QString &name)
{
    NSView *view = (__bridge NSView *)reinterpret_cast<void *>(window.winId());
    [view.window center];
    [view.window setFrameAutosaveName:name.toNSString()];
    // The toolkit would show the window with the size that it was given first.
    window.setGeometry(window.windowHandle()->geometry());
}

/// AppKit remembers the frame by itself as long as it has an autosave name.
void saveWindowFrame(const QWidget &, const QString &) {}
