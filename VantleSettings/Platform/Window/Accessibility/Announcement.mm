#include "Platform/Window/Accessibility/Announcement.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QWidget>

#import <AppKit/AppKit.h>

#if QT_VERSION < QT_VERSION_CHECK(6, 8, 0)

void announce(QWidget *widget, const QString &message)
{
    if (!QAccessible::isActive() || QGuiApplication::platformName() != QStringLiteral("cocoa"))
        return; // no screen reader runs, or the windows aren't the system's
    NSView *view = (__bridge NSView *)reinterpret_cast<void *>(widget->window()->winId());
    NSDictionary *information = @{
        NSAccessibilityAnnouncementKey : message.toNSString(),
        NSAccessibilityPriorityKey : @(NSAccessibilityPriorityHigh),
    };
    NSAccessibilityPostNotificationWithUserInfo(view.window, NSAccessibilityAnnouncementRequestedNotification,
                                                information);
}

#endif
