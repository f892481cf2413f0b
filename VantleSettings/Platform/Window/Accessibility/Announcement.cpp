#include "Platform/Window/Accessibility/Announcement.h"

#include <QAccessible>
#include <QWidget>

// Older toolkits know no announcements; each system has another way around that.
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)

void announce(QWidget *widget, const QString &message)
{
    QAccessibleAnnouncementEvent event(widget, message);
    QAccessible::updateAccessibility(&event);
}

#endif
