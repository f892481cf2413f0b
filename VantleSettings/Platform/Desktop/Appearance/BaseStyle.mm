#include "Platform/Desktop/Appearance/BaseStyle.h"

#include <QGuiApplication>
#include <QStyleFactory>
#include <QStyleHints>

#import <AppKit/AppKit.h>

// The toolkit lets the system draw its controls for the application's appearance, not for the window's.
QStyle *makeBaseStyle()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QGuiApplication::styleHints()->setColorScheme(Qt::ColorScheme::Dark);
#else
    NSApp.appearance = [NSAppearance appearanceNamed:NSAppearanceNameDarkAqua];
#endif
    return QStyleFactory::create(QStringLiteral("macos"));
}

bool systemDrawsControls() { return true; }
