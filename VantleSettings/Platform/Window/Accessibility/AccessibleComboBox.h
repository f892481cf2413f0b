#pragma once

#include "Platform/Window/Accessibility/AccessibleWidget.h"

class QComboBox;

/// A combo box of fixed entries. Its name is the current entry, as the toolkit has it on desktops. It offers
/// that entry as a text, too, because screen readers take the value of a combo box from there. All of the
/// text is selected, so that a new entry is read out as a whole.
class AccessibleComboBox : public AccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit AccessibleComboBox(QComboBox *box);

    /// Tells screen readers that another entry is shown now.
    static void notifyChanged(QComboBox *box);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    int childCount() const override { return 1; }
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
    void doAction(const QString &action) override;

    void selection(int index, int *start, int *end) const override;
    int selectionCount() const override { return 1; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QString text(int start, int end) const override;
    int characterCount() const override;
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint &) const override { return 0; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int offset, int *start, int *end) const override;

private:
    QComboBox *box() const;
};
