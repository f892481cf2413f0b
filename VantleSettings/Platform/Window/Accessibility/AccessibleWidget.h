#pragma once

#include <QAccessibleWidget>

#include <optional>
#include <vector>

/// A widget in the accessibility tree. Widgets that only lay out others are not part of that tree: their
/// children are listed as children of the nearest ancestor that is. Decoration is left out.
class AccessibleWidget : public QAccessibleWidget
{
public:
    explicit AccessibleWidget(QWidget *widget, QAccessible::Role role = QAccessible::Client);

    QAccessibleInterface *parent() const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

    /// With those of changeAccessibleNameParts() and changeAccessibleDescriptionParts() of AccessibleRole.h.
    QString text(QAccessible::Text kind) const override;

    /// With those of setDescribes() and setSpokenName() of AccessibleRole.h.
    QList<QPair<QAccessibleInterface *, QAccessible::Relation>>
    relations(QAccessible::Relation match) const override;

protected:
    std::optional<QString> joinedParts(QAccessible::Text kind) const;

private:
    std::vector<QWidget *> exposedChildren() const;
};

/// A push button whose name is sufficient: it has no description but the one that was set, and a label that
/// has it as its buddy is not reported as its label.
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
