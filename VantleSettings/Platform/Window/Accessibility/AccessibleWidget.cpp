#include "Platform/Window/Accessibility/AccessibleWidget.h"

#include "Platform/Window/Accessibility/AccessibleText.h"
#include "Platform/Window/Accessibility/detail/AccessibleProperties.h"

#include <QAbstractButton>
#include <QFocusFrame>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QVariant>

#include <algorithm>

namespace
{

bool isExposed(const QWidget *widget)
{
    return !widget->isWindow() && !widget->property(AccessibleProperties::decoration).toBool() &&
           !qobject_cast<const QFocusFrame *>(widget) && !qobject_cast<const QMenu *>(widget);
}

bool isLayout(const QAccessibleInterface *object)
{
    return object && (object->role() == QAccessible::Client || object->role() == QAccessible::LayeredPane);
}

void appendExposedChildren(const QWidget *widget, std::vector<QWidget *> &found)
{
    for (QObject *object : widget->children()) {
        auto *child = qobject_cast<QWidget *>(object);
        if (!child || !isExposed(child))
            continue;
        if (isLayout(QAccessible::queryAccessibleInterface(child)))
            appendExposedChildren(child, found);
        else
            found.push_back(child);
    }
}

QObject *objectProperty(const QWidget *widget, const char *name)
{
    return widget->property(name).value<QPointer<QObject>>();
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
constexpr QAccessible::Relation describedByThis = QAccessible::Described;
#else
constexpr QAccessible::Relation describedByThis = QAccessible::Labelled; // the nearest that there is
#endif

} // namespace

AccessibleWidget::AccessibleWidget(QWidget *widget, QAccessible::Role role) : QAccessibleWidget(widget, role)
{
}

QAccessibleInterface *AccessibleWidget::parent() const
{
    QAccessibleInterface *parent = QAccessibleWidget::parent();
    while (isLayout(parent) && parent->object() && parent->object()->parent())
        parent = QAccessible::queryAccessibleInterface(parent->object()->parent());
    return parent;
}

int AccessibleWidget::childCount() const
{
    return int(exposedChildren().size());
}

QAccessibleInterface *AccessibleWidget::child(int index) const
{
    const std::vector<QWidget *> widgets = exposedChildren();
    const bool inside = index >= 0 && index < std::ssize(widgets);
    return inside ? QAccessible::queryAccessibleInterface(widgets[size_t(index)]) : nullptr;
}

int AccessibleWidget::indexOfChild(const QAccessibleInterface *child) const
{
    const std::vector<QWidget *> widgets = exposedChildren();
    const auto found = std::find(widgets.begin(), widgets.end(), child ? child->object() : nullptr);
    return found == widgets.end() ? -1 : int(found - widgets.begin());
}

QString AccessibleWidget::text(QAccessible::Text kind) const
{
    const std::optional<QString> joined = joinedParts(kind);
    return joined ? *joined : QAccessibleWidget::text(kind);
}

std::optional<QString> AccessibleWidget::joinedParts(QAccessible::Text kind) const
{
    const char *property = kind == QAccessible::Name          ? AccessibleProperties::nameParts
                           : kind == QAccessible::Description ? AccessibleProperties::descriptionParts
                                                              : nullptr;
    const QVariant parts = property ? widget()->property(property) : QVariant();
    return parts.isValid() ? std::optional(accessibleText(parts.toStringList().join(QString())))
                           : std::nullopt;
}

QList<QPair<QAccessibleInterface *, QAccessible::Relation>>
AccessibleWidget::relations(QAccessible::Relation match) const
{
    auto all = QAccessibleWidget::relations(match);
    const auto add = [&](QObject *target, QAccessible::Relation relation) {
        if (target && match & relation)
            all.append({QAccessible::queryAccessibleInterface(target), relation});
    };
    add(objectProperty(widget(), AccessibleProperties::describes), describedByThis);
    add(objectProperty(widget(), AccessibleProperties::spokenName), QAccessible::Label);
    if (const auto *label = qobject_cast<const QLabel *>(widget()))
        add(label->buddy(), QAccessible::Labelled);
    return all;
}

std::vector<QWidget *> AccessibleWidget::exposedChildren() const
{
    std::vector<QWidget *> found;
    appendExposedChildren(widget(), found);
    return found;
}

QString AccessibleButton::text(QAccessible::Text kind) const
{
    if (const std::optional<QString> joined = joinedParts(kind))
        return *joined;
    const auto *button = static_cast<const QAbstractButton *>(widget());
    if (kind == QAccessible::Description)
        return button->accessibleDescription(); // the tooltip says no more than the name
    if (kind != QAccessible::Name || !button->accessibleName().isEmpty())
        return AccessibleWidget::text(kind);
    return button->text().replace(QStringLiteral("&&"), QStringLiteral("&"));
}

QAccessible::State AccessibleButton::state() const
{
    QAccessible::State state = AccessibleWidget::state();
    state.pressed = static_cast<const QAbstractButton *>(widget())->isDown();
    return state;
}

QList<QPair<QAccessibleInterface *, QAccessible::Relation>>
AccessibleButton::relations(QAccessible::Relation match) const
{
    auto all = AccessibleWidget::relations(match);
    const QObject *spoken = objectProperty(widget(), AccessibleProperties::spokenName);
    all.removeIf([spoken](const auto &relation) {
        return relation.second == QAccessible::Label && relation.first->object() != spoken;
    });
    return all;
}

QStringList AccessibleButton::actionNames() const
{
    return widget()->isEnabled() ? QStringList(pressAction()) + AccessibleWidget::actionNames()
                                 : AccessibleWidget::actionNames();
}

void AccessibleButton::doAction(const QString &action)
{
    if (action == pressAction())
        static_cast<QAbstractButton *>(widget())->click();
    else
        AccessibleWidget::doAction(action);
}
