#include "Platform/Window/WindowFrame.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

#import <AppKit/AppKit.h>

void restoreWindowFrame(QWidget &window, const QString &name)
{
    if (QGuiApplication::platformName() != QStringLiteral("cocoa"))
        return; // the windows aren't the system's, as in tests that draw without a screen
    NSView *view = (__bridge NSView *)reinterpret_cast<void *>(window.winId());
    [view.window center];
    [view.window setFrameAutosaveName:name.toNSString()];
    // The toolkit would show the window with the size that it was given first.
    window.setGeometry(window.windowHandle()->geometry());
}

/// AppKit remembers the frame by itself as long as it has an autosave name.
void saveWindowFrame(const QWidget &, const QString &) {}

void keepWindowFrame(QWidget &, const QString &) {}
