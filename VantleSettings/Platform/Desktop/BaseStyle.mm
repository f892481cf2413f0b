#include "Platform/Desktop/BaseStyle.h"

#include <QStyleFactory>

#import <AppKit/AppKit.h>

// The toolkit lets the system draw its controls for the application's appearance, not for the window's.
QStyle *makeBaseStyle()
{
    NSApp.appearance = [NSAppearance appearanceNamed:NSAppearanceNameDarkAqua];
    return QStyleFactory::create(QStringLiteral("macos"));
}

bool systemDrawsControls() { return true; }
