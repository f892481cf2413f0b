#include "Platform/Window/Accessibility/AccessibleComboBox.h"

#include <QAbstractItemView>
#include <QComboBox>

AccessibleComboBox::AccessibleComboBox(QComboBox *box) : AccessibleWidget(box, QAccessible::ComboBox)
{
}

void AccessibleComboBox::notifyChanged(QComboBox *box)
{
    QAccessibleTextInsertEvent event(box, 0, box->currentText());
    QAccessible::updateAccessibility(&event);
}

void *AccessibleComboBox::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    return AccessibleWidget::interface_cast(type);
}

QString AccessibleComboBox::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name || kind == QAccessible::Value)
        return box()->currentText();
    return AccessibleWidget::text(kind);
}

QAccessible::State AccessibleComboBox::state() const
{
    QAccessible::State state = AccessibleWidget::state();
    state.expandable = true;
    state.expanded = box()->view()->isVisible();
    return state;
}

QAccessibleInterface *AccessibleComboBox::child(int index) const
{
    return index == 0 ? QAccessible::queryAccessibleInterface(box()->view()) : nullptr;
}

int AccessibleComboBox::indexOfChild(const QAccessibleInterface *child) const
{
    return child && child->object() == box()->view() ? 0 : -1;
}

void AccessibleComboBox::doAction(const QString &action)
{
    if (action != showMenuAction() && action != pressAction())
        return;
    if (box()->view()->isVisible())
        box()->hidePopup();
    else
        box()->showPopup();
}

void AccessibleComboBox::selection(int, int *start, int *end) const
{
    *start = 0;
    *end = characterCount();
}

QString AccessibleComboBox::text(int start, int end) const
{
    return box()->currentText().mid(start, end - start);
}

int AccessibleComboBox::characterCount() const
{
    return int(box()->currentText().size());
}

QString AccessibleComboBox::attributes(int, int *start, int *end) const
{
    selection(0, start, end);
    return {};
}

QComboBox *AccessibleComboBox::box() const
{
    return static_cast<QComboBox *>(widget());
}
