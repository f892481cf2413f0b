#pragma once

#include <QAccessibleWidget>

#include <vector>

/// A widget in the accessibility tree. Widgets that only lay out others are no part of that tree: what they
/// hold is listed as if it lay in the nearest widget around them that is part of it. Decoration is left out.
class AccessibleWidget : public QAccessibleWidget
{
public:
    explicit AccessibleWidget(QWidget *widget, QAccessible::Role role = QAccessible::Client);

    QAccessibleInterface *parent() const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

    /// With those of setDescribes() and setSpokenName() of AccessibleRole.h.
    QList<QPair<QAccessibleInterface *, QAccessible::Relation>>
    relations(QAccessible::Relation match) const override;

private:
    std::vector<QWidget *> exposedChildren() const;
};

/// A push button whose name says all: it has no description but the one that it was given, and the label
/// beside it does not label it once more.
class AccessibleButton : public AccessibleWidget
{
public:
    explicit AccessibleButton(QWidget *button) : AccessibleWidget(button, QAccessible::Button) {}

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QList<QPair<QAccessibleInterface *, QAccessible::Relation>>
    relations(QAccessible::Relation match) const override;
    QStringList actionNames() const override;
    void doAction(const QString &action) override;
};
