#include "Platform/Window/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QFocusFrame>
#include <QMenu>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace
{

constexpr auto roleProperty = "vantleAccessibleRole";
constexpr auto decorationProperty = "vantleDecoration";

bool isHeard(const QWidget *widget)
{
    return !widget->isWindow() && !widget->property(decorationProperty).toBool() &&
           !qobject_cast<const QFocusFrame *>(widget) && !qobject_cast<const QMenu *>(widget);
}

/// A widget that holds others, heard without those that are decoration.
class Container : public QAccessibleWidget
{
public:
    Container(QWidget *widget, QAccessible::Role role) : QAccessibleWidget(widget, role) {}

    int childCount() const override { return int(heard().size()); }

    QAccessibleInterface *child(int index) const override
    {
        const std::vector<QWidget *> widgets = heard();
        const bool inside = index >= 0 && index < std::ssize(widgets);
        return inside ? QAccessible::queryAccessibleInterface(widgets[size_t(index)]) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface *child) const override
    {
        const std::vector<QWidget *> widgets = heard();
        const auto found = std::find(widgets.begin(), widgets.end(), child ? child->object() : nullptr);
        return found == widgets.end() ? -1 : int(found - widgets.begin());
    }

private:
    std::vector<QWidget *> heard() const
    {
        std::vector<QWidget *> widgets;
        for (QObject *object : widget()->children()) {
            auto *child = qobject_cast<QWidget *>(object);
            if (child && isHeard(child))
                widgets.push_back(child);
        }
        return widgets;
    }
};

QAccessibleInterface *heardOurWay(const QString &className, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    if (!widget)
        return nullptr;
    const QVariant role = widget->property(roleProperty);
    if (role.isValid())
        return new Container(widget, QAccessible::Role(role.toInt()));
    const bool plain = className == QLatin1String("QWidget") && !widget->isWindow();
    return plain ? new Container(widget, QAccessible::Client) : nullptr;
}

} // namespace

void setAccessibleRole(QWidget *widget, QAccessible::Role role)
{
    QAccessible::installFactory(heardOurWay); // once, however often it is asked to
    widget->setProperty(roleProperty, int(role));
    // What was heard of it before, e.g. when it was named, was heard in the role of before.
    QAccessible::deleteAccessibleInterface(
        QAccessible::uniqueId(QAccessible::queryAccessibleInterface(widget)));
}

void markAsDecoration(QWidget *widget)
{
    QAccessible::installFactory(heardOurWay);
    widget->setProperty(decorationProperty, true);
}
