#include "Platform/Desktop/Appearance/Palette.h"

#import <AppKit/AppKit.h>

#include <memory>
#include <utility>

QColor accentColor()
{
    __block NSColor *accent = nil;
    NSAppearance *dark = [NSAppearance appearanceNamed:NSAppearanceNameDarkAqua];
    [dark performAsCurrentDrawingAppearance:^{
      accent = [NSColor.controlAccentColor colorUsingColorSpace:NSColorSpace.sRGBColorSpace];
    }];
    if (accent == nil)
        return systemColor(SystemColor::blue);
    return QColor::fromRgbF(static_cast<float>(accent.redComponent),
                            static_cast<float>(accent.greenComponent),
                            static_cast<float>(accent.blueComponent));
}

bool reducedMotion() { return NSWorkspace.sharedWorkspace.accessibilityDisplayShouldReduceMotion; }

bool increasedContrast() { return NSWorkspace.sharedWorkspace.accessibilityDisplayShouldIncreaseContrast; }

qreal textSizeFactor()
{
    return 1; // the system has no such setting for windows
}

void watchAppearance(std::function<void()> changed)
{
    const auto announce = std::make_shared<std::function<void()>>(std::move(changed));
    [NSWorkspace.sharedWorkspace.notificationCenter
        addObserverForName:NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification
                    object:nil
                     queue:NSOperationQueue.mainQueue
                usingBlock:^(NSNotification *) {
                  (*announce)();
                }];
    [NSNotificationCenter.defaultCenter addObserverForName:NSSystemColorsDidChangeNotification
                                                    object:nil
                                                     queue:NSOperationQueue.mainQueue
                                                usingBlock:^(NSNotification *) {
                                                  (*announce)();
                                                }];
}
