#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/Accessibility/Announcement.h"

#include <QAccessible>
#include <QWidget>

#if QT_VERSION < QT_VERSION_CHECK(6, 8, 0)

// Screen readers as old as these versions know no announcements, but read a notification as soon as an event
// says that it is shown.
void announce(QWidget *widget, const QString &message)
{
    if (!QAccessible::isActive())
        return;
    QWidget *window = widget->window();
    constexpr auto name = "vantleAnnouncement";
    auto *notification = window->findChild<QWidget *>(QLatin1String(name), Qt::FindDirectChildrenOnly);
    if (!notification) {
        notification = new QWidget(window);
        notification->setObjectName(QLatin1String(name));
        notification->resize(1, 1);
        setAccessibleRole(notification, QAccessible::Notification);
        notification->setAccessibleName(message);
        notification->lower();
        notification->show(); // which sends the event
        return;
    }
    notification->setAccessibleName(message);
    QAccessibleEvent event(notification, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
}

#endif
