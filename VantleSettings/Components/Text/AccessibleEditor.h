#pragma once

#include "Platform/Window/Accessibility/AccessibleWidget.h"

class PatternsEditor;
class QTextCursor;

/// Exposes an editor with its whole text, folded parts included. All offsets are those of that text; the
/// caret set to an offset inside a folded part is placed before the part. A text that is too long for a
/// message is cut and ends with "…".
class AccessibleEditor : public AccessibleWidget,
                         public QAccessibleTextInterface,
                         public QAccessibleEditableTextInterface
{
public:
    explicit AccessibleEditor(PatternsEditor *editor);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;

    void selection(int index, int *start, int *end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int offset) override;

    QString text(int start, int end) const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType unit, int *start,
                             int *end) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType unit, int *start,
                            int *end) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType unit, int *start, int *end) const override;
    int characterCount() const override;

    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int start, int end) override;
    QString attributes(int offset, int *start, int *end) const override;

    void deleteText(int start, int end) override;
    void insertText(int offset, const QString &text) override;
    void replaceText(int start, int end, const QString &text) override;

private:
    PatternsEditor &editor() const;
    QTextCursor cursor(int start, int end) const;
    int offset(int position) const;
    QString part(const QTextCursor &part, int *start, int *end) const;
};
