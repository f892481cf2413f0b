#include "Platform/Window/Accessibility/AccessibleRole.h"

#include "Platform/Window/Accessibility/AccessibleWidget.h"
#include "Platform/Window/Accessibility/detail/AccessibleProperties.h"

#include <QLabel>
#include <QPointer>
#include <QVariant>
#include <QWidget>

namespace
{

QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    if (!widget)
        return nullptr;
    const QVariant role = widget->property(AccessibleProperties::role);
    if (role.isValid())
        return new AccessibleWidget(widget, QAccessible::Role(role.toInt()));
    const bool plain = className == QLatin1String("QWidget") && !widget->isWindow();
    return plain ? new AccessibleWidget(widget) : nullptr;
}

void changeParts(QWidget *widget, const char *property, const QStringList &parts, QAccessible::Event change)
{
    if (widget->property(property).toStringList() == parts)
        return;
    widget->setProperty(property, parts);
    QAccessibleEvent event(widget, change);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void setAccessibleRole(QWidget *widget, QAccessible::Role role)
{
    QAccessible::installFactory(makeInterface); // once, however often it is asked to
    widget->setProperty(AccessibleProperties::role, int(role));
    // An interface that was made before, e.g. when the widget was named, has the earlier role.
    QAccessible::deleteAccessibleInterface(
        QAccessible::uniqueId(QAccessible::queryAccessibleInterface(widget)));
}

void markAsDecoration(QWidget *widget)
{
    QAccessible::installFactory(makeInterface);
    widget->setProperty(AccessibleProperties::decoration, true);
}

void setDescribes(QWidget *text, QWidget *control)
{
    text->setProperty(AccessibleProperties::describes, QVariant::fromValue(QPointer<QObject>(control)));
}

void changeAccessibleName(QWidget *widget, const QString &name)
{
    if (name != widget->accessibleName())
        widget->setAccessibleName(name);
}

void changeAccessibleDescription(QWidget *widget, const QString &description)
{
    if (description != widget->accessibleDescription())
        widget->setAccessibleDescription(description);
}

void changeAccessibleNameParts(QWidget *widget, const QStringList &parts)
{
    changeParts(widget, AccessibleProperties::nameParts, parts, QAccessible::NameChanged);
}

void changeAccessibleDescriptionParts(QWidget *widget, const QStringList &parts)
{
    changeParts(widget, AccessibleProperties::descriptionParts, parts, QAccessible::DescriptionChanged);
}

void setSpokenName(QWidget *button, const QString &words)
{
    auto *label = qobject_cast<QLabel *>(
        button->property(AccessibleProperties::spokenName).value<QPointer<QObject>>().data());
    if (!label) {
        label = new QLabel(button);
        label->hide();
        markAsDecoration(label);
        button->setProperty(AccessibleProperties::spokenName, QVariant::fromValue(QPointer<QObject>(label)));
    }
    label->setText(words);
}
