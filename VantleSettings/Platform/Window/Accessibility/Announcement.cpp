#include "Platform/Window/Accessibility/Announcement.h"

#include <QAccessible>
#include <QWidget>

// Before version 6.8 the toolkit has no announcements: each system's own source has a substitute.
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)

void announce(QWidget *widget, const QString &message)
{
    QAccessibleAnnouncementEvent event(widget, message);
    QAccessible::updateAccessibility(&event);
}

#endif
