#include "Platform/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace
{

constexpr auto roleProperty = "vantleAccessibleRole";

QAccessibleInterface *withChosenRole(const QString &, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    if (!widget)
        return nullptr;
    const QVariant role = widget->property(roleProperty);
    return role.isValid() ? new QAccessibleWidget(widget, QAccessible::Role(role.toInt())) : nullptr;
}

} // namespace

void setAccessibleRole(QWidget *widget, QAccessible::Role role)
{
    QAccessible::installFactory(withChosenRole); // once, however often it is asked to
    widget->setProperty(roleProperty, int(role));
}
